#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include "RunningHost.h"
#include "host/Convert.h"
#include "ui/ListView.h"

namespace orvel {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;

// What the terminal host drives besides buttons, through the real module:
// the help files under the application folder, and a dialog a card opens
// from its timer once its menu has closed (the firm card's notes are in
// FirmDetailsRoadTest).
using DrivingRoadTest = RunningHost;

// The host's folder is given without its separator; each catalogue's help
// is the file under its help folder.
TEST_F(DrivingRoadTest, HelpOpensTheFileUnderTheApplicationFolder) {
  for (const auto& [oid, key, said] :
       std::vector<std::tuple<const char*, const char*, const char*>>{
           {"O0000100", "7", "Pagalba: Įmonės /tmp/help\\imones.htm"},
           {"O0000200", "8", "Pagalba: Atsargos /tmp/help\\atsargos.htm"},
           {"O0001600", "7", "Pagalba: Žinynai /tmp/help\\zinynai.htm"}}) {
    host_.Objects().GetOrvelObjectUI(oid)->ClickMenu(oid, "", key, "");
    EXPECT_THAT(prompter_.said, Contains(said));
  }
}

// The history of a good sold today: the traffic row's menu offers it, and the
// history opens when the module next lets events run.
TEST_F(DrivingRoadTest, AGoodsHistoryOpensWhenEventsRun) {
  const std::string good =
      StoredText("SELECT MIN(l.GoodID) FROM document_lines l JOIN goods g ON g.ID = l.GoodID"
                 " WHERE g.WithRest = 1");
  host_.Database().Exec(
      "UPDATE documents SET OType = 'SALE', DocDate = date('now', 'localtime') WHERE ID ="
      " (SELECT MIN(DocumentID) FROM document_lines WHERE GoodID = " + good + ")");
  ASSERT_NE(OpenSheet("O0000200" + good), nullptr);
  ListView* list = sheet_->TabList("Traffic");
  list->ItemClick(list->ListItems().Item(1));
  sheet_->ListDoubleClick(TabIndex(*sheet_, "Traffic"));
  ASSERT_GE(list->ListItems().Count(), 1);
  list->ItemClick(list->ListItems().Item(1));

  int historyRows = 0;
  std::vector<std::string> dialogs;
  Terminal().SetWindows(&host_.Windows());
  Terminal().SetModalRunner([&](Form& dialog) {
    dialogs.push_back(dialog.Caption());
    historyRows = Control<ListView>(dialog, "lswHistory").ListItems().Count();
    Press(dialog, "cmdClose");
  });
  RightClick(*sheet_, "Traffic", {"Istorija"});
  EXPECT_TRUE(dialogs.empty());
  Terminal().DoEvents();
  EXPECT_EQ(dialogs, std::vector<std::string>{"Istorija"});
  EXPECT_GE(historyRows, 1);
  EXPECT_THAT(calls_, Contains(HasSubstr("GetGoodHistory")));
}

}  // namespace
}  // namespace orvel
