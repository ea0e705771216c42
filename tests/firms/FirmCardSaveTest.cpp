#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "firms/FirmCardFixture.h"
#include "orvel/OrvelShowObject.h"
#include "support/CaseName.h"
#include "testhost/TestRights.h"

namespace orvel {
namespace {

using Right = TestRights::Right;

const char* const kCheckCode = "GetCall CheckCode 'O00001002','302245871'";
const char* const kUsedCall = "GetCall GetFirmIsUsedInDocuments O00001002";
const char* const kSaveCall = "ExecArrayCall Orvel_SaveObject 'O0000100','O00001002'";
// The object reads itself again after a write.
const char* const kReread = "GetCall Orvel_ReadObject 'O00001002'";

struct UsedCase {
  const char* name;
  bool credits;  // CCatalogueCredits
  bool rename;   // CFirmsCH
  Variant count;
  bool nameChanges;
  bool groupChanges;
};

class FirmCardUsedTest : public FirmCardTest, public ::testing::WithParamInterface<UsedCase> {};

TEST_P(FirmCardUsedTest, RightsDecideWhetherNameAndGroupChange) {
  const UsedCase& c = GetParam();
  if (!c.credits) host_.Rights()->Deny("CCatalogueCredits", Right::Allowed);
  if (!c.rename) host_.Rights()->Deny("CFirmsCH", Right::Allowed);
  if (c.count.IsEmpty()) {
    BO("O0000100").ReplyRead("GetFirmIsUsedInDocuments", TextRecords("Cnt", ""));
  } else {
    UsedInDocuments(c.count);
  }
  auto w = Open("O00001002");
  Grid(*w).EditField("Name", Variant("UAB Kitas"));
  Grid(*w).EditField("ParentID", Variant(4));
  Grid(*w).TypeIntoField("Active", Variant(false));  // committed by the click
  w->cmdEnter_Click();

  EXPECT_EQ(Stored(2, "Name"), Variant(c.nameChanges ? "UAB Kitas" : "UAB Šilas"));
  EXPECT_EQ(Stored(2, "ParentID"), Variant(c.groupChanges ? 4 : 1));
  // Every other change is written, and the user is told nothing.
  EXPECT_EQ(Stored(2, "Active"), Variant(false));
  EXPECT_TRUE(host_.Ui()->Boxes().empty());
  EXPECT_EQ(w->OrvelObjectUIO()->Fields("Name").Value(), Stored(2, "Name"));
  EXPECT_EQ(BusinessLines(), (std::vector<std::string>{kCheckCode, kUsedCall, kSaveCall, kReread}));
}

INSTANTIATE_TEST_SUITE_P(
    Rights, FirmCardUsedTest,
    ::testing::Values(UsedCase{"NeitherRight", false, false, Variant(3), false, false},
                      UsedCase{"CreditsMoveButDoNotRename", true, false, Variant(1), false, true},
                      UsedCase{"RenameRightDoesBoth", false, true, Variant(1), true, true},
                      UsedCase{"BothRights", true, true, Variant(12.5), true, true},
                      UsedCase{"NotUsedNeedsNoRight", false, false, Variant(0), true, true},
                      UsedCase{"NegativeCountIsNotUsed", false, false, Variant(-1), true, true},
                      UsedCase{"NullCountIsNotUsed", false, false, Variant::Null(), true, true},
                      UsedCase{"CountAsText", false, false, Variant("2"), false, false},
                      // An answer without a record tells of no documents.
                      UsedCase{"NoRecordIsNotUsed", false, false, Variant(), true, true}),
    ByName());

TEST_F(FirmCardTest, AnUnreadableCountIsShownAndNothingIsWritten) {
  UsedInDocuments(Variant("daug"));
  auto w = Open("O00001002");
  Grid(*w).EditField("Name", Variant("UAB Kitas"));
  host_.Ui()->QueueAnswer(vbOK);
  w->cmdEnter_Click();
  EXPECT_EQ(Stored(2, "Name"), Variant("UAB Šilas"));
  ASSERT_EQ(host_.Ui()->Boxes().size(), 1u);
  EXPECT_EQ(host_.Ui()->Boxes()[0].prompt.rfind("Klaida!", 0), 0u);
  EXPECT_EQ(w->OrvelObjectUIO()->Fields("Name").Value(), Variant("UAB Kitas"));
}

// A new firm's group is its new value against the business layer's empty
// record, so without the rights a "used" count puts it back at the top.
TEST_F(FirmCardTest, TheRuleAlsoRunsForANewRecord) {
  host_.Rights()->Deny("CFirmsCH", Right::Allowed);
  host_.Rights()->Deny("CCatalogueCredits", Right::Allowed);
  UsedInDocuments(Variant(1));
  auto w = Open("O00001001", "1");
  Grid(*w).EditField("Name", Variant("UAB Naujas"));
  w->cmdEnter_Click();
  ASSERT_EQ(BO("O0000100").Table().Count(), 5u);
  EXPECT_TRUE(Stored(5, "ParentID").IsNull());
  EXPECT_EQ(Stored(5, "Name"), Variant());
  EXPECT_EQ(BusinessLines()[0], "GetCall GetFirmIsUsedInDocuments");
}

struct DuplicateCase {
  const char* name;
  bool right;  // CFirmsCode
  int answer;
  const char* box;
  bool written;
};

class FirmCardDuplicateTest : public FirmCardTest,
                              public ::testing::WithParamInterface<DuplicateCase> {};

TEST_P(FirmCardDuplicateTest, OnlyTheRightAndAYesWriteARepeatedCode) {
  const DuplicateCase& c = GetParam();
  if (!c.right) host_.Rights()->Deny("CFirmsCode", Right::Allowed);
  CodeRepeats();
  auto w = Open("O00001002");
  Grid(*w).EditField("Name", Variant("UAB Kitas"));
  host_.Ui()->QueueAnswer(c.answer);
  w->cmdEnter.Click();  // the button runs the firm's rules
  EXPECT_EQ(Boxes(), std::vector<std::string>{c.box});
  EXPECT_EQ(Stored(2, "Name"), Variant(c.written ? "UAB Kitas" : "UAB Šilas"));
  EXPECT_EQ(w->cmdEnter.Enabled(), !c.written);
  if (!c.written) {
    EXPECT_EQ(BusinessLines(), std::vector<std::string>{kCheckCode});
    EXPECT_EQ(w->OrvelObjectUIO()->Fields("Name").Value(), Variant("UAB Kitas"));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Answers, FirmCardDuplicateTest,
    ::testing::Values(
        DuplicateCase{"RightAndYes", true, vbYes,
                      "52 Apskaita Įmonės kodas kartojasi!\nĮrašyti informacija?", true},
        DuplicateCase{"RightAndNo", true, vbNo,
                      "52 Apskaita Įmonės kodas kartojasi!\nĮrašyti informacija?", false},
        DuplicateCase{"NoRight", false, vbOK, "48 Apskaita Įmonės kodas kartojasi!", false},
        // A host answering Yes to an OK box still cannot write it.
        DuplicateCase{"NoRightEvenOnYes", false, vbYes, "48 Apskaita Įmonės kodas kartojasi!",
                      false}),
    ByName());

struct CodeCase {
  const char* name;
  const char* oidr;
  Variant code;
  const char* check;  // the CheckCode call, "" when none is made
};

TEST_F(FirmCardTest, OnlyAFirmsNonBlankCodeIsCheckedAndGoesAsTyped) {
  for (const CodeCase& c : std::initializer_list<CodeCase>{
           {"Blanks", "O00001002", Variant("   "), ""},
           {"Null", "O00001002", Variant::Null(), ""},
           {"GroupsAreNotChecked", "O00001001", Variant("302245871"), ""},
           {"BlanksKept", "O00001002", Variant(" 12 "), "GetCall CheckCode 'O00001002',' 12 '"},
           {"Number", "O00001003", Variant(144523896),
            "GetCall CheckCode 'O00001003','144523896'"}}) {
    SCOPED_TRACE(c.name);
    CodeRepeats();  // any check made would stop the write
    host_.Rights()->Deny("CFirmsCode", Right::Allowed);
    auto w = Open(c.oidr);
    Grid(*w).EditField("Code", c.code);
    if (*c.check) host_.Ui()->QueueAnswer(vbOK);  // the code repeats
    w->cmdEnter_Click();
    const auto lines = BusinessLines();
    ASSERT_FALSE(lines.empty());
    if (std::string(c.check).empty()) {
      EXPECT_EQ(lines[0].find("CheckCode"), std::string::npos) << lines[0];
      EXPECT_EQ(Stored(static_cast<int32_t>(c.oidr[8] - '0'), "Code"), c.code);
    } else {
      EXPECT_EQ(lines, std::vector<std::string>{c.check});
    }
  }
}

struct FailureCase {
  const char* name;
  const char* failing;  // the business call that fails
  int32_t number;
  bool canUpdate;
  const char* box;  // the one box shown, "" for none
  bool editsKept;
  bool writeOn;  // cmdEnter afterwards
  bool newOn;    // SSCNew afterwards
};

class FirmCardFailureTest : public FirmCardTest,
                            public ::testing::WithParamInterface<FailureCase> {};

TEST_P(FirmCardFailureTest, WhatTheUserSeesAndWhatSurvives) {
  const FailureCase& c = GetParam();
  if (!c.canUpdate) host_.Rights()->Deny("CFirms", Right::Update);
  auto w = Open("O00001002");
  Grid(*w).EditField("Name", Variant("UAB Kitas"));
  w->SSCNew.SetEnabled(false);
  BO("O0000100").FailCallsNamed(c.failing, c.number, "Įrašo negalima išsaugoti");
  if (*c.box) host_.Ui()->QueueAnswer(vbOK);
  w->cmdEnter_Click();
  EXPECT_EQ(Boxes(), *c.box ? std::vector<std::string>{c.box} : std::vector<std::string>{});
  EXPECT_EQ(Stored(2, "Name"), Variant("UAB Šilas"));
  EXPECT_EQ(w->OrvelObjectUIO()->Fields("Name").Value(),
            Variant(c.editsKept ? "UAB Kitas" : "UAB Šilas"));
  EXPECT_EQ(w->cmdEnter.Enabled(), c.writeOn);
  EXPECT_EQ(w->cmdCancel.Enabled(), c.writeOn);
  EXPECT_EQ(w->SSCNew.Enabled(), c.newOn);
  EXPECT_TRUE(host_.Log().Lines(Channel::Window).empty());
}

const char* const kWriteFailed = "16 Apskaita Klaida!\n\nĮrašo negalima išsaugoti";

INSTANTIATE_TEST_SUITE_P(
    Cases, FirmCardFailureTest,
    ::testing::Values(FailureCase{"CheckCodeFails", "CheckCode", 3, true, "", true, true, false},
                      FailureCase{"UsedInDocumentsFails", "GetFirmIsUsedInDocuments", 3, true, "",
                                  true, true, true},
                      FailureCase{"WriteFails", "Orvel_SaveObject", 5, true, kWriteFailed, true,
                                  true, true},
                      FailureCase{"WriteFailsWithoutTheRight", "Orvel_SaveObject", 5, false,
                                  kWriteFailed, true, false, true},
                      // Changed by someone else meanwhile: the record is read again.
                      FailureCase{"ChangedMeanwhile", "Orvel_SaveObject", 60000, true, kWriteFailed,
                                  false, false, true}),
    ByName());

class ShowHostSpy : public OrvelShowObject {
 public:
  void UnloadShowOrvelObject() override {
    ++unloads;
    if (fail) throw std::runtime_error("already gone");
  }
  int unloads = 0;
  bool fail = false;
};

TEST_F(FirmCardTest, ANewFirmWrittenBecomesStoredAndTellsTheHost) {
  auto w = Open("O00001001", "1");
  ASSERT_TRUE(w->IsNew);
  Grid(*w).EditField("Name", Variant("UAB Naujas"));
  w->cmdEnter_Click();
  EXPECT_FALSE(w->IsNew);
  EXPECT_EQ(w->SOPanel.Caption(), "Įmonės kortelė");
  EXPECT_EQ(host_.Log().Lines(Channel::Window), std::vector<std::string>{"ObjectSaved O00001005"});
  EXPECT_FALSE(w->cmdEnter.Enabled());
  EXPECT_FALSE(w->cmdCancel.Enabled());
  EXPECT_TRUE(w->SSCNew.Enabled());
  EXPECT_EQ(Stored(5, "ParentID"), Variant(1));
  EXPECT_EQ(BusinessLines(),
            (std::vector<std::string>{"GetCall GetFirmIsUsedInDocuments",
                                      "ExecArrayCall Orvel_SaveObject 'O0000100',''",
                                      "GetCall Orvel_ReadObject 'O00001005'"}));
}

// Whether the write fails or not; the object's own failure is not the window's.
TEST_F(FirmCardTest, TheObjectThatShowedTheWindowIsToldOnceAndLetGo) {
  for (const bool writeFails : {true, false}) {
    auto spy = std::make_shared<ShowHostSpy>();
    spy->fail = true;
    auto w = Open("O00001002");
    w->ShowHost = spy;
    if (writeFails) BO("O0000100").FailCallsNamed("Orvel_SaveObject", 5, "Klaida");
    if (writeFails) host_.Ui()->QueueAnswer(vbOK);
    w->cmdEnter_Click();
    EXPECT_EQ(spy->unloads, 1);
    EXPECT_EQ(w->ShowHost, nullptr);
    EXPECT_EQ(host_.Ui()->Boxes().size(), writeFails ? 1u : 0u);
    BO("O0000100").ClearFailures();
  }
}

TEST_F(FirmCardTest, AnEarlyStopKeepsTheShowHost) {
  CodeRepeats();
  host_.Rights()->Deny("CFirmsCode", Right::Allowed);
  auto spy = std::make_shared<ShowHostSpy>();
  auto w = Open("O00001002");
  w->ShowHost = spy;
  host_.Ui()->QueueAnswer(vbOK);
  w->cmdEnter_Click();
  EXPECT_EQ(spy->unloads, 0);
  EXPECT_EQ(w->ShowHost, spy);
}

TEST_F(FirmCardTest, CancelOfANewFirmKeepsItInItsGroup) {
  auto w = Open("O00001001", "1");
  Grid(*w).EditField("Name", Variant("UAB Naujas"));
  w->cmdCancel.Click();
  auto& object = *w->OrvelObjectUIO();
  EXPECT_EQ(object.Fields("ParentID").Value(), Variant(1));
  EXPECT_EQ(object.Fields("Name").Value(), Variant());
  EXPECT_FALSE(w->cmdEnter.Enabled());
}

TEST_F(FirmCardTest, CancelOfANewFirmAtTheTopLeavesNoGroup) {
  auto w = Open("O00001003");
  w->SSCNew_Click();
  w->OrvelObjectUIO()->Fields("ParentID").SetValue(Variant(4));
  w->cmdCancel_Click();
  EXPECT_TRUE(w->OrvelObjectUIO()->Fields("ParentID").Value().IsNull());
}

TEST_F(FirmCardTest, ARecordThatVanishedClosesItsWindowOnCancel) {
  auto w = Open("O00001002");
  Grid(*w).EditField("Name", Variant("UAB Kitas"));
  BO("O0000100").FailCallsNamed("Orvel_ReadObject", 3021, "Įrašas nerastas");
  host_.Ui()->QueueAnswer(vbOK);
  w->cmdCancel_Click();
  EXPECT_EQ(Boxes(), std::vector<std::string>{"48 Apskaita Įrašas nerastas"});
  EXPECT_EQ(host_.Log().Lines(Channel::Window),
            std::vector<std::string>{"RemoveWindow O00001002 True"});
}

}  // namespace
}  // namespace orvel
