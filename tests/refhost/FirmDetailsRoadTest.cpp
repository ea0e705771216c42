#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "RunningHost.h"
#include "host/Convert.h"
#include "ui/ImageCombo.h"
#include "ui/Label.h"
#include "ui/Menu.h"
#include "ui/TextBox.h"

namespace orvel {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;

// A firm of the sample database opened through the real module: its detail
// tabs filled from the reference business layer, a note written and read back.
class FirmDetailsRoadTest : public RunningHost {
 protected:
  void SetUp() override {
    RunningHost::SetUp();
    id_ = StoredText("SELECT MIN(ID) FROM firms WHERE GroupFlag = 0");
    oidr_ = "O0000100" + id_;
  }

  std::string id_;
  std::string oidr_;
};

TEST_F(FirmDetailsRoadTest, AFirmOpensWithItsTabsFilled) {
  ASSERT_NE(OpenSheet(oidr_), nullptr);
  for (const char* tab :
       {"Accounts", "FirmAddresses", "FirmContacts", "FirmServers", "FirmActivity", "Discounts"}) {
    ListView* list = sheet_->TabList(tab);
    EXPECT_TRUE(list && list->ListItems().Count() > 0) << tab;
  }
  EXPECT_THAT(calls_, ::testing::IsSupersetOf({"GetCall GetAccounts " + oidr_,
                                                "GetCall GetFirmADDRESSES " + oidr_,
                                                "GetCall GetDiscounts " + oidr_}));

  // The long lists wait behind their placeholder until asked for.
  for (const char* tab : {"Traffic", "FirmContracts"}) {
    ListView* list = sheet_->TabList(tab);
    ASSERT_TRUE(list && list->ListItems().Count() == 1) << tab;
    EXPECT_EQ(list->ListItems().Item(1).Key(), "more");
    list->SetSelectedItem(&list->ListItems().Item(1));
    sheet_->OnListDoubleClick(TabIndex(*sheet_, tab));
    EXPECT_EQ(list->ListItems().Find("more"), nullptr) << tab;
  }
  EXPECT_THAT(calls_, Contains(HasSubstr("GetCall GetTraffic '" + oidr_ + "','")));
  // Contracts and the bold total row under them.
  ListView* contracts = sheet_->TabList("FirmContracts");
  ASSERT_GE(contracts->ListItems().Count(), 2);
  const ListItem& total = contracts->ListItems().Item(contracts->ListItems().Count());
  EXPECT_TRUE(total.ListSubItems().Item(3).Bold());
}

TEST_F(FirmDetailsRoadTest, ANoteIsWrittenAndReadBack) {
  auto card = OpenSheet(oidr_);
  ASSERT_NE(card, nullptr);
  Terminal().SetModalRunner([](Form& dialog) {
    Control<TextBox>(dialog, "txtInfo").Edit("Skambinti 'ryte'");
    auto& priority = Control<ImageCombo>(dialog, "imcPriority");
    priority.Pick(priority.ComboItems().Item(3));
    Press(dialog, "cmdWrite");
  });
  auto* menu = dynamic_cast<Menu*>(card->FindControl("mnuFirmInfo"));
  ASSERT_TRUE(menu && menu->Find("mnuFirmInfoAdd"));
  menu->Find("mnuFirmInfoAdd")->Click();
  // The dialog opens from the card's timer, as the terminal host fires it
  // after the command; once, since the timer turns itself off.
  Terminal().SetWindows(&host_.Windows());
  EXPECT_EQ(Terminal().RunTimers(), 1);
  EXPECT_EQ(Terminal().RunTimers(), 0);

  EXPECT_EQ(StoredText("SELECT Info || '|' || Priority || '|' || COALESCE(DateTo, 'Null') FROM"
                       " firm_info WHERE FirmID = " + id_ + " ORDER BY ID DESC"),
            "Skambinti \"ryte\"|3|Null");
  EXPECT_THAT(calls_, Contains(HasSubstr("ExecCall AddUpdateFirmInfo 0,'Skambinti \"ryte\"','")));

  // Read back into the list and the line over the tabs, in red.
  const std::string key = StoredText("SELECT MAX(ID) FROM firm_info") + "K";
  ASSERT_NE(sheet_->TabList("FirmInfo")->ListItems().Find(key), nullptr);
  auto& line = Control<Label>(*card, "lblInfo");
  EXPECT_TRUE(line.Visible());
  EXPECT_THAT(line.Caption(), HasSubstr("Skambinti \"ryte\" ("));
  EXPECT_EQ(line.ForeColor(), 0x0000FF);
}

}  // namespace
}  // namespace orvel
