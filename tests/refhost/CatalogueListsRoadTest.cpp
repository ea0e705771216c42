#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "RunningHost.h"
#include "host/Convert.h"
#include "orvel/Recordset.h"
#include "ui/CheckBox.h"
#include "ui/Label.h"
#include "ui/ListView.h"

namespace orvel {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

// The firm and goods lists of the sample database through the real module:
// its settings dialogs and search, and the debt line of a firm's card.
class CatalogueListsRoadTest : public RunningHost {
 protected:
  // A menu entry of a catalogue's root that replaces its list; the new rows.
  std::shared_ptr<Recordset> ListOf(const std::string& oid, const std::string& key) {
    auto result = host_.Objects().GetOrvelObjectUI(oid)->ClickMenu(oid, "", key, "");
    EXPECT_EQ(result.Action, 4) << key;
    if (!result.Value.IsArray() || result.Value.ArrayValue().empty()) return nullptr;
    return result.Value.ArrayValue()[0].ObjectAs<Recordset>();
  }

  // The settings dialog run modally: the check boxes to set, then "Gerai".
  void AnswerSettings(std::vector<std::string> boxes) {
    Terminal().SetModalRunner([boxes](Form& dialog) {
      for (const auto& name : boxes) Control<CheckBox>(dialog, name.c_str()).SetValue(1);
      Press(dialog, "cmdOK");
    });
  }

  static std::vector<std::string> Values(Recordset& rs, const char* field) {
    std::vector<std::string> out;
    for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext()) {
      out.push_back(ConcatText(rs.Fields(field).Value()));
    }
    return out;
  }

  static std::string LabelOf(Form& card, const char* name) {
    return Control<Label>(card, name).Caption();
  }
};

TEST_F(CatalogueListsRoadTest, FirmListsKeepTheFirmsOutOfUseUntilTheSettingsAskForThem) {
  auto firms = host_.Objects().GetOrvelObjectUI("O0000100");
  const std::string retired = StoredText(
      "SELECT 'O0000100' || ID FROM firms WHERE Active = 0 AND GroupFlag = 0 AND ParentID IS NULL");
  EXPECT_THAT(Values(*firms->GetOrvelObjectList("O0000100", "", ""), "OIDR"),
              Not(Contains(retired)));
  EXPECT_THAT(calls_, Contains("GetCall Orvel_GetObjectList 'O0000100','',1,0,1"));

  AnswerSettings({"chkNotActive"});
  auto all = ListOf("O0000100", "5");
  ASSERT_NE(all, nullptr);
  EXPECT_THAT(Values(*all, "OIDR"), Contains(retired));
  EXPECT_THAT(calls_, Contains("GetCall Orvel_GetObjectList '','',1,1,1"));

  // The search dialog's text; the terminal's dialog keeps both options at 0:
  // anywhere in the name.
  prompter_.texts.push_back("šiaulių");
  auto found = ListOf("O0000100", "4");
  ASSERT_NE(found, nullptr);
  EXPECT_THAT(calls_, Contains("GetCall Orvel_GetObjectList '','šiaulių',0,0"));
  ASSERT_GT(found->RecordCount(), 0);
  for (const auto& name : Values(*found, "Preview")) EXPECT_THAT(name, HasSubstr("Šiaulių"));
}

TEST_F(CatalogueListsRoadTest, GoodsListsNameTheKindAndHoldOnlyGoodsWithRestWhenAsked) {
  auto goods = host_.Objects().GetOrvelObjectUI("O0000200");
  const std::string services =
      StoredText("SELECT 'O0000200' || ID FROM goods WHERE Name = 'Paslaugos'");
  auto list = goods->GetOrvelObjectList(services, "", "");
  ASSERT_NE(list, nullptr);
  EXPECT_THAT(Values(*list, "Otype"), AllOf(Contains("Service"), Not(Contains("ServiceNA"))));
  EXPECT_THAT(calls_, Contains("GetCall Orvel_GetObjectList '" + services + "','',1,0,1,'',0,1,0"));

  AnswerSettings({"chkNotActive", "chkOnlyWithRest"});
  auto stocked = ListOf("O0000200", "6");
  ASSERT_NE(stocked, nullptr);
  EXPECT_THAT(calls_, Contains("GetCall Orvel_GetObjectList '','',1,1,1,'',0,1,1"));
  ASSERT_GT(stocked->RecordCount(), 0);
  for (stocked->MoveFirst(); !stocked->IsEOF(); stocked->MoveNext()) {
    if (CLng(stocked->Fields("GroupFlag").Value()) == 1) continue;
    EXPECT_GT(CDbl(stocked->Fields("Rest").Value()), 0);
    EXPECT_THAT(ConcatText(stocked->Fields("Otype").Value()),
                ::testing::AnyOf("GEXIST", "GoodNA"));
  }
  // A good kept by serial numbers opens with their tab.
  ASSERT_NE(OpenSheet(StoredText(
                "SELECT 'O0000200' || MIN(ID) FROM goods WHERE WithItems = 1 AND GroupFlag = 0")),
            nullptr);
  EXPECT_NE(sheet_->TabList("SN"), nullptr);
}

// A firm without a limit of its own is warned of none; a firm's documents
// add up to the balance its debt line tells.
TEST_F(CatalogueListsRoadTest, TheDebtLineWarnsOnlyOfLimitsAFirmHasAndAgreesWithItsDocuments) {
  const std::string unlimited = StoredText(
      "SELECT f.ID FROM firms f JOIN documents d ON d.FirmID = f.ID WHERE f.CreditLimit = 0"
      " AND d.Account = '240' AND d.Debt > 0 ORDER BY f.ID LIMIT 1");
  auto card = OpenCard("O0000100" + unlimited);
  ASSERT_NE(card, nullptr);
  const std::string credit = LabelOf(*card, "lblCredit");
  Control<Label>(*card, "lblDebt").Click();
  EXPECT_THAT(calls_, Contains("GetCall GetFirmDebt O0000100" + unlimited));
  EXPECT_THAT(LabelOf(*card, "lblDebt"), HasSubstr("Skola: "));
  EXPECT_THAT(LabelOf(*card, "lblDebt"), Not(HasSubstr("Viršytas kredito apribojimas")));
  EXPECT_EQ(LabelOf(*card, "lblCredit"), credit);

  // Firm 20 owes 3830,94 and has paid 2650,00 in advance: every document of
  // the sample in the period.
  prompter_.texts = {"2025-01-01 2030-12-31"};
  ASSERT_EQ(host_.Objects().Call("GetNewPeriod", "").Number, 0);
  auto firm = OpenSheet("O000010020");
  ASSERT_NE(firm, nullptr);
  ListView* traffic = sheet_->TabList("Traffic");
  ASSERT_NE(traffic, nullptr);
  traffic->SetSelectedItem(&traffic->ListItems().Item(1));
  sheet_->OnListDoubleClick(TabIndex(*sheet_, "Traffic"));
  // Past its credit days or not by today's date, the debt stays within its limit.
  EXPECT_THAT(LabelOf(*firm, "lblDebt"), AllOf(StartsWith("Skola: 3830,94 Lt (avansas 2650,00 Lt)"),
                                               Not(HasSubstr("apribojimas"))));
  EXPECT_EQ(LabelOf(*firm, "lblCredit"), "Kredito apribojimai: Maksimali suma:3000,00; Dienos:30");
  const ListItem& total = traffic->ListItems().Item(traffic->ListItems().Count());
  EXPECT_EQ(total.ListSubItems().Item(4).Text(), "1180,94");
}

}  // namespace
}  // namespace orvel
