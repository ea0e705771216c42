// The department card: its branch lookup, its group, the rules of its write
// button and what a write, a cancel and a new record do.
#include <gtest/gtest.h>

#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/Ui.h"
#include "reference/frmDepartments.h"
#include "support/CardTest.h"
#include "support/Controls.h"
#include "support/TextRecords.h"
#include "testhost/TestRights.h"
#include "ui/ControlConstants.h"

namespace orvel {
namespace {

constexpr const char* kDepartments = "O0001604";

// A group "Administracija" (1) holding "Buhalterija" (2, branch 11), and
// "Sandėlis" (3) at the top whose branch 99 is gone. The suite has two
// branches, 11 and 12.
class FrmDepartmentsTest : public CardTest<frmDepartments> {
 protected:
  FrmDepartmentsTest() : CardTest(kDepartments) {}
  void SetUp() override {
    CardTest::SetUp();
    auto& table = BO(kDepartments).Table();
    table.SetFields({"ID", "Code", "Name", "ParentID", "GroupFlag", "FirmBranchID"});
    table.SetDefault("ParentID", Variant(0));
    table.SetDefault("GroupFlag", Variant(0));
    table.SetDefault("FirmBranchID", Variant::Null());
    table.Seed(SeedRows("GroupFlag Name ParentID FirmBranchID",
                        {"1|Administracija", "|Buhalterija|1|11", "|Sandėlis||99"}));
    BO(kDepartments)
        .ReplyRead("DO0001604_GetFirmBranches",
                   Branches({"11|UAB Medis, Kaunas", "12|UAB Medis, Vilnius"}));
    MakeAdapter();
  }

  static std::shared_ptr<MemoryRecordset> Branches(const std::vector<std::string>& rows) {
    return TextRecords("ID Preview", rows);
  }

  // "heading|name|group (tag)|branch (tag)|" and Write, Cancel, New, the
  // branch picker and its clearing, 1 when enabled.
  static std::string Card(frmDepartments& w) {
    return w.SOPanel.Caption() + "|" + w.txtName.Text() + "|" + w.txtGroup.Text() + " (" +
           w.txtGroup.Tag() + ")|" + w.txtFirmBranch.Text() + " (" + w.txtFirmBranch.Tag() + ")|" +
           OnOff({&w.cmdWrite, &w.cmdCancel, &w.SSCNew, &w.cmdFirmBranches, &w.cmdCleanFirmBranch});
  }
};

// The tree opens a department under the rules of every reference record.
TEST_F(FrmDepartmentsTest, TheTreesReadOnlyKeepsTheCardFromWritingOrMakingNew) {
  adapter_->GetMenu("O00016042", "T", "ReadOnly");
  auto w = Open("O00016042", "0", "T");
  ASSERT_TRUE(w && w->boolReadOnly);
  w->txtName.Edit("Kasa");
  EXPECT_EQ(OnOff({&w->cmdWrite, &w->cmdCancel, &w->SSCNew, &w->cmdParentGroup}), "0000");
}

// The branches are asked once, at load, with their own call; the group is read.
TEST_F(FrmDepartmentsTest, AStoredDepartmentShowsItsGroupAndBranchAndStartsUnchanged) {
  auto w =
      Adapter(kDepartments)->ClickMenu("O00016042", "T", "0", "").Value.ObjectAs<frmDepartments>();
  ASSERT_TRUE(w);
  host_.Log().Clear();
  host_.WindowManager()->ShowWindow(w);
  EXPECT_EQ(BusinessLines(), (std::vector<std::string>{"RecordsetCall DO0001604_GetFirmBranches 0",
                                                       "GetCall Orvel_ReadObject 'O00016041'"}));
  EXPECT_EQ(Card(*w),
            " Padalinys|Buhalterija|Administracija (O00016041)|UAB Medis, Kaunas (11)|00111");
  EXPECT_FALSE(w->Changed());
}

// The heading, the group's label and the name's, and New, 1 when enabled: a
// new card offers neither a cancel nor another new record.
TEST_F(FrmDepartmentsTest, TheHeadingAndLabelsFollowTheKindAndNewness) {
  using Row = std::tuple<const char*, const char*, const char*, const char*>;
  for (const auto& [oidr, otype, key, captions] : std::vector<Row>{
           {"O00016041", "Group", "0", " Padalinių grupė|Aukštesnė grupė|Grupės pavadinimas|1"},
           {"O00016042", "T", "0", " Padalinys|Grupė|Pavadinimas|1"},
           {"O00016041", "Group", "3",
            " Nauja padalinių grupė|Aukštesnė grupė|Grupės pavadinimas|0"},
           {"O00016041", "Group", "1", " Naujas padalinys|Grupė|Pavadinimas|0"}}) {
    auto w = Open(oidr, key, otype);
    ASSERT_TRUE(w);
    EXPECT_EQ(w->SOPanel.Caption() + "|" + w->lblGroup.Caption() + "|" + w->lblName.Caption() +
                  "|" + OnOff({&w->SSCNew}),
              captions);
    EXPECT_EQ(w->IsNew(), !w->SSCNew.Enabled());
    w->txtName.Edit("Kitas");
    EXPECT_EQ(OnOff({&w->cmdWrite, &w->cmdCancel}), w->IsNew() ? "10" : "11");
  }
}

// Write needs the update right, a change and a name (blanks count); Cancel
// only the right and a change.
TEST_F(FrmDepartmentsTest, WriteNeedsTheUpdateRightAChangeAndAName) {
  for (const auto& [canUpdate, typed, buttons] : {std::tuple{true, "Kasa", "11"},
                                                  {true, "", "01"},
                                                  {true, "   ", "11"},
                                                  {false, "Kasa", "00"}}) {
    SCOPED_TRACE(std::string(typed) + (canUpdate ? "" : " without the right"));
    if (!canUpdate) host_.Rights()->Deny("CReference", TestRights::Right::Update);
    auto w = Open("O00016042", "0", "T");
    w->txtName.Edit(typed);
    EXPECT_TRUE(w->Changed());
    EXPECT_EQ(OnOff({&w->cmdWrite, &w->cmdCancel}), buttons);
    w->Unload();
  }
}

TEST_F(FrmDepartmentsTest, WithoutBranchesInTheSuiteBothBranchButtonsStayOff) {
  for (auto reply : {OrvelBoResult(0, "", Branches({})), OrvelBoResult(42, "Nėra ryšio")}) {
    BO(kDepartments).ReplyRead("DO0001604_GetFirmBranches", reply);
    auto w = Open("O00016042", "0", "T");
    ASSERT_TRUE(w && !w->HasBranches());
    EXPECT_EQ(Card(*w), " Padalinys|Buhalterija|Administracija (O00016041)| (0)|00100");
    w->Unload();
  }
}

// A stored record's write does not tell the host.
TEST_F(FrmDepartmentsTest, APickedBranchIsShownAndWritten) {
  auto w = Open("O00016043", "0", "T");
  std::string asked;
  host_.ObjectManager()->OnCall("OrvelGroupSelect", [&](const std::string& param) {
    asked = param;
    return OrvelResult{0, "", Variant(Branches({"12|UAB Medis, Vilnius"}))};
  });
  w->cmdFirmBranches.Click();
  EXPECT_EQ(asked, "DO0001604_GetFirmBranches(0);;Pasirinkite įmonės filialą");
  EXPECT_EQ(Card(*w), " Padalinys|Sandėlis| ()|UAB Medis, Vilnius (12)|11111");
  w->cmdWrite.Click();
  EXPECT_EQ(CLng(Stored(3, "FirmBranchID")), 12);
  EXPECT_TRUE(host_.WindowManager()->Saved().empty());
  EXPECT_FALSE(w->cmdWrite.Enabled());
  // A picker failure is shown and changes nothing.
  host_.ObjectManager()->ReplyToCall("OrvelGroupSelect", OrvelResult{7, "Nėra sąrašo", Variant()});
  host_.Ui()->QueueAnswer(vbOK);
  w->cmdFirmBranches.Click();
  EXPECT_EQ(Boxes(), std::vector<std::string>{"16 Apskaita Klaida!\nNėra sąrašo"});
  EXPECT_EQ(w->txtFirmBranch.Tag(), "12");
  EXPECT_FALSE(w->Changed());
}

// Blanks around the name are trimmed; a write keeps the branch until it is
// cleared, and a cleared one, or one that is gone, is written as none.
TEST_F(FrmDepartmentsTest, TheNameIsTrimmedAndAClearedBranchWritesNone) {
  auto gone = Open("O00016043", "0", "T");
  ASSERT_TRUE(gone);
  EXPECT_EQ(Card(*gone), " Padalinys|Sandėlis| ()| (0)|00111");
  gone->txtName.Edit("Sandėlis 2");
  gone->cmdWrite.Click();
  EXPECT_TRUE(Stored(3, "FirmBranchID").IsNull());
  EXPECT_EQ(Stored(3, "Name"), Variant("Sandėlis 2"));
  auto w = Open("O00016042", "0", "T");
  w->txtName.Edit("  Kasa  ");
  w->cmdWrite.Click();
  EXPECT_EQ(Stored(2, "Name"), Variant("Kasa"));
  EXPECT_EQ(CLng(Stored(2, "FirmBranchID")), 11);
  w->cmdCleanFirmBranch.Click();
  EXPECT_EQ(w->txtFirmBranch.Tag(), "0");
  w->cmdWrite.Click();
  EXPECT_TRUE(Stored(2, "FirmBranchID").IsNull());
}

// A cancelled pick changes nothing; clearing the box or picking the root only
// empties the box: the record keeps its group.
TEST_F(FrmDepartmentsTest, TheGroupPickerMovesTheDepartmentAndClearingOnlyEmptiesTheBox) {
  BO(kDepartments).Table().Seed(SeedRows("ID GroupFlag Name", {"5|1|Gamyba"}));
  auto w = Open("O00016042", "0", "T");
  w->cmdParentGroup.Click();
  EXPECT_EQ(w->txtGroup.Text(), "Administracija");
  EXPECT_FALSE(w->Changed());
  for (const auto& [picked, shown] :
       {std::pair{"O0001604O00016045", "Gamyba"}, {"", ""}, {"O0001604", ""}}) {
    if (*picked) host_.HostClasses()->QueueGroupSelect(picked, shown, "Group");
    (*picked ? w->cmdParentGroup : w->cmdParentGroupClean).Click();
    EXPECT_EQ(w->txtGroup.Text(), shown);
    EXPECT_TRUE(w->cmdWrite.Enabled());
    w->cmdWrite.Click();
    EXPECT_EQ(CLng(Stored(2, "ParentID")), 5);
  }
}

TEST_F(FrmDepartmentsTest, ANewDepartmentIsWrittenInItsGroupAndTheCardBecomesStored) {
  auto w = Open("O00016041", "1", "Group");
  ASSERT_TRUE(w);
  EXPECT_EQ(w->txtGroup.Text(), "Administracija");
  w->txtName.Edit("Kasa");
  w->cmdWrite.Click();
  ASSERT_EQ(host_.WindowManager()->Saved(), std::vector<std::string>{"O00016044"});
  EXPECT_EQ(ConcatText(Stored(4, "Name")) + " " + ConcatText(Stored(4, "ParentID")) + " " +
                ConcatText(Stored(4, "GroupFlag")) + " " + w->OrvelObjectUIO()->Preview(),
            "Kasa 1 0 Kasa");
  EXPECT_EQ(Card(*w), " Padalinys|Kasa|Administracija (O00016041)| (0)|00111");
}

// Cancel puts the stored values back.
TEST_F(FrmDepartmentsTest, AFailedWriteIsShownAndTheEditStaysUntilCancelled) {
  auto w = Open("O00016042", "0", "T");
  w->txtName.Edit("Kasa");
  BO(kDepartments).FailCallsNamed("Orvel_SaveObject", 9, "Užrakinta");
  host_.Ui()->QueueAnswer(vbOK);
  w->cmdWrite.Click();
  EXPECT_EQ(Boxes(), std::vector<std::string>{"0 Apskaita Užrakinta\nĮrašymas neatliktas!"});
  EXPECT_EQ(Card(*w), " Padalinys|Kasa|Administracija (O00016041)|UAB Medis, Kaunas (11)|11111");
  w->cmdCleanFirmBranch.Click();
  w->cmdCancel.Click();
  EXPECT_EQ(Card(*w),
            " Padalinys|Buhalterija|Administracija (O00016041)|UAB Medis, Kaunas (11)|00111");
}

TEST_F(FrmDepartmentsTest, NewFromAStoredGroupCardMakesANewGroupBesideIt) {
  auto w = Open("O00016041", "0", "Group");
  w->SSCNew.Click();
  EXPECT_TRUE(w->IsNew() && w->IsGroup());
  EXPECT_EQ(Card(*w), " Nauja padalinių grupė|| ()| (0)|00011");
  EXPECT_EQ(host_.Log().Lines(Channel::Window).back(), "Rekey O00016041");
  // With unsaved edits New asks, and asks again on the removal; No keeps the card.
  w = Open("O00016042", "0", "T");
  w->txtName.Edit("Kasa");
  host_.Ui()->QueueAnswer(vbNo);
  w->SSCNew.Click();
  EXPECT_EQ(Boxes(),
            std::vector<std::string>{"52 Apskaita  Padalinys\n\nUždaryti be išsaugojimo?"});
  EXPECT_EQ(w->txtName.Text(), "Kasa");

  host_.Ui()->ClearBoxes();
  for (int box = 0; box < 2; ++box) host_.Ui()->QueueAnswer(vbYes);
  w->SSCNew.Click();
  EXPECT_EQ(Boxes().size(), 2u);
  EXPECT_TRUE(w->IsNew());
  EXPECT_EQ(w->txtGroup.Text(), "Administracija");
}

TEST_F(FrmDepartmentsTest, TheRightClickDeletesOnlyWithTheDeleteRight) {
  host_.Rights()->Deny("CReference", TestRights::Right::Delete);
  auto w = Open("O00016043", "0", "T");
  w->SSCClose.MouseUp(vbRightButton);
  EXPECT_TRUE(host_.Ui()->Boxes().empty() && BO(kDepartments).Table().Contains(3));
  host_.Rights()->Grant("CReference", TestRights::Right::Delete);
  auto other = Open("O00016042", "0", "T");
  for (const auto& [answer, kept] : {std::pair{vbNo, true}, {vbYes, false}}) {
    host_.Ui()->QueueAnswer(answer);
    other->SSCClose.MouseUp(vbRightButton);
    EXPECT_EQ(BO(kDepartments).Table().Contains(2), kept);
  }
  EXPECT_EQ(Boxes(), std::vector<std::string>(
                         2, "52 Apskaita Ar tikrai norite panaikinti?\n\nBuhalterija"));
}

}  // namespace
}  // namespace orvel
