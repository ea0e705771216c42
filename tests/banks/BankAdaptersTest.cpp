// The bank adapters as the host uses them: menus, the keys of the tree, the
// desktop, and the properties other windows reach a bank by.
#include <gtest/gtest.h>

#include <algorithm>

#include "adapters/UI0000300.h"
#include "banks/frmBanks.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUIO.h"
#include "support/ModuleTest.h"
#include "support/TextRecords.h"
#include "testhost/TestObjectSelect.h"
#include "testhost/TestWindowManager.h"

namespace orvel {
namespace {

using Lines = std::vector<std::string>;

class BankAdaptersTest : public ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    auto& table = BO("O0000300").Table();
    table.SetFields({"ID", "Name", "Code"});
    table.SetPreviewRule([](const MemoryTable::FieldReader& field) { return CStr(field("Name")); });
    table.Seed(SeedRows("ID Name Code", {"|Pirmas bankas|#70440", "5|Šiaulių bankas|#71800"}));
    banks_ = Adapter("O0000300");
    host_.Log().Clear();
  }

  std::string Keys(const std::string& oidr, const std::string& otype) {
    auto menu = banks_->GetMenu(oidr, otype, "ignored");
    std::string keys;
    for (const auto& item : *menu) {
      keys += (keys.empty() ? "" : "|") + item.Key + " " + item.Caption;
      EXPECT_EQ(item.Tag, nullptr);
      EXPECT_EQ(item.Flags, 0);
    }
    return keys;
  }

  std::shared_ptr<OrvelObjectUI> banks_;
};

TEST_F(BankAdaptersTest, TheRootOffersNewAndSelectARecordAlsoDesktopAndDelete) {
  EXPECT_EQ(Keys("O0000300", ""), "1 &Naujas bankas|4 &Atrinkti");
  EXPECT_EQ(Keys("O00003005", "C"),
            "0 Padėti &ant darbo stalo|1 &Naujas bankas|6 &Panaikinti|4 &Atrinkti");
}

// Key 0 builds the bank's card, key 1 a card on a new bank, without showing
// either; a bank that cannot be read is handed out as ShowWindow with nothing.
TEST_F(BankAdaptersTest, KeysZeroAndOneBuildTheCardWithoutShowingIt) {
  for (const auto& [oidr, key, built] : {std::tuple{"O00003005", "0", "O00003005"},
                                         {"O00003005", "1", ""},
                                         {"O00003009", "0", "-"}}) {
    auto result = banks_->ClickMenu(oidr, "", key, "");
    EXPECT_EQ(result.Action, OrvelMenuResult::kShowWindow);
    auto window = result.Value.ObjectAs<frmBanks>();
    EXPECT_EQ(window ? window->OrvelObjectUIO()->OIDR() : "-", built);
    EXPECT_TRUE(window ? !window->Loaded() : result.Value.IsNothing());
  }
  EXPECT_TRUE(host_.Log().Lines(Channel::Window).empty());
  EXPECT_EQ(BusinessLines(), (Lines{"GetCall Orvel_ReadObject 'O00003005'",
                                    "GetCall Orvel_NewObject 'O0000300'",
                                    "GetCall Orvel_ReadObject 'O00003009'"}));
}

// By the menu and by the key chord alike; an empty answer changes nothing.
TEST_F(BankAdaptersTest, SelectingByTextReplacesTheListWithTheMatches) {
  for (const char* key : {"4", "70S2"}) {
    SCOPED_TRACE(key);
    host_.Log().Clear();
    auto none = banks_->ClickMenu("O0000300", "", key, "");
    EXPECT_EQ(none.Action, OrvelMenuResult::kNothing);
    EXPECT_TRUE(none.Value.IsEmpty());
    EXPECT_TRUE(BusinessLines().empty());
    host_.HostClasses()->QueueObjectSelect("šiaul");
    auto result = banks_->ClickMenu("O0000300", "", key, "");
    EXPECT_EQ(result.Action, OrvelMenuResult::kReplaceList);
    const auto& value = result.Value.ArrayValue();
    ASSERT_EQ(value.size(), 2u);
    ASSERT_NE(value[0].ObjectAs<Recordset>(), nullptr);
    EXPECT_EQ(value[0].ObjectAs<Recordset>()->RecordCount(), 1);
    EXPECT_EQ(value[1], Variant("šiaul"));
    EXPECT_EQ(BusinessLines(), Lines{"GetCall Orvel_GetObjectList '','šiaul'"});
    auto dialog = host_.HostClasses()->LastObjectSelect();
    EXPECT_FALSE(dialog->MultiSelect());
    EXPECT_EQ(dialog->OType(), "O0000300");
  }
}

// A delete that fails leaves the node; unknown keys do nothing.
TEST_F(BankAdaptersTest, DeleteAsksWithOkAndCancelAndRemovesOnOk) {
  host_.Ui()->QueueAnswer(vbCancel);
  EXPECT_EQ(banks_->ClickMenu("O00003005", "", "6", "").Action, OrvelMenuResult::kNothing);
  EXPECT_TRUE(BO("O0000300").Table().Contains(5));
  host_.Ui()->QueueAnswer(vbOK);
  EXPECT_EQ(banks_->ClickMenu("O00003005", "", "6", "").Action, OrvelMenuResult::kRemoved);
  EXPECT_FALSE(BO("O0000300").Table().Contains(5));
  ASSERT_EQ(host_.Ui()->Boxes().size(), 2u);
  const auto& box = host_.Ui()->Boxes()[0];
  EXPECT_EQ(std::to_string(box.flags) + " " + box.title + " " + box.prompt,
            "49 Orvel Apskaita Ar tikrai norite panaikinti?");
  host_.Ui()->QueueAnswer(vbOK);
  EXPECT_EQ(banks_->ClickMenu("O00003005", "", "6", "").Action, OrvelMenuResult::kNothing);
  host_.Log().Clear();
  for (const char* key : {"2", "3", "5", "7", "116S0", "82S2", ""}) {
    EXPECT_EQ(banks_->ClickMenu("O00003001", "", key, "").Action, OrvelMenuResult::kNothing) << key;
  }
  EXPECT_TRUE(BusinessLines().empty());
}

TEST_F(BankAdaptersTest, AddToDesktopShowsACardOnlyWhenNoneIsOpen) {
  EXPECT_TRUE(banks_->AddToDeskTopOrvelObject("O00003005"));
  EXPECT_TRUE(banks_->AddToDeskTopOrvelObject("O00003005"));
  EXPECT_EQ(host_.WindowManager()->Count(), 1u);
  auto lines = host_.Log().Lines(Channel::Window);
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "ShowWindow O00003005"), 1);
  // A bank that cannot be read is still handed over, with no window.
  host_.Log().Clear();
  EXPECT_TRUE(banks_->AddToDeskTopOrvelObject("O00003009"));
  EXPECT_EQ(host_.Log().Lines(Channel::Window), (Lines{"IsOpen O00003009", "ShowWindow"}));
  EXPECT_EQ(host_.WindowManager()->Count(), 1u);
  EXPECT_EQ(banks_->GetIconsTable()->Count(), 1);
  EXPECT_EQ(banks_->GetIconsTable()->Item("C"), "C0000300");
}

TEST_F(BankAdaptersTest, PropertiesStructureFirmsAndObjectForm) {
  auto bank = banks_->GetOrvelObject("O00003005");
  ASSERT_NE(bank, nullptr);
  host_.Log().Clear();

  auto structure = bank->Properties("Structure", "");
  EXPECT_EQ(structure.Number, 0);
  auto reply = structure.Value.ObjectAs<OrvelBoResult>();
  ASSERT_NE(reply, nullptr) << "the whole business reply travels in Value";
  EXPECT_NE(std::dynamic_pointer_cast<Recordset>(reply->Object), nullptr);

  auto firms = bank->Properties("Firms", "");
  EXPECT_EQ(firms.Number, 0);
  EXPECT_NE(firms.Value.ObjectAs<Recordset>(), nullptr);
  bank->Properties("Firms", "'O00003005',1");

  auto window = bank->Properties("GetObjectForm", "").Value.ObjectAs<frmBanks>();
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(window->OrvelObjectUIO(), bank);

  EXPECT_EQ(BusinessLines(), (Lines{"RecordsetCall Orvel_GetObjectStructure Banks",
                                    "GetCall GetFirms O00003005",
                                    "GetCall GetFirms 'O00003005',1"}));
}

}  // namespace
}  // namespace orvel
