#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

  std::shared_ptr<Form> LastWindow() {
    const auto& open = host_.Windows().OpenWindows();
    return open.empty() ? nullptr : std::dynamic_pointer_cast<Form>(open.back().window);
  }

  // Types into a card's sheet and presses Write.
  void WriteCard(const std::shared_ptr<Form>& card,
                 const std::vector<std::pair<std::string, std::string>>& typed) {
    auto sheet = SheetOf(card);
    ASSERT_NE(sheet, nullptr);
    Fill(*sheet, typed);
    Press(*card, "cmdEnter");
  }
};

// ---- names ----

struct NameCase {
  const char* oid;
  int number;
  const char* name;
};

class TypeNameTest : public OtherTypesRoadTest, public ::testing::WithParamInterface<NameCase> {};

TEST_P(TypeNameTest, TheHostNamesTheTypesItServes) {
  const NameCase& c = GetParam();
  OrvelResult named = host_.Objects().Call("Orvel_GetObjectName", c.oid);
  EXPECT_EQ(named.Number, c.number);
  EXPECT_EQ(c.number == 0 ? ConcatText(named.Value) : named.Text, c.name);
}

INSTANTIATE_TEST_SUITE_P(
    Types, TypeNameTest,
    ::testing::Values(
        NameCase{"O0001605", 0, "Sandėliai"}, NameCase{"O0001604", 0, "Įmonės padaliniai"},
        NameCase{"O0201600", 0, "Atsargų šablonai"}, NameCase{"O1000200", 0, "Dokumentų grupės"},
        NameCase{"O1000600", 0, "Nuolaidos"}, NameCase{"O1000100", 0, "Dokumentai"},
        NameCase{"O1000300", 0, "Gauti avansai"}, NameCase{"O1000400", 0, "Sumokėti avansai"},
        NameCase{"O1001000", 0, "Sutartys"},
        NameCase{"O0009900", 5, "Nežinomas objekto tipas: O0009900"}));

// A book's record card is headed by the book's name, which the module's own
// table does not hold.
TEST_F(OtherTypesRoadTest, ABookRecordsCardIsHeadedByTheBooksName) {
  for (const auto& [oidr, heading] : {std::pair{"O00016051", " Sandėliai"},
                                      std::pair{"O00016021", " Įmonių tipai"}}) {
    auto card = OpenCard(oidr, "T");
    ASSERT_NE(card, nullptr) << oidr;
    auto* panel = dynamic_cast<Panel*>(card->FindControl("SOPanel"));
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(panel->Caption(), heading);
  }
}

// ---- a good's template row ----

struct TemplateCase {
  const char* name;
  const char* templateId;  // SQL: the stock template typed into the row
  bool written;
};

class TemplateRowTest : public OtherTypesRoadTest,
                        public ::testing::WithParamInterface<TemplateCase> {};

// The good inherits its group's sales template; its own is made by editing
// that row.
TEST_P(TemplateRowTest, ARowIsWrittenOnlyWithARealTemplate) {
  const TemplateCase& c = GetParam();
  const std::string good = ConcatText(
      Stored("SELECT MIN(m.ID) FROM goods m JOIN goods_templates t ON t.GoodID = m.ParentID"
             " WHERE m.GroupFlag = 0 AND t.GoodBRTemplateTypeID = 1"));
  const std::string templateId = ConcatText(Stored(c.templateId));
  auto card = OpenCard("O0000200" + good, "C");
  auto sheet = SheetOf(card);
  ASSERT_TRUE(card && sheet);
  bool leftOpen = true;
  Terminal().SetModalRunner([&](Form& dialog) {
    auto* grid = dynamic_cast<FieldSheet*>(dialog.FindControl("OrvelGrid"));
    ASSERT_NE(grid, nullptr);
    EXPECT_TRUE(grid->EditText("BRTemplateID", templateId));
    Press(dialog, "cmdEnter");
    leftOpen = dialog.Visible();
  });
  RightClick(*sheet, "BRTemplates", "O00008001", {"Redaguoti"});

  EXPECT_THAT(calls_, Contains("GetCall Orvel_ReadObject 'O0201600" + templateId + "'"));
  EXPECT_EQ(leftOpen, !c.written);
  EXPECT_EQ(Said("Blogas šablonas!"), !c.written);
  EXPECT_EQ(CLng(Stored("SELECT COUNT(*) FROM goods_templates WHERE GoodID = " + good +
                        " AND BRTemplateID = " + templateId)),
            c.written ? 1 : 0);
  // The row is the good's own once written: it carries its record's OIDR.
  const ListItem* row = sheet->TabList("BRTemplates")->ListItems().Find("O00008001");
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->Tag().IsNull(), !c.written);
}

INSTANTIATE_TEST_SUITE_P(
    Templates, TemplateRowTest,
    ::testing::Values(
        TemplateCase{"Template", "SELECT MIN(ID) FROM br_templates WHERE GroupFlag = 0", true},
        TemplateCase{"Group", "SELECT MIN(ID) FROM br_templates WHERE GroupFlag = 1", false},
        TemplateCase{"Missing", "SELECT MAX(ID) + 1 FROM br_templates", false}),
    [](const auto& info) { return std::string(info.param.name); });

// ---- a firm's discount ----

class DiscountRoadTest : public OtherTypesRoadTest {
 protected:
  void SetUp() override {
    OtherTypesRoadTest::SetUp();
    firm_ = ConcatText(Stored("SELECT MIN(FirmID) FROM firm_discounts f JOIN firms ON"
                              " firms.ID = f.FirmID WHERE firms.GroupFlag = 0"));
  }
  std::string firm_;
};

TEST_F(DiscountRoadTest, ADiscountIsCreatedChangedAndDeletedFromTheFirmsCard) {
  auto firmCard = OpenCard("O0000100" + firm_);
  auto sheet = SheetOf(firmCard);
  ASSERT_TRUE(firmCard && sheet);

  RightClick(*sheet, "Discounts", "", {"Sukurti naują"});
  EXPECT_THAT(calls_, Contains("GetCall Orvel_NewObject 'O1000600'"));
  auto card = LastWindow();
  ASSERT_NE(card, nullptr);
  ASSERT_NE(card, firmCard);
  EXPECT_EQ(dynamic_cast<Panel*>(card->FindControl("SOPanel"))->Caption(), " Nuolaidos");
  WriteCard(card, {{"DiscountTypeName", "Akcija"}, {"Percent", "7,5"}});
  EXPECT_THAT(calls_, Contains("ExecArrayCall Orvel_SaveObject 'O1000600',''"));
  const std::string id = ConcatText(Stored("SELECT MAX(ID) FROM firm_discounts"));
  const std::string oidr = "O1000600" + id;
  EXPECT_EQ(ConcatText(Stored("SELECT FirmID || '|' || Name FROM firm_discounts WHERE ID = " + id)),
            firm_ + "|Akcija 7,5%");
  EXPECT_EQ(card->Caption(), "Nuolaidos: Akcija 7,5%");
  EXPECT_NE(host_.Windows().Window(oidr), nullptr);  // the card moved to its record
  Press(*card, "SSCClose");
  EXPECT_EQ(host_.Windows().Window(oidr), nullptr);

  RightClick(*sheet, "Discounts", "", {"Atnaujinti"});
  ListView* list = sheet->TabList("Discounts");
  ASSERT_NE(list->ListItems().Find(oidr), nullptr);
  EXPECT_EQ(list->ListItems().Find(oidr)->ListSubItems().Item(2).Text(), "7,5%");

  RightClick(*sheet, "Discounts", oidr, {"Redaguoti"});
  auto again = std::dynamic_pointer_cast<Form>(host_.Windows().Window(oidr));
  ASSERT_NE(again, nullptr);
  WriteCard(again, {{"Percent", "10"}});
  EXPECT_THAT(calls_, Contains("ExecArrayCall Orvel_SaveObject 'O1000600','" + oidr + "'"));
  EXPECT_EQ(Stored("SELECT Percent FROM firm_discounts WHERE ID = " + id), Variant(10.0));
  Press(*again, "SSCClose");

  RightClick(*sheet, "Discounts", oidr, {"Panaikinti", "Taip"});
  EXPECT_THAT(calls_, Contains("ExecCall Orvel_DeleteObject '" + oidr + "'"));
  EXPECT_EQ(CLng(Stored("SELECT COUNT(*) FROM firm_discounts WHERE ID = " + id)), 0);
  EXPECT_EQ(list->ListItems().Find(oidr), nullptr);
}

struct BadDiscount {
  const char* name;
  bool withFirm;
  std::vector<std::pair<std::string, std::string>> typed;
  const char* reason;
};

class BadDiscountTest : public DiscountRoadTest, public ::testing::WithParamInterface<BadDiscount> {};

TEST_P(BadDiscountTest, IsRefusedWithItsReasonAndTheCardKeepsIt) {
  const BadDiscount& c = GetParam();
  const Variant before = Stored("SELECT COUNT(*) FROM firm_discounts");
  auto discount = host_.Objects().GetOrvelObject("O1000600");
  ASSERT_NE(discount, nullptr);
  if (c.withFirm) discount->Fields("FirmID").SetValue(Variant(firm_));
  auto window = discount->Properties("GetObjectForm", "").Value.ObjectAs<OrvelWindow>();
  ASSERT_NE(window, nullptr);
  host_.Windows().ShowWindow(window);
  auto card = std::dynamic_pointer_cast<Form>(window);
  WriteCard(card, c.typed);
  EXPECT_TRUE(Said(std::string("Klaida!\n\n")));
  EXPECT_TRUE(Said(c.reason)) << c.reason;
  EXPECT_EQ(Stored("SELECT COUNT(*) FROM firm_discounts"), before);
  EXPECT_TRUE(card->Visible());
  EXPECT_EQ(SheetOf(card)->Text(c.typed.front().first), c.typed.front().second);
}

INSTANTIATE_TEST_SUITE_P(
    Discounts, BadDiscountTest,
    ::testing::Values(
        BadDiscount{"NoType", true, {{"Percent", "5"}}, "Nenurodytas nuolaidos tipas"},
        BadDiscount{"NoFirm", false, {{"DiscountTypeName", "Akcija"}}, "Nenurodyta įmonė"},
        BadDiscount{"PercentAbove100", true, {{"DiscountTypeName", "Akcija"}, {"Percent", "150"}},
                    "Nuolaidos procentas turi būti nuo 0 iki 100"},
        BadDiscount{"SumToBelowSumFrom", true,
                    {{"DiscountTypeName", "Akcija"}, {"SumFrom", "100"}, {"SumTo", "50"}},
                    "Suma iki mažesnė už sumą nuo"}),
    [](const auto& info) { return std::string(info.param.name); });

// ---- records that only show ----

struct ShownCase {
  const char* oid;
  const char* record;  // SQL: the ID of a record of the type
  const char* field;   // a field the card shows
  const char* value;   // SQL: its text
};

class ShownRecordTest : public OtherTypesRoadTest,
                        public ::testing::WithParamInterface<ShownCase> {};

TEST_P(ShownRecordTest, OpensFromItsMenuAndTakesNoTyping) {
  const ShownCase& c = GetParam();
  const std::string oidr = c.oid + ConcatText(Stored(c.record));
  auto card = OpenCard(oidr);
  EXPECT_EQ(std::dynamic_pointer_cast<Form>(host_.Windows().Window(oidr)), card);
  ASSERT_NE(card, nullptr) << oidr;
  auto sheet = SheetOf(card);
  ASSERT_NE(sheet, nullptr);
  EXPECT_EQ(sheet->Text(c.field), ConcatText(Stored(c.value)));
  EXPECT_FALSE(sheet->EditText(c.field, "x"));
  EXPECT_FALSE(card->FindControl("cmdEnter")->Visible());
  // Nor is a record of another module deleted from here.
  EXPECT_NE(host_.Objects().GetOrvelObjectUI(oidr)->DeleteOrvelObject(oidr), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Records, ShownRecordTest,
    ::testing::Values(
        ShownCase{"O1000100", "SELECT MIN(ID) FROM documents WHERE OType = 'O1000100'", "Number",
                  "SELECT Number FROM documents WHERE OType = 'O1000100' ORDER BY ID LIMIT 1"},
        ShownCase{"O1001000", "SELECT MIN(ID) FROM firm_contracts", "ContractNumber",
                  "SELECT ContractNumber FROM firm_contracts ORDER BY ID LIMIT 1"},
        ShownCase{"O0201600", "SELECT MIN(ID) FROM br_templates", "Name",
                  "SELECT Name FROM br_templates ORDER BY ID LIMIT 1"},
        ShownCase{"O1000200", "SELECT MIN(ID) FROM document_groups", "Name",
                  "SELECT Name FROM document_groups ORDER BY ID LIMIT 1"}));

// A row of the firm's documents opens its document.
TEST_F(OtherTypesRoadTest, AFirmsDocumentRowOpensItsDocument) {
  // Ten years back: the sample documents stay in the list whatever today is.
  auto& environment = *host_.Services()->Environment();
  HostPeriod period = HostPeriod::Load(environment, LocalToday());
  period.daysBack = 3650;
  period.Save(environment);
  const std::string firm =
      ConcatText(Stored("SELECT MIN(FirmID) FROM documents WHERE OType = 'O1000100'"));
  auto firmCard = OpenCard("O0000100" + firm);
  ASSERT_NE(firmCard, nullptr);
  auto sheet = SheetOf(firmCard);
  ListView* list = sheet->TabList("Traffic");
  ASSERT_NE(list, nullptr);
  list->SetSelectedItem(&list->ListItems().Item(1));
  sheet->OnListDoubleClick(TabIndex(*sheet, "Traffic"));  // the real list for "more"
  std::string oidr;
  for (int i = 1; i <= list->ListItems().Count(); ++i) {
    const std::string key = list->ListItems().Item(i).Key();
    if (key.rfind("O1000100", 0) == 0) oidr = key;
  }
  ASSERT_FALSE(oidr.empty());
  RightClick(*sheet, "Traffic", oidr, {"Padėti ant darbo stalo"});
  auto card = std::dynamic_pointer_cast<Form>(host_.Windows().Window(oidr));
  ASSERT_NE(card, nullptr);
  EXPECT_THAT(card->Caption(), HasSubstr("Dokumentai: "));
  EXPECT_THAT(calls_, Contains("GetCall Orvel_ReadObject '" + oidr + "'"));
  EXPECT_THAT(prompter_.said, Not(Contains(HasSubstr("Klaida"))));
}

}  // namespace
}  // namespace orvel
