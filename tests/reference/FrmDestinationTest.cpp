// The destination card's templates tab and the template dialog: what each
// action sends through "SaveUpdateDeleteTemplates", the inherited rows, and
// the dialog's write button.
#include <gtest/gtest.h>

#include <map>

#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/Ui.h"
#include "reference/frmDestination.h"
#include "reference/frmTemplate.h"
#include "support/BoxLines.h"
#include "support/CardTest.h"
#include "support/TextRecords.h"
#include "testhost/FakeOrvelGrid.h"
#include "testhost/TestRights.h"
#include "testhost/TestWindowManager.h"
#include "ui/ControlConstants.h"
#include "ui/ListItem.h"
#include "ui/ListItems.h"
#include "ui/ListSubItem.h"
#include "ui/ListSubItems.h"
#include "ui/ListView.h"

namespace orvel {
namespace {

constexpr const char* kDestinations = "O0001615";
constexpr const char* kSave = "SaveUpdateDeleteTemplates";
// The list keys: an inherited sales row (no ID of its own) and an own
// purchase row of ID 7.
constexpr const char* kInheritedKey = "O02015001";
constexpr const char* kOwnKey = "O020150027";

std::shared_ptr<MemoryRecordset> TemplateRows() {
  return TextRecords(
      "TemplateTypeOIDR TemplateTypeName ID ID2 BRTemplateName BRTemplateOIDR DocumentGroupName "
      "DocumentGroupOIDR",
      {"O02015001|Pardavimo|~|1|Prekių pardavimas|O02016001|Sąskaitos|O10002001",
       "O02015002|Pirkimo|7|7|Prekių pirkimas|O02016002|~|#"});
}

// Group "Pardavimai" (1) and its member "Didmeninė" (2), whose card is open.
class FrmDestinationTest : public CardTest<frmDestination> {
 protected:
  FrmDestinationTest() : CardTest(kDestinations) {}
  void SetUp() override {
    CardTest::SetUp();
    auto& table = BO(kDestinations).Table();
    table.SetFields({"ID", "Name", "ParentID", "GroupFlag"});
    table.SetDefault("ParentID", Variant(0));
    table.SetDefault("GroupFlag", Variant(0));
    table.Seed(SeedRows("GroupFlag Name ParentID", {"1|Pardavimai", "|Didmeninė|1"}));
    BO(kDestinations).ReplyRead("GetBRTemplates", TemplateRows());
    MakeAdapter();
  }

  std::shared_ptr<frmDestination> Open() { return CardTest::Open("O00016152", "0", "T"); }

  // A right click on the row of that key, picking `entry` from the menu.
  void RightClick(frmDestination& w, const char* key, const std::string& entry) {
    w.TemplatesList()->ListItems().Item(key).SetSelected(true);
    host_.Ui()->QueuePopupPick(entry);  // "": the user closes the menu
    w.OrvelGrid->ListMouseUp(frmDestination::kTemplatesTab, 0, vbRightButton);
  }

  std::vector<std::string> Saves() {
    std::vector<std::string> out;
    for (const auto& call : BO(kDestinations).Calls(kSave)) out.push_back(call.param);
    return out;
  }
  size_t Reads() { return BO(kDestinations).Calls("GetBRTemplates").size(); }
};

TEST_F(FrmDestinationTest, TheTabListsOwnAndInheritedRows) {
  auto w = Open();
  ASSERT_TRUE(w && w->TemplatesList());
  auto& rows = w->TemplatesList()->ListItems();
  ASSERT_EQ(rows.Count(), 2);
  std::vector<std::string> shown;
  for (const char* key : {kInheritedKey, kOwnKey}) {
    auto& row = rows.Item(key);
    shown.push_back(row.Text() + "|" + row.ListSubItems().Item(1).Text() + "|" +
                    row.ListSubItems().Item(2).Text() + "|" + ConcatText(row.Tag()));
  }
  EXPECT_EQ(shown, (std::vector<std::string>{
                       "Pardavimo|Prekių pardavimas (šablonas paveldėtas)|Sąskaitos|",
                       "Pirkimo|Prekių pirkimas||7"}));
}

TEST_F(FrmDestinationTest, WithoutTheTemplatesRightThereIsNoTabAndNoMenu) {
  host_.Rights()->Deny("CTemplatesLock", TestRights::Right::Allowed);
  auto w = Open();
  ASSERT_TRUE(w);
  EXPECT_EQ(w->TemplatesList(), nullptr);
  EXPECT_TRUE(dynamic_cast<FakeOrvelGrid&>(*w->OrvelGrid).Tabs().empty());
  w->OrvelGrid->ListMouseUp(frmDestination::kTemplatesTab, 0, vbRightButton);
  EXPECT_TRUE(host_.Ui()->Popups().empty());
  EXPECT_EQ(Reads(), 0u);
}

// An inherited row cannot be deleted.
TEST_F(FrmDestinationTest, DeletingAnOwnRowSendsTwoEmptyReferencesAndRedrawsTheList) {
  auto w = Open();
  RightClick(*w, kInheritedKey, "mnuTemplateDelete");
  EXPECT_FALSE(w->mnuTemplateDelete.Enabled());
  EXPECT_TRUE(Saves().empty());
  RightClick(*w, kOwnKey, "mnuTemplateDelete");
  EXPECT_EQ(Saves(), std::vector<std::string>{"'O00016152','O02015002','','',7"});
  EXPECT_EQ(Reads(), 1u);
  // An inherited row opens with its group and writes a new row.
  BO(kDestinations).ClearCalls();
  std::string shownGroup, shownTemplate;
  int32_t id = -1;
  host_.Ui()->QueueModal([&](Form& form) {
    auto& d = dynamic_cast<frmTemplate&>(form);
    shownGroup = d.txtDocumentGroup.Tag();
    shownTemplate = d.txtTemplate.Text();
    id = d.TemplateID;
    EXPECT_FALSE(d.imgCombo.Visible());
    EXPECT_EQ(d.Caption(), "Šablonas: Pardavimo");
    host_.HostClasses()->QueueGroupSelect("O0201600O02016003", "Paslaugos", "C");
    d.cmdTemplate.Click();
    d.cmdEnter.Click();
  });
  w->TemplatesList()->ListItems().Item(kInheritedKey).SetSelected(true);
  w->OrvelGrid->ListDoubleClick(0);
  EXPECT_EQ(shownGroup + "|" + shownTemplate + "|" + std::to_string(id), "O10002001||0");
  EXPECT_EQ(Saves(), std::vector<std::string>{"'O00016152','O02015001','O02016003','O10002001',0"});
  EXPECT_EQ(Reads(), 1u);
  // The dialog's filter does not stay on the card's rows.
  EXPECT_EQ(w->RsTemplates()->RecordCount(), 2);
}

TEST_F(FrmDestinationTest, EditingAnOwnRowSendsItsIDOrOnCancelNothing) {
  auto w = Open();
  bool saved = true;
  host_.Ui()->QueueModal([&](Form& form) {
    auto& d = dynamic_cast<frmTemplate&>(form);
    d.cmdCancel.Click();
    saved = d.Saved;
  });
  RightClick(*w, kOwnKey, "mnuTemplateEdit");
  EXPECT_FALSE(saved);
  EXPECT_TRUE(Saves().empty());
  EXPECT_EQ(Reads(), 0u) << "a cancel does not redraw";
  host_.Ui()->QueueModal([&](Form& form) {
    auto& d = dynamic_cast<frmTemplate&>(form);
    EXPECT_EQ(d.txtTemplate.Tag(), "O02016002");
    host_.HostClasses()->QueueGroupSelect("O1000200O10002004", "Kasos čekiai", "Group");
    d.cmdDocumenytGroup.Click();
    d.cmdEnter.Click();
  });
  RightClick(*w, kOwnKey, "mnuTemplateEdit");
  EXPECT_EQ(Saves(), std::vector<std::string>{"'O00016152','O02015002','O02016002','O10002004',7"});
}

TEST_F(FrmDestinationTest, ANewRowOffersEachTypeOnceAndEndsInZero) {
  auto w = Open();
  std::vector<std::string> offered;
  host_.Ui()->QueueModal([&](Form& form) {
    auto& d = dynamic_cast<frmTemplate&>(form);
    EXPECT_TRUE(d.imgCombo.Visible());
    for (const auto& item : d.imgCombo.ComboItems()) offered.push_back(item->Key());
    EXPECT_EQ(d.txtDocumentGroup.Tag(), "");
    d.imgCombo.Pick(d.imgCombo.ComboItems().Item(2));
    host_.HostClasses()->QueueGroupSelect("O0201600O02016001", "Prekių pardavimas", "C");
    d.cmdTemplate.Click();
    d.cmdEnter.Click();
  });
  RightClick(*w, kInheritedKey, "mnuTemplateNew");
  EXPECT_EQ(offered, (std::vector<std::string>{"O02015001", "O02015002"}));
  EXPECT_EQ(Saves(), std::vector<std::string>{"'O00016152','O02015002','O02016001','',0"});
}

TEST_F(FrmDestinationTest, ARefusedWriteIsShownAndTheDialogStillCloses) {
  BO(kDestinations).ReplyAction(kSave, OrvelStatus{777, "Nenurodytas šablonas."});
  auto w = Open();
  bool loaded = true;
  host_.Ui()->QueueModal([&](Form& form) {
    auto& d = dynamic_cast<frmTemplate&>(form);
    d.cmdGroupClean.Click();
    d.cmdEnter.Click();
    loaded = d.Loaded();
  });
  host_.Ui()->QueueAnswer(vbOK);
  RightClick(*w, kOwnKey, "mnuTemplateEdit");
  EXPECT_FALSE(loaded);
  EXPECT_EQ(BoxLines(*host_.Ui(), false), std::vector<std::string>{"48 Nenurodytas šablonas."});
  EXPECT_EQ(Reads(), 1u);
}

// The dialog on the inherited sales row (a group chosen, no template), driven
// by a row of steps: t/T pick/clear the template, g/G pick/clear the group,
// x a cancelled pick. Loaded, the write is off; clearing the template while a
// group stays turns it off again.
TEST_F(FrmDestinationTest, TheWriteButtonFollowsThePicks) {
  for (const auto& [steps, enabled] : {std::pair{"", false}, {"t", true}, {"x", false},
                                       {"g", true}, {"G", true}, {"tT", false}, {"GT", true}}) {
    SCOPED_TRACE(steps);
    frmTemplate d;
    d.RsTemplates = TemplateRows();
    d.TemplateTypeOIDR = "O02015001";
    d.Load();
    ASSERT_EQ(d.txtDocumentGroup.Tag(), "O10002001");
    const std::map<char, Button*> buttons{{'t', &d.cmdTemplate}, {'T', &d.cmdTemplateClean},
                                          {'g', &d.cmdDocumenytGroup}, {'G', &d.cmdGroupClean},
                                          {'x', &d.cmdTemplate}};
    for (const char* step = steps; *step; ++step) {
      if (*step == 't') {
        host_.HostClasses()->QueueGroupSelect("O0201600O02016001", "Prekių pardavimas", "C");
      }
      if (*step == 'g') {
        host_.HostClasses()->QueueGroupSelect("O1000200O10002001", "Sąskaitos", "Group");
      }
      buttons.at(*step)->Click();
    }
    EXPECT_EQ(d.cmdEnter.Enabled(), enabled);
  }
}

}  // namespace
}  // namespace orvel
