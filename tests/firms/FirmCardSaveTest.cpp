#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "firms/FirmCardFixture.h"
#include "orvel/OrvelShowObject.h"
#include "testhost/TestRights.h"

namespace orvel {
namespace {

using Right = TestRights::Right;

const char* const kCheckCode = "GetCall CheckCode 'O00001002','302245871'";

struct UsedCase {
  const char* name;
  bool credits;        // CCatalogueCredits
  bool rename;         // CFirmsCH
  Variant count;       // Empty: an answer without a record, telling of no documents
  const char* stored;  // name and group after the write
};

// Every other change is written, and the user is told nothing.
TEST_F(FirmCardTest, RightsDecideWhetherNameAndGroupChange) {
  const auto firm = BO("O0000100").Table().ReadRecord(2);
  for (const UsedCase& c : std::initializer_list<UsedCase>{
           {"NeitherRight", false, false, Variant(3), "UAB Šilas|1"},
           {"CreditsMoveButDoNotRename", true, false, Variant(1), "UAB Šilas|4"},
           {"RenameRightDoesBoth", false, true, Variant(1), "UAB Kitas|4"},
           {"BothRights", true, true, Variant(12.5), "UAB Kitas|4"},
           {"NotUsedNeedsNoRight", false, false, Variant(0), "UAB Kitas|4"},
           {"NegativeCountIsNotUsed", false, false, Variant(-1), "UAB Kitas|4"},
           {"NullCountIsNotUsed", false, false, Variant::Null(), "UAB Kitas|4"},
           {"CountAsText", false, false, Variant("2"), "UAB Šilas|1"},
           {"NoRecordIsNotUsed", false, false, Variant(), "UAB Kitas|4"}}) {
    SCOPED_TRACE(c.name);
    host_.Rights()->GrantAll();
    if (!c.credits) host_.Rights()->Deny("CCatalogueCredits", Right::Allowed);
    if (!c.rename) host_.Rights()->Deny("CFirmsCH", Right::Allowed);
    if (c.count.IsEmpty()) {
      BO("O0000100").ReplyRead("GetFirmIsUsedInDocuments", TextRecords("Cnt", ""));
    } else {
      UsedInDocuments(c.count);
    }
    BO("O0000100").Table().Store(2, *firm);
    auto w = Open("O00001002");
    Grid(*w).EditField("Name", Variant("UAB Kitas"));
    Grid(*w).EditField("ParentID", Variant(4));
    Grid(*w).TypeIntoField("Active", Variant(false));  // committed by the click
    w->cmdEnter_Click();
    EXPECT_EQ(ConcatText(Stored(2, "Name")) + "|" + ConcatText(Stored(2, "ParentID")), c.stored);
    EXPECT_EQ(Stored(2, "Active"), Variant(false));
    EXPECT_TRUE(host_.Ui()->Boxes().empty());
    EXPECT_EQ(w->OrvelObjectUIO()->Fields("Name").Value(), Stored(2, "Name"));
    // The object reads itself again after a write.
    EXPECT_EQ(BusinessLines(), (Lines{kCheckCode, "GetCall GetFirmIsUsedInDocuments O00001002",
                                      "ExecArrayCall Orvel_SaveObject 'O0000100','O00001002'",
                                      "GetCall Orvel_ReadObject 'O00001002'"}));
  }
}

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

// Only the right and a Yes write a repeated code; a host answering Yes to an
// OK box still cannot write it.
TEST_F(FirmCardTest, OnlyTheRightAndAYesWriteARepeatedCode) {
  const char* const ask = "52 Apskaita Įmonės kodas kartojasi!\nĮrašyti informacija?";
  const char* const tell = "48 Apskaita Įmonės kodas kartojasi!";
  for (const auto& [right, answer, box, written] : {std::tuple{true, vbNo, ask, false},
                                                    {false, vbOK, tell, false},
                                                    {false, vbYes, tell, false},
                                                    {true, vbYes, ask, true}}) {
    SCOPED_TRACE(std::string(box) + " " + std::to_string(answer));
    host_.Rights()->GrantAll();
    if (!right) host_.Rights()->Deny("CFirmsCode", Right::Allowed);
    CodeRepeats();
    auto w = Open("O00001002");
    Grid(*w).EditField("Name", Variant("UAB Kitas"));
    host_.Ui()->QueueAnswer(answer);
    w->cmdEnter.Click();  // the button runs the firm's rules
    EXPECT_EQ(Boxes(), Lines{box});
    EXPECT_EQ(Stored(2, "Name"), Variant(written ? "UAB Kitas" : "UAB Šilas"));
    EXPECT_EQ(w->cmdEnter.Enabled(), !written);
    if (!written) {
      EXPECT_EQ(BusinessLines(), Lines{kCheckCode});
      EXPECT_EQ(w->OrvelObjectUIO()->Fields("Name").Value(), Variant("UAB Kitas"));
    }
  }
}

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
      EXPECT_EQ(lines, Lines{c.check});
    }
  }
}

struct FailureCase {
  const char* name;
  const char* failing;  // the business call that fails
  int32_t number;
  bool canUpdate;
  const char* box;      // the one box shown, "" for none
  const char* shown;    // the window's name afterwards
  const char* buttons;  // Write, Cancel and New afterwards
};

// Changed by someone else meanwhile (60000): the record is read again.
TEST_F(FirmCardTest, AFailedWriteShowsWhatSurvives) {
  const char* const failed = "16 Apskaita Klaida!\n\nĮrašo negalima išsaugoti";
  for (const FailureCase& c : std::initializer_list<FailureCase>{
           {"CheckCodeFails", "CheckCode", 3, true, "", "UAB Kitas", "110"},
           {"UsedInDocumentsFails", "GetFirmIsUsedInDocuments", 3, true, "", "UAB Kitas", "111"},
           {"WriteFails", "Orvel_SaveObject", 5, true, failed, "UAB Kitas", "111"},
           {"WriteFailsWithoutTheRight", "Orvel_SaveObject", 5, false, failed, "UAB Kitas", "001"},
           {"ChangedMeanwhile", "Orvel_SaveObject", 60000, true, failed, "UAB Šilas", "001"}}) {
    SCOPED_TRACE(c.name);
    host_.Rights()->GrantAll();
    BO("O0000100").ClearFailures();
    if (!c.canUpdate) host_.Rights()->Deny("CFirms", Right::Update);
    auto w = Open("O00001002");
    Grid(*w).EditField("Name", Variant("UAB Kitas"));
    w->SSCNew.SetEnabled(false);
    BO("O0000100").FailCallsNamed(c.failing, c.number, "Įrašo negalima išsaugoti");
    if (*c.box) host_.Ui()->QueueAnswer(vbOK);
    w->cmdEnter_Click();
    EXPECT_EQ(Boxes(), *c.box ? Lines{c.box} : Lines{});
    EXPECT_EQ(Stored(2, "Name"), Variant("UAB Šilas"));
    EXPECT_EQ(w->OrvelObjectUIO()->Fields("Name").Value(), Variant(c.shown));
    EXPECT_EQ(Buttons(*w), c.buttons);
    EXPECT_TRUE(host_.Log().Lines(Channel::Window).empty());
  }
}

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
  EXPECT_EQ(host_.Log().Lines(Channel::Window), Lines{"ObjectSaved O00001005"});
  EXPECT_EQ(Buttons(*w), "001");
  EXPECT_EQ(Stored(5, "ParentID"), Variant(1));
  EXPECT_EQ(BusinessLines(), (Lines{"GetCall GetFirmIsUsedInDocuments",
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

// Cancel of a new firm keeps it in its group, or at the top with no group.
TEST_F(FirmCardTest, CancelOfANewFirmKeepsItInItsGroup) {
  auto w = Open("O00001001", "1");
  Grid(*w).EditField("Name", Variant("UAB Naujas"));
  w->cmdCancel.Click();
  auto& object = *w->OrvelObjectUIO();
  EXPECT_EQ(object.Fields("ParentID").Value(), Variant(1));
  EXPECT_EQ(object.Fields("Name").Value(), Variant());
  EXPECT_FALSE(w->cmdEnter.Enabled());
  auto top = Open("O00001003");
  top->SSCNew_Click();
  top->OrvelObjectUIO()->Fields("ParentID").SetValue(Variant(4));
  top->cmdCancel_Click();
  EXPECT_TRUE(top->OrvelObjectUIO()->Fields("ParentID").Value().IsNull());
}

TEST_F(FirmCardTest, ARecordThatVanishedClosesItsWindowOnCancel) {
  auto w = Open("O00001002");
  Grid(*w).EditField("Name", Variant("UAB Kitas"));
  BO("O0000100").FailCallsNamed("Orvel_ReadObject", 3021, "Įrašas nerastas");
  host_.Ui()->QueueAnswer(vbOK);
  w->cmdCancel_Click();
  EXPECT_EQ(Boxes(), Lines{"48 Apskaita Įrašas nerastas"});
  EXPECT_EQ(host_.Log().Lines(Channel::Window), Lines{"RemoveWindow O00001002 True"});
}

}  // namespace
}  // namespace orvel
