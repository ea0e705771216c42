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
#include "testhost/TestObjectSelect.h"
#include "testhost/TestWindowManager.h"

namespace orvel {
namespace {

class BankAdaptersTest : public ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    auto& table = BO("O0000300").Table();
    table.SetFields({"ID", "Name", "Code"});
    table.SetPreviewRule([](const MemoryTable::FieldReader& field) { return CStr(field("Name")); });
    table.Seed(
        {{{"Name", Variant("Pirmas bankas")}, {"Code", Variant("70440")}},
         {{"ID", Variant(5)}, {"Name", Variant("Šiaulių bankas")}, {"Code", Variant("71800")}}});
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
  auto stored = banks_->ClickMenu("O00003005", "", "0", "");
  EXPECT_EQ(stored.Action, OrvelMenuResult::kShowWindow);
  auto window = stored.Value.ObjectAs<frmBanks>();
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(window->OrvelObjectUIO()->OIDR(), "O00003005");
  EXPECT_FALSE(window->Loaded());
  EXPECT_TRUE(host_.Log().Lines(Channel::Window).empty());

  auto fresh = banks_->ClickMenu("O00003005", "", "1", "");
  EXPECT_EQ(fresh.Action, OrvelMenuResult::kShowWindow);
  ASSERT_NE(fresh.Value.ObjectAs<frmBanks>(), nullptr);
  EXPECT_EQ(fresh.Value.ObjectAs<frmBanks>()->OrvelObjectUIO()->OIDR(), "");
  EXPECT_EQ(BusinessLines(), (std::vector<std::string>{"GetCall Orvel_ReadObject 'O00003005'",
                                                       "GetCall Orvel_NewObject 'O0000300'"}));

  auto gone = banks_->ClickMenu("O00003009", "", "0", "");
  EXPECT_EQ(gone.Action, OrvelMenuResult::kShowWindow);
  EXPECT_TRUE(gone.Value.IsNothing());
}

// By the menu and by the key chord alike.
TEST_F(BankAdaptersTest, SelectingByTextReplacesTheListWithTheMatches) {
  for (const char* key : {"4", "70S2"}) {
    host_.Log().Clear();
    auto none = banks_->ClickMenu("O0000300", "", key, "");
    EXPECT_EQ(none.Action, OrvelMenuResult::kNothing) << "an empty answer changes nothing";
    EXPECT_TRUE(none.Value.IsEmpty());
    EXPECT_TRUE(BusinessLines().empty());
    host_.HostClasses()->QueueObjectSelect("šiaul");
    auto result = banks_->ClickMenu("O0000300", "", key, "");
    EXPECT_EQ(result.Action, OrvelMenuResult::kReplaceList) << key;
    const auto& value = result.Value.ArrayValue();
    ASSERT_EQ(value.size(), 2u);
    auto rs = value[0].ObjectAs<Recordset>();
    ASSERT_NE(rs, nullptr);
    EXPECT_EQ(rs->RecordCount(), 1);
    EXPECT_EQ(value[1], Variant("šiaul"));
    EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall Orvel_GetObjectList '','šiaul'"});
    auto dialog = host_.HostClasses()->LastObjectSelect();
    EXPECT_FALSE(dialog->MultiSelect());
    EXPECT_EQ(dialog->OType(), "O0000300");
  }
}

TEST_F(BankAdaptersTest, DeleteAsksWithOkAndCancelAndRemovesOnOk) {
  host_.Ui()->QueueAnswer(vbCancel);
  EXPECT_EQ(banks_->ClickMenu("O00003005", "", "6", "").Action, OrvelMenuResult::kNothing);
  EXPECT_TRUE(BO("O0000300").Table().Contains(5));
  host_.Ui()->QueueAnswer(vbOK);
  auto result = banks_->ClickMenu("O00003005", "", "6", "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kRemoved);
  EXPECT_FALSE(BO("O0000300").Table().Contains(5));
  ASSERT_EQ(host_.Ui()->Boxes().size(), 2u);
  EXPECT_EQ(host_.Ui()->Boxes()[0].prompt, "Ar tikrai norite panaikinti?");
  EXPECT_EQ(host_.Ui()->Boxes()[0].flags, 49);
  EXPECT_EQ(host_.Ui()->Boxes()[0].title, "Orvel Apskaita");

  // A delete that fails leaves the node; unknown keys do nothing.
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
  EXPECT_EQ(host_.Log().Lines(Channel::Window),
            (std::vector<std::string>{"IsOpen O00003009", "ShowWindow"}));
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

  EXPECT_EQ(BusinessLines(), (std::vector<std::string>{
                                 "RecordsetCall Orvel_GetObjectStructure Banks",
                                 "GetCall GetFirms O00003005",
                                 "GetCall GetFirms 'O00003005',1",
                             }));
}

}  // namespace
}  // namespace orvel
