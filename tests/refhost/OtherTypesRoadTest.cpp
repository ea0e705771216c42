#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include "RunningHost.h"
#include "host/Convert.h"
#include "orvel/OrvelEnvironment.h"
#include "orvel/OrvelServices.h"
#include "refhost/HostPeriod.h"
#include "ui/Panel.h"

namespace orvel {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

// The suite's other types, which the host serves itself, reached through
// the real module over the sample database: a good's template row names a
// real stock template, a firm's discount is written, changed and deleted
// from its card, a document row opens its record, and every type the host
// serves has a name.
class OtherTypesRoadTest : public RunningHost {
 protected:
  // Selects the row of `key` in a tab and right-clicks it.
  void RightClick(FieldSheet& sheet, const std::string& tab, const std::string& key,
                  std::initializer_list<const char*> entries) {
    ListView* list = sheet.TabList(tab);
    ASSERT_NE(list, nullptr) << tab;
    list->SetSelectedItem(key.empty() ? nullptr : list->ListItems().Find(key));
    RunningHost::RightClick(sheet, tab, entries);
  }
};

// Every type the host serves has a name; an unknown one is refused.
TEST_F(OtherTypesRoadTest, TheHostNamesTheTypesItServes) {
  for (const auto& [oid, number, name] : std::vector<std::tuple<const char*, int, const char*>>{
           {"O0001605", 0, "Sandėliai"}, {"O0001604", 0, "Įmonės padaliniai"},
           {"O0201600", 0, "Atsargų šablonai"}, {"O1000200", 0, "Dokumentų grupės"},
           {"O1000600", 0, "Nuolaidos"}, {"O1000100", 0, "Dokumentai"},
           {"O1000300", 0, "Gauti avansai"}, {"O1000400", 0, "Sumokėti avansai"},
           {"O1001000", 0, "Sutartys"}, {"O0009900", 5, "Nežinomas objekto tipas: O0009900"}}) {
    OrvelResult named = host_.Objects().Call("Orvel_GetObjectName", oid);
    EXPECT_EQ(named.Number, number);
    EXPECT_EQ(number == 0 ? ConcatText(named.Value) : named.Text, name);
  }
}

// A book's record card is headed by the book's name, which the module's own
// table does not hold.
TEST_F(OtherTypesRoadTest, ABookRecordsCardIsHeadedByTheBooksName) {
  for (const auto& [oidr, heading] : {std::pair{"O00016051", " Sandėliai"},
                                      std::pair{"O00016021", " Įmonių tipai"}}) {
    auto card = OpenCard(oidr, "T");
    ASSERT_NE(card, nullptr) << oidr;
    EXPECT_EQ(Control<Panel>(*card, "SOPanel").Caption(), heading);
  }
}

// ---- a good's template row ----
// The good inherits its group's sales template; its own is made by editing
// that row, only with a real stock template (the SQL gives the one typed).
TEST_F(OtherTypesRoadTest, ATemplateRowIsWrittenOnlyWithARealTemplate) {
  const std::string good =
      StoredText("SELECT MIN(m.ID) FROM goods m JOIN goods_templates t ON t.GoodID = m.ParentID"
                 " WHERE m.GroupFlag = 0 AND t.GoodBRTemplateTypeID = 1");
  for (const auto& [sql, written] :
       std::vector<std::pair<const char*, bool>>{
           {"SELECT MIN(ID) FROM br_templates WHERE GroupFlag = 1", false},
           {"SELECT MAX(ID) + 1 FROM br_templates", false},
           {"SELECT MIN(ID) FROM br_templates WHERE GroupFlag = 0", true}}) {
    SCOPED_TRACE(sql);
    prompter_.said.clear();
    const std::string templateId = StoredText(sql);
    ASSERT_NE(OpenSheet("O0000200" + good), nullptr);
    bool leftOpen = true;
    Terminal().SetModalRunner([&](Form& dialog) {
      EXPECT_TRUE(Control<FieldSheet>(dialog, "OrvelGrid").EditText("BRTemplateID", templateId));
      Press(dialog, "cmdEnter");
      leftOpen = dialog.Visible();
    });
    RightClick(*sheet_, "BRTemplates", "O00008001", {"Redaguoti"});
    EXPECT_THAT(calls_, Contains("GetCall Orvel_ReadObject 'O0201600" + templateId + "'"));
    EXPECT_EQ(std::to_string(leftOpen) + std::to_string(Said("Blogas šablonas!")),
              written ? "00" : "11");
    EXPECT_EQ(CLng(Stored("SELECT COUNT(*) FROM goods_templates WHERE GoodID = " + good +
                          " AND BRTemplateID = " + templateId)),
              written ? 1 : 0);
    // The row is the good's own once written: it carries its record's OIDR.
    const ListItem* row = sheet_->TabList("BRTemplates")->ListItems().Find("O00008001");
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->Tag().IsNull(), !written);
  }
}

// ---- a firm's discount ----

class DiscountRoadTest : public OtherTypesRoadTest {
 protected:
  void SetUp() override {
    OtherTypesRoadTest::SetUp();
    firm_ = StoredText("SELECT MIN(FirmID) FROM firm_discounts f JOIN firms ON"
                       " firms.ID = f.FirmID WHERE firms.GroupFlag = 0");
  }
  std::string firm_;
};

TEST_F(DiscountRoadTest, ADiscountIsCreatedChangedAndDeletedFromTheFirmsCard) {
  auto firmCard = OpenSheet("O0000100" + firm_);
  ASSERT_NE(firmCard, nullptr);

  RightClick(*sheet_, "Discounts", "", {"Sukurti naują"});
  EXPECT_THAT(calls_, Contains("GetCall Orvel_NewObject 'O1000600'"));
  auto card = std::dynamic_pointer_cast<Form>(host_.Windows().OpenWindows().back().window);
  ASSERT_TRUE(card && card != firmCard);
  EXPECT_EQ(Control<Panel>(*card, "SOPanel").Caption(), " Nuolaidos");
  Write(card, {{"DiscountTypeName", "Akcija"}, {"Percent", "7,5"}});
  EXPECT_THAT(calls_, Contains("ExecArrayCall Orvel_SaveObject 'O1000600',''"));
  const std::string id = StoredText("SELECT MAX(ID) FROM firm_discounts");
  const std::string oidr = "O1000600" + id;
  EXPECT_EQ(StoredText("SELECT FirmID || '|' || Name FROM firm_discounts WHERE ID = " + id),
            firm_ + "|Akcija 7,5%");
  EXPECT_EQ(card->Caption(), "Nuolaidos: Akcija 7,5%");
  EXPECT_NE(host_.Windows().Window(oidr), nullptr);  // the card moved to its record
  Press(*card, "SSCClose");
  EXPECT_EQ(host_.Windows().Window(oidr), nullptr);

  RightClick(*sheet_, "Discounts", "", {"Atnaujinti"});
  ListView* list = sheet_->TabList("Discounts");
  ASSERT_NE(list->ListItems().Find(oidr), nullptr);
  EXPECT_EQ(list->ListItems().Find(oidr)->ListSubItems().Item(2).Text(), "7,5%");

  RightClick(*sheet_, "Discounts", oidr, {"Redaguoti"});
  auto again = std::dynamic_pointer_cast<Form>(host_.Windows().Window(oidr));
  ASSERT_NE(again, nullptr);
  Write(again, {{"Percent", "10"}});
  EXPECT_THAT(calls_, Contains("ExecArrayCall Orvel_SaveObject 'O1000600','" + oidr + "'"));
  EXPECT_EQ(Stored("SELECT Percent FROM firm_discounts WHERE ID = " + id), Variant(10.0));
  Press(*again, "SSCClose");

  RightClick(*sheet_, "Discounts", oidr, {"Panaikinti", "Taip"});
  EXPECT_THAT(calls_, Contains("ExecCall Orvel_DeleteObject '" + oidr + "'"));
  EXPECT_EQ(CLng(Stored("SELECT COUNT(*) FROM firm_discounts WHERE ID = " + id)), 0);
  EXPECT_EQ(list->ListItems().Find(oidr), nullptr);
}

// A bad discount is refused with its reason and the card keeps what was typed.
TEST_F(DiscountRoadTest, ABadDiscountIsRefusedWithItsReasonAndTheCardKeepsIt) {
  const Variant before = Stored("SELECT COUNT(*) FROM firm_discounts");
  for (const auto& [withFirm, typed, reason] : std::vector<std::tuple<bool, Typed, const char*>>{
           {true, {{"Percent", "5"}}, "Nenurodytas nuolaidos tipas"},
           {false, {{"DiscountTypeName", "Akcija"}}, "Nenurodyta įmonė"},
           {true, {{"DiscountTypeName", "Akcija"}, {"Percent", "150"}},
            "Nuolaidos procentas turi būti nuo 0 iki 100"},
           {true, {{"DiscountTypeName", "Akcija"}, {"SumFrom", "100"}, {"SumTo", "50"}},
            "Suma iki mažesnė už sumą nuo"}}) {
    prompter_.said.clear();
    auto discount = host_.Objects().GetOrvelObject("O1000600");
    ASSERT_NE(discount, nullptr);
    if (withFirm) discount->Fields("FirmID").SetValue(Variant(firm_));
    auto window = discount->Properties("GetObjectForm", "").Value.ObjectAs<OrvelWindow>();
    ASSERT_NE(window, nullptr);
    host_.Windows().ShowWindow(window);
    auto card = std::dynamic_pointer_cast<Form>(window);
    Write(card, typed);
    EXPECT_TRUE(Said(std::string("Klaida!\n\n")));
    EXPECT_TRUE(Said(reason)) << reason;
    EXPECT_EQ(Stored("SELECT COUNT(*) FROM firm_discounts"), before);
    EXPECT_TRUE(card->Visible());
    EXPECT_EQ(SheetOf(card)->Text(typed.front().first), typed.front().second);
  }
}

// ---- records that only show ----

// A record of another module opens from its menu, shows its field, takes no
// typing and is not deleted from here.
TEST_F(OtherTypesRoadTest, ARecordThatOnlyShowsOpensFromItsMenuAndTakesNoTyping) {
  for (const auto& [oid, from, field] :
       std::vector<std::tuple<const char*, std::string, const char*>>{
           {"O1000100", "documents WHERE OType = 'O1000100'", "Number"},
           {"O1001000", "firm_contracts", "ContractNumber"},
           {"O0201600", "br_templates", "Name"},
           {"O1000200", "document_groups", "Name"}}) {
    const std::string oidr = oid + StoredText("SELECT MIN(ID) FROM " + from);
    auto card = OpenSheet(oidr);
    ASSERT_NE(card, nullptr) << oidr;
    EXPECT_EQ(std::dynamic_pointer_cast<Form>(host_.Windows().Window(oidr)), card);
    const std::string shown = std::string("SELECT ") + field + " FROM " + from + " ORDER BY ID";
    EXPECT_EQ(sheet_->Text(field), StoredText(shown));
    EXPECT_FALSE(sheet_->EditText(field, "x"));
    EXPECT_FALSE(card->FindControl("cmdEnter")->Visible());
    EXPECT_NE(host_.Objects().GetOrvelObjectUI(oidr)->DeleteOrvelObject(oidr), 0);
  }
}

// A row of the firm's documents opens its document.
TEST_F(OtherTypesRoadTest, AFirmsDocumentRowOpensItsDocument) {
  // Ten years back: the sample documents stay in the list whatever today is.
  auto& environment = *host_.Services()->Environment();
  HostPeriod period = HostPeriod::Load(environment, LocalToday());
  period.daysBack = 3650;
  period.Save(environment);
  ASSERT_NE(OpenSheet("O0000100" +
                      StoredText("SELECT MIN(FirmID) FROM documents WHERE OType = 'O1000100'")),
            nullptr);
  ListView* list = sheet_->TabList("Traffic");
  ASSERT_NE(list, nullptr);
  list->SetSelectedItem(&list->ListItems().Item(1));
  sheet_->OnListDoubleClick(TabIndex(*sheet_, "Traffic"));  // the real list for "more"
  std::string oidr;
  for (int i = 1; i <= list->ListItems().Count(); ++i) {
    const std::string key = list->ListItems().Item(i).Key();
    if (key.rfind("O1000100", 0) == 0) oidr = key;
  }
  ASSERT_FALSE(oidr.empty());
  RightClick(*sheet_, "Traffic", oidr, {"Padėti ant darbo stalo"});
  auto card = std::dynamic_pointer_cast<Form>(host_.Windows().Window(oidr));
  ASSERT_NE(card, nullptr);
  EXPECT_THAT(card->Caption(), HasSubstr("Dokumentai: "));
  EXPECT_THAT(calls_, Contains("GetCall Orvel_ReadObject '" + oidr + "'"));
  EXPECT_THAT(prompter_.said, Not(Contains(HasSubstr("Klaida"))));
}

}  // namespace
}  // namespace orvel
