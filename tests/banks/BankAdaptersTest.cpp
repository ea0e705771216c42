#include <gtest/gtest.h>

#include <algorithm>

#include "adapters/UI0000300.h"
#include "banks/frmBanks.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "host/OrvelObjectUIO.h"
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
    table.SetPreviewRule([](const MemoryTable::FieldReader& field) {
      return CStr(field("Name"));
    });
    table.Seed({{{"Name", Variant("Pirmas bankas")}, {"Code", Variant("70440")}},
                {{"ID", Variant(5)}, {"Name", Variant("Šiaulių bankas")}, {"Code", Variant("71800")}}});
    banks_ = Adapter("O0000300");
    host_.Log().Clear();
  }

  std::vector<std::string> Keys(const std::optional<OrvelMenuItems>& menu) {
    std::vector<std::string> keys;
    for (const auto& item : *menu) keys.push_back(item.Key + " " + item.Caption);
    return keys;
  }

  std::shared_ptr<OrvelObjectUI> banks_;
};

TEST_F(BankAdaptersTest, TheRootMenuOffersNewAndSelectOnly) {
  auto menu = banks_->GetMenu("O0000300", "", "");
  ASSERT_TRUE(menu);
  EXPECT_EQ(Keys(menu), (std::vector<std::string>{"1 &Naujas bankas", "4 &Atrinkti"}));
}

TEST_F(BankAdaptersTest, ARecordMenuAddsDesktopAndDelete) {
  auto menu = banks_->GetMenu("O00003005", "C", "ignored");
  ASSERT_TRUE(menu);
  EXPECT_EQ(Keys(menu), (std::vector<std::string>{"0 Padėti &ant darbo stalo", "1 &Naujas bankas",
                                                  "6 &Panaikinti", "4 &Atrinkti"}));
  for (const auto& item : *menu) {
    EXPECT_EQ(item.Tag, nullptr);
    EXPECT_EQ(item.Flags, 0);
  }
}

TEST_F(BankAdaptersTest, KeyZeroBuildsTheCardOfTheBankWithoutShowingIt) {
  auto result = banks_->ClickMenu("O00003005", "", "0", "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kShowWindow);
  auto window = result.Value.ObjectAs<frmBanks>();
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(window->OrvelObjectUIO()->OIDR(), "O00003005");
  EXPECT_FALSE(window->Loaded());
  EXPECT_TRUE(host_.Log().Lines(Channel::Window).empty());
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall Orvel_ReadObject 'O00003005'"});
}

TEST_F(BankAdaptersTest, KeyOneBuildsACardOnANewBank) {
  auto result = banks_->ClickMenu("O00003005", "", "1", "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kShowWindow);
  auto window = result.Value.ObjectAs<frmBanks>();
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(window->OrvelObjectUIO()->OIDR(), "");
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall Orvel_NewObject 'O0000300'"});
}

TEST_F(BankAdaptersTest, AnUnreadableBankIsHandedOutAsShowWindowWithNothing) {
  auto result = banks_->ClickMenu("O00003009", "", "0", "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kShowWindow);
  EXPECT_TRUE(result.Value.IsNothing());
}

class BankSelectTest : public BankAdaptersTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(BankSelectTest, SelectingByTextReplacesTheListWithTheMatches) {
  host_.HostClasses()->QueueObjectSelect("šiaul");
  auto result = banks_->ClickMenu("O0000300", "", GetParam(), "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kReplaceList);
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

TEST_P(BankSelectTest, AnEmptyAnswerChangesNothing) {
  auto result = banks_->ClickMenu("O0000300", "", GetParam(), "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kNothing);
  EXPECT_TRUE(result.Value.IsEmpty());
  EXPECT_TRUE(BusinessLines().empty());
}

INSTANTIATE_TEST_SUITE_P(MenuAndChord, BankSelectTest, ::testing::Values("4", "70S2"));

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

  // A delete that fails leaves the node.
  host_.Ui()->QueueAnswer(vbOK);
  EXPECT_EQ(banks_->ClickMenu("O00003005", "", "6", "").Action, OrvelMenuResult::kNothing);
}

TEST_F(BankAdaptersTest, UnknownKeysDoNothing) {
  for (const char* key : {"2", "3", "5", "7", "116S0", "82S2", ""}) {
    EXPECT_EQ(banks_->ClickMenu("O00003005", "", key, "").Action, OrvelMenuResult::kNothing) << key;
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

  auto form = bank->Properties("GetObjectForm", "");
  auto window = form.Value.ObjectAs<frmBanks>();
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(window->OrvelObjectUIO(), bank);

  EXPECT_EQ(BusinessLines(), (std::vector<std::string>{
                                 "RecordsetCall Orvel_GetObjectStructure Banks",
                                 "GetCall GetFirms O00003005",
                                 "GetCall GetFirms 'O00003005',1",
                             }));
}

TEST_F(BankAdaptersTest, PropertyFailuresReportTheNumberOnlyWhenAboveZero) {
  auto bank = banks_->GetOrvelObject("O00003005");
  ASSERT_NE(bank, nullptr);
  BO("O0000300").ReplyRead("GetFirms", OrvelBoResult(42, "Nepavyko"));
  auto result = bank->Properties("Firms", "");
  EXPECT_EQ(result.Number, 42);
  EXPECT_EQ(result.Text, "42");

  BO("O0000300").ReplyRead("GetFirms", OrvelBoResult(-1, "Tyliai"));
  result = bank->Properties("Firms", "");
  EXPECT_EQ(result.Number, 0);
  EXPECT_TRUE(result.Value.IsEmpty());

  BO("O0000300").ReplyRead("Orvel_GetObjectStructure", OrvelBoResult(7, "Nėra"));
  result = bank->Properties("Structure", "");
  EXPECT_EQ(result.Number, 7);
  EXPECT_EQ(result.Text, "7");
  EXPECT_TRUE(result.Value.IsEmpty());
}

TEST_F(BankAdaptersTest, TheIconTableHoldsTheBankIcon) {
  auto table = banks_->GetIconsTable();
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->Count(), 1);
  EXPECT_EQ(table->Item("C"), "C0000300");
}

}  // namespace
}  // namespace orvel
