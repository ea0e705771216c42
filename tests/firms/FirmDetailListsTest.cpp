// The firm window's list tabs: what each loader asks for and shows, the
// deferred documents and contracts with their totals, the note line, the
// discounts' wording, and the dialogs that edit a row.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "FirmCardFixture.h"
#include "firms/frmAccounts.h"
#include "common/DetailDialog.h"
#include "host/Convert.h"
#include "host/Text.h"
#include "testhost/TestHostClasses.h"
#include "testhost/TestMainForm.h"
#include "testhost/TestObjectManager.h"
#include "testhost/TestObjectSelect.h"
#include "testhost/TestRights.h"
#include "ui/ControlConstants.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Rows = std::vector<std::vector<Variant>>;

constexpr const char* kFirm = "O00001002";

Variant DayOf(int y, int m, int d) { return Variant(DateSerial(y, m, d)); }

std::shared_ptr<MemoryRecordset> Set(std::vector<std::string> fields, const Rows& rows) {
  auto rs = std::make_shared<MemoryRecordset>(std::move(fields));
  for (const auto& row : rows) rs->AddRow(row);
  return rs;
}

// "caption width", with " R" for a right-aligned column.
std::vector<std::string> Columns(const ListView& list) {
  std::vector<std::string> out;
  for (const auto& column : list.ColumnHeaders()) {
    out.push_back(column->Text() + " " + std::to_string(column->Width()) +
                  (column->Alignment() == lvwColumnRight ? " R" : ""));
  }
  return out;
}

// "key|text|sub1;sub2|tag|icon"; a bold sub-item is starred.
std::string Row(const ListItem& row) {
  std::string subs;
  for (const auto& sub : row.ListSubItems()) {
    if (sub->Index() > 1) subs += ";";
    subs += sub->Text() + (sub->Bold() ? "*" : "");
  }
  return row.Key() + "|" + row.Text() + "|" + subs + "|" + ConcatText(row.Tag()) + "|" +
         row.SmallIcon();
}

std::vector<std::string> RowsOf(const ListView& list) {
  std::vector<std::string> out;
  for (const auto& row : list.ListItems()) out.push_back(Row(*row));
  return out;
}

class FirmDetailListsTest : public FirmCardTest {
 protected:
  void SetUp() override {
    FirmCardTest::SetUp();
    // The branch tab is made for a firm that has branches.
    BO("O0000100").ReplyRead("CheckBranch", Set({"Exist"}, {{Variant(1)}}));
  }

  void Reply(const std::string& call, std::shared_ptr<MemoryRecordset> rs) {
    BO("O0000100").ReplyRead(call, std::move(rs));
  }

  std::vector<std::string> Calls(const std::string& name) {
    std::vector<std::string> out;
    for (const auto& call : BO("O0000100").Calls(name)) out.push_back(call.param);
    return out;
  }

  ListView& Tab(frmFirms& window, const std::string& key) { return Grid(window).TabList(key); }

  void Period(const char* call, Variant::Array period) {
    host_.ObjectManager()->ReplyToCall(call, OrvelResult{0, "", Variant(std::move(period))});
  }
};

// ---- every loader ----

struct LoaderCase {
  const char* tab;
  const char* call;
  const char* fields;  // by blanks
  Rows rows;
  const char* columns;  // "caption width" of each column, joined by "|"
  std::vector<std::string> shown;
};

class LoaderTest : public FirmDetailListsTest, public ::testing::WithParamInterface<LoaderCase> {};

TEST_P(LoaderTest, AsksWithTheFirmsOidrAndShowsItsColumns) {
  const LoaderCase& c = GetParam();
  Reply(c.call, Set(Split(c.fields, " "), c.rows));
  auto w = Open(kFirm);
  const std::string tab = c.tab;
  // The window read the short lists on opening; they are read again here.
  if (tab == "Accounts") w->LoadAccounts();
  if (tab == "FirmAddresses") w->LoadAddresses();
  if (tab == "FirmContacts") w->LoadContacts();
  if (tab == "FirmBRANCH") w->LoadBranches();
  if (tab == "FirmServers") w->LoadManagers();
  if (tab == "FirmActivity") w->LoadActivity();
  if (tab == "FirmInfo") w->LoadFirmInfo();
  if (tab == "Discounts") w->LoadDiscounts();
  if (tab == "Traffic") w->LoadTraffic(true);
  if (tab == "FirmContracts") w->LoadContracts(true);
  if (tab == "GOODS") {
    host_.HostClasses()->QueueObjectSelect("cukr");
    w->LoadGoods(true);
  }
  const char* expected = tab == "Traffic"    ? "'O00001002','2026-11-23','9999-12-31'"
                         : tab == "GOODS"    ? "'O00001002','cukr'"
                         : tab == "FirmInfo" ? "'O00001002',0"
                                             : kFirm;
  std::vector<std::string> sent = Calls(c.call);
  ASSERT_FALSE(sent.empty()) << c.call;
  EXPECT_EQ(sent.back(), expected);
  EXPECT_EQ(Join(Columns(Tab(*w, c.tab)), "|"), c.columns);
  EXPECT_EQ(RowsOf(Tab(*w, c.tab)), c.shown);
}

INSTANTIATE_TEST_SUITE_P(
    Tabs, LoaderTest,
    ::testing::Values(
        LoaderCase{"Accounts",
                   "GetAccounts",
                   "OIDR Number BankName",
                   {{Variant("O00005007"), Variant("LT12 7300"), Variant::Null()}},
                   "Numeris 2000|Bankas 4000",
                   {"O00005007|LT12 7300|||"}},
        LoaderCase{
            "FirmAddresses",
            "GetFirmADDRESSES",
            "OIDR AddressType Region PostCode Street Phone Fax EMail FlagMain",
            {{Variant("O00020001"), Variant("Buveinės"), Variant("Vilnius"), Variant("LT-01100"),
              Variant("Gedimino pr. 1"), Variant("+370 5 1"), Variant::Null(), Variant("a@b.lt"),
              Variant(true)},
             {Variant("O00020002"), Variant("Pristatymo"), Variant::Null(), Variant::Null(),
              Variant::Null(), Variant::Null(), Variant::Null(), Variant::Null(), Variant(false)}},
            "Tipas 2000|Regionas 1000|Indeksas 1000|Gatvė 2000|Telefonas 1000|Faksas 1000|El. "
            "paštas 1500|Pagrindinis 1500",
            {"O00020001|Buveinės|Vilnius;LT-01100;Gedimino pr. 1;+370 5 1;;a@b.lt;Taip||",
             "O00020002|Pristatymo|;;;;;;||"}},
        LoaderCase{"FirmContacts",
                   "GetFirmCONTACTS",
                   "OIDR Name LastName Role Phone Fax EMail Note FlagMain",
                   {{Variant("O00021003"), Variant("Asta"), Variant("Kazlauskienė"),
                     Variant("Direktorė"), Variant("8 600"), Variant::Null(), Variant::Null(),
                     Variant("Po 10 val."), Variant::Null()}},
                   "Vardas 1000|Pavarde 1000|Pareigos 2000|Telefonas 1000|Faksas 1000|El. paštas "
                   "1500|Pastaba 1500|Pagrindinis 1500",
                   {"O00021003|Asta|Kazlauskienė;Direktorė;8 600;;;Po 10 val.;||"}},
        LoaderCase{
            "FirmBRANCH",
            "GetFirmBranch",
            "OIDR Name Code Region Street Tel Fax EMail",
            {{Variant("O00016041"), Variant("Kauno filialas"), Variant("12"), Variant("Kaunas"),
              Variant("Laisvės al. 3"), Variant("8 37"), Variant::Null(), Variant::Null()}},
            "Pavadinimas 2000|Kodas 1000|Regionas 1000|Gatvė 2000|Telefonas 1000|Faksas 1000|El. "
            "paštas 1500",
            {"O00016041|Kauno filialas|12;Kaunas;Laisvės al. 3;8 37;;|O00016041|"}},
        LoaderCase{"FirmServers",
                   "GetFirmSERVERS",
                   "OIDR Name",
                   {{Variant("O00024001"), Variant("Rūta Buhalterė")}},
                   "Vadybininkas 3000",
                   {"O00024001|Rūta Buhalterė|||"}},
        LoaderCase{"FirmActivity",
                   "GetFirmActivity",
                   "OIDR Preview",
                   {{Variant("O00025002"), Variant("Didmeninė prekyba")}},
                   "Veiklos pavadinimas 5000",
                   {"O00025002|Didmeninė prekyba||O00025002|"}},
        LoaderCase{"FirmInfo",
                   "GetFirmInfo",
                   "ID Info DateFrom DateTo UserName Priority",
                   {{Variant(17), Variant("Skambinti"), DayOf(2026, 1, 5), Variant::Null(),
                     Variant("admin"), Variant(1)}},
                   "Informacija 4000|Galioja nuo 2000|Galioja iki 2000|Autorius 4000",
                   {"17K|Skambinti|2026-01-05;;admin||"}},
        LoaderCase{
            "Discounts",
            "GetDiscounts",
            "OIDR DiscountTypeName VariantName SumFrom SumTo Percent GoodName Valid FirmName",
            {{Variant("O10006001"), Variant("Sezoninė"), Variant("Vasara"), Variant(50),
              Variant(500), Variant(2.5), Variant::Null(), Variant(true), Variant("UAB Šilas")}},
            "Pavadinimas 3000|Variantas 3000|Procentas 800| 2000|Įmonė 4000",
            {"O10006001|Sezoninė|Vasara (nuo:50, iki:500);2,5%;;UAB Šilas|O10006001|"}},
        LoaderCase{"Traffic",
                   "GetTraffic",
                   "OIDR OType DocName Number Date Suma Debt Sign GID",
                   {{Variant("O10002005"), Variant("O1000200"), Variant("Pirkimo sąskaita"),
                     Variant("PIR00005"), DayOf(2026, 3, 2), Variant(1234.5), Variant(-100.0),
                     Variant(-1), Variant(2)}},
                   "Dok. grupė 2000|Dok. Nr. 1500|Data 1200|Suma 1500 R|Skola 1500 R",
                   {"O10002005|Pirkimo sąskaita|PIR00005;2026-03-02;1234,50;100,00|O10002005|"
                    "O1000200",
                    "| | ; ; ;100,00*||"}},
        LoaderCase{"FirmContracts",
                   "GetContractsList",
                   "OIDR OType ContractNumber DateFrom DateTo SumA State Responsible",
                   {{Variant("O10010003"), Variant("O1001000"), Variant("S-1"), DayOf(2026, 1, 1),
                     Variant::Null(), Variant(1000), Variant("Galioja"), Variant("Rūta")}},
                   "Numeris 2000|Galioja nuo 1500|Galioja iki 1200|Suma 1500 R|Būklė "
                   "1200|Vadybininkas 2000",
                   {"O10010003|S-1|2026-01-01;;1000,00;Galioja;Rūta|O10010003|O1001000",
                    "| | ; ;1000,00*;;||"}},
        LoaderCase{
            "GOODS",
            "GetFindGoods",
            "GOIDR DocOIDR OType GoodName Comment Number Date Amount OIDR",
            {{Variant("O10001001.4"), Variant("O10001001"), Variant("O1000100"), Variant("Cukrus"),
              Variant::Null(), Variant("PSF00001"), DayOf(2026, 2, 3), Variant(2.5),
              Variant("O00002009")}},
            "Prekės pavadinimas 3000|Komentaras 2000|Dok. Numeris 1200|Data 1200|Kiekis 2000 R",
            {"O10001001.4|Cukrus|;PSF00001;2026-02-03;2,5|O10001001|O1000100"}}),
    [](const auto& info) { return std::string(info.param.tab); });

TEST_F(FirmDetailListsTest, FirmsOfAGroupShowIconsAndAFirmsColumns) {
  Reply("GetFirms",
        Set({"OIDR", "Preview", "GroupFlag", "Code", "Street", "RegionName", "Tel", "Fax",
             "Director"},
            {{Variant("O00001004"), Variant("Vietiniai"), Variant(1), Variant::Null(),
              Variant::Null(), Variant::Null(), Variant::Null(), Variant::Null(), Variant::Null()},
             {Variant("O00001002"), Variant("UAB Šilas"), Variant(0), Variant("302245871"),
              Variant("Ąžuolų g. 2"), Variant("Vilnius"), Variant("8 5"), Variant::Null(),
              Variant("J. Jonaitis")}}));
  auto w = Open("O00001001");
  w->LoadFirmsList();
  EXPECT_THAT(Calls("GetFirms"), ElementsAre("O00001001"));
  EXPECT_EQ(
      Columns(Tab(*w, "Firms")),
      (std::vector<std::string>{"Pavadinimas 3000", "Įm. kodas 1000", "Gatvė 1000", "Regionas 1000",
                                "Telefonas 1000", "Faksas 1000", "Direktorius 3000"}));
  EXPECT_THAT(RowsOf(Tab(*w, "Firms")),
              ElementsAre("O00001004|Vietiniai||O00001004|stdClose",
                          "O00001002|UAB Šilas|302245871;Ąžuolų g. 2;Vilnius;8 5;;J. Jonaitis|"
                          "O00001002|C0000100"));
  EXPECT_EQ(Tab(*w, "Firms").SmallIcons(), host_.MainForm()->ImgCatalogue());
  EXPECT_EQ(host_.Ui()->GetMousePointer(), vbDefault);
}

TEST_F(FirmDetailListsTest, ANewFirmShowsEmptyListsAndNoDiscountColumns) {
  auto w = Open("O00001001", "1");
  w->LoadAccounts();
  w->LoadAddresses();
  w->LoadContacts();
  w->LoadManagers();
  w->LoadFirmInfo();
  w->LoadActivity();
  w->LoadDiscounts();
  EXPECT_THAT(BO("O0000100").Calls(), IsEmpty());
  EXPECT_EQ(Tab(*w, "FirmAddresses").ColumnHeaders().Count(), 8);
  EXPECT_EQ(Tab(*w, "FirmAddresses").ListItems().Count(), 0);
  EXPECT_EQ(Tab(*w, "Discounts").ColumnHeaders().Count(), 0);
}

TEST_F(FirmDetailListsTest, AFailedReadLeavesTheListEmptyAndReportsNothing) {
  BO("O0000100").FailCallsNamed("GetFirmCONTACTS", 5, "Serveris nepasiekiamas");
  auto w = Open(kFirm);
  w->LoadContacts();
  EXPECT_EQ(Tab(*w, "FirmContacts").ListItems().Count(), 0);
  EXPECT_THAT(host_.Ui()->Boxes(), IsEmpty());
}

TEST_F(FirmDetailListsTest, ReloadingReplacesTheRowsAndKeepsTheColumns) {
  Reply("GetFirmSERVERS", Set({"OIDR", "Name"}, {{Variant("O00024001"), Variant("Rūta")}}));
  auto w = Open(kFirm);
  Reply("GetFirmSERVERS", Set({"OIDR", "Name"}, {{Variant("O00024002"), Variant("Jonas")}}));
  w->LoadManagers();
  EXPECT_THAT(RowsOf(Tab(*w, "FirmServers")), ElementsAre("O00024002|Jonas|||"));
  EXPECT_EQ(Tab(*w, "FirmServers").ColumnHeaders().Count(), 1);
}

// ---- the deferred documents and contracts ----

TEST_F(FirmDetailListsTest, DocumentsWaitBehindThePlaceholderUntilDoubleClicked) {
  Reply("GetTraffic",
        Set({"OIDR", "OType", "DocName", "Number", "Date", "Suma", "Debt", "Sign", "GID"},
            {{Variant("O10001001"), Variant("O1000100"), Variant("PVM sąskaita"), Variant("PSF1"),
              DayOf(2026, 3, 1), Variant(10), Variant(10), Variant(1), Variant(1)}}));
  auto w = Open(kFirm);
  EXPECT_THAT(Calls("GetTraffic"), IsEmpty());
  EXPECT_THAT(Calls("GetContractsList"), IsEmpty());
  EXPECT_THAT(RowsOf(Tab(*w, "Traffic")), ElementsAre("more|Atnaujinkite... | ; ; ; ||more"));
  EXPECT_THAT(RowsOf(Tab(*w, "FirmContracts")),
              ElementsAre("more|Atnaujinkite... | ; ; ; ; ||more"));

  ListView& list = Tab(*w, "Traffic");
  list.SetSelectedItem(&list.ListItems().Item(1));
  Grid(*w).DoubleClickList(w->TrafficTab - 1);
  EXPECT_EQ(Calls("GetTraffic").size(), 1u);
  EXPECT_EQ(list.ListItems().Item(1).Key(), "O10001001");
  // The debt line is refreshed with the list.
  EXPECT_EQ(Calls("GetFirmDebt").size(), 1u);

  // A real row holds a type's icon: a second double click reads nothing.
  list.SetSelectedItem(&list.ListItems().Item(1));
  Grid(*w).DoubleClickList(w->TrafficTab - 1);
  EXPECT_EQ(Calls("GetTraffic").size(), 1u);
}

struct TrafficCase {
  const char* name;
  Rows rows;
  std::vector<std::string> denied;
  std::vector<std::string> shown;
};

class TrafficTest : public FirmDetailListsTest,
                    public ::testing::WithParamInterface<TrafficCase> {};

TEST_P(TrafficTest, RowsTotalsAndTagsByRight) {
  for (const auto& key : GetParam().denied) {
    host_.Rights()->Deny(key, TestRights::Right::Allowed);
  }
  Reply("GetTraffic",
        Set({"OIDR", "OType", "DocName", "Number", "Date", "Suma", "Debt", "Sign", "GID"},
            GetParam().rows));
  auto w = Open(kFirm);
  w->LoadTraffic(true);
  EXPECT_EQ(RowsOf(Tab(*w, "Traffic")), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TrafficTest,
    ::testing::Values(
        // What the firm owes and what we owe it cancel out: the total is 0.00.
        TrafficCase{
            "DebtsCancelOut",
            {{Variant("O10001001"), Variant("O1000100"), Variant("D"), Variant("1"),
              DayOf(2026, 3, 1), Variant(50), Variant(50), Variant(1), Variant(1)},
             {Variant("O10002002"), Variant("O1000200"), Variant("D"), Variant("2"),
              DayOf(2026, 3, 2), Variant(50), Variant(50), Variant(1), Variant(2)},
             {Variant("O10002003"), Variant("O1000200"), Variant("D"), Variant("3"),
              DayOf(2026, 3, 3), Variant(100), Variant(-100), Variant(1), Variant(2)}},
            {},
            {"O10001001|D|1;2026-03-01;50,00;50,00|O10001001|O1000100",
             "O10002002|D|2;2026-03-02;50,00;50,00|O10002002|O1000200",
             "O10002003|D|3;2026-03-03;100,00;100,00|O10002003|O1000200", "| | ; ; ;0,00*||"}},
        // A sign of -1 turns a debt around before it is added.
        TrafficCase{
            "SignTurnsTheDebt",
            {{Variant("O10002002"), Variant("O1000200"), Variant("D"), Variant("2"),
              DayOf(2026, 3, 2), Variant(80), Variant(-80), Variant(-1), Variant(2)},
             {Variant("O10001001"), Variant("O1000100"), Variant("D"), Variant("1"),
              DayOf(2026, 3, 1), Variant(30), Variant(30), Variant(1), Variant(1)}},
            {},
            {"O10002002|D|2;2026-03-02;80,00;80,00|O10002002|O1000200",
             "O10001001|D|1;2026-03-01;30,00;30,00|O10001001|O1000100", "| | ; ; ;110,00*||"}},
        // Document groups answer to their lock right, the others to the
        // operation right; a row without the right shows but has no Tag.
        TrafficCase{"RightsByDocumentKind",
                    {{Variant("O10001001"), Variant("O1000100"), Variant("D"), Variant("1"),
                      DayOf(2026, 3, 1), Variant(1), Variant(1), Variant(1), Variant(7)},
                     {Variant("O10002002"), Variant("O1000200"), Variant("D"), Variant("2"),
                      DayOf(2026, 3, 2), Variant(1), Variant(1), Variant(1), Variant(7)}},
                    {"CDocumentGroupLock7"},
                    {"O10001001|D|1;2026-03-01;1,00;1,00||O1000100",
                     "O10002002|D|2;2026-03-02;1,00;1,00|O10002002|O1000200", "| | ; ; ;2,00*||"}},
        // A repeated OIDR adds no row: its columns go into the row before.
        TrafficCase{"RepeatedOidrWritesIntoThePreviousRow",
                    {{Variant("O10001001"), Variant("O1000100"), Variant("D"), Variant("1"),
                      DayOf(2026, 3, 1), Variant(1), Variant(1), Variant(1), Variant(1)},
                     {Variant("O10001001"), Variant("O1000100"), Variant("D"), Variant("9"),
                      DayOf(2026, 3, 9), Variant(2), Variant(2), Variant(1), Variant(1)}},
                    {},
                    {"O10001001|D|1;2026-03-01;1,00;1,00;9;2026-03-09;2,00;2,00|O10001001|"
                     "O1000100",
                     "| | ; ; ;3,00*||"}},
        // The business layer's summary row names no record: it is not opened.
        TrafficCase{"SummaryRowHasNoTag",
                    {{Variant("O0000000"), Variant("O0000000"), Variant("Iš viso"), Variant(""),
                      Variant::Null(), Variant(5), Variant(5), Variant(0), Variant(0)}},
                    {},
                    {"O0000000|Iš viso|;;5,00;5,00||O0000000", "| | ; ; ;0,00*||"}},
        TrafficCase{"NoDocumentsNoTotal", {}, {}, {}}),
    [](const auto& info) { return std::string(info.param.name); });

struct PeriodCase {
  const char* name;
  Variant::Array period;
  const char* params;
};

class TrafficPeriodTest : public FirmDetailListsTest,
                          public ::testing::WithParamInterface<PeriodCase> {};

TEST_P(TrafficPeriodTest, ThePeriodGivesTheDays) {
  Period("GetOldPeriod", GetParam().period);
  auto w = Open(kFirm);
  w->LoadTraffic(true);
  EXPECT_THAT(Calls("GetTraffic"), ElementsAre(GetParam().params));
}

INSTANTIATE_TEST_SUITE_P(
    Periods, TrafficPeriodTest,
    ::testing::Values(
        PeriodCase{"OwnDates",
                   {DayOf(2026, 1, 1), DayOf(2026, 6, 30), Variant(30), Variant(true), Variant(0)},
                   "'O00001002','2026-01-01','2026-06-30'"},
        PeriodCase{"DaysBackFromToday",
                   {DayOf(2026, 1, 1), DayOf(2026, 6, 30), Variant(30), Variant(false), Variant(0)},
                   "'O00001002','2026-10-24','9999-12-31'"},
        PeriodCase{"NoPeriodFromTheHost", {}, "'O00001002','2026-11-23','9999-12-31'"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(FirmDetailListsTest, ANewPeriodReloadsTheDocumentsTheSameOneDoesNot) {
  const Variant::Array year{DayOf(2026, 1, 1), DayOf(2026, 12, 31), Variant(0), Variant(true),
                            Variant(0)};
  Period("GetOldPeriod", year);
  Period("GetNewPeriod", year);
  auto w = Open(kFirm);
  w->CurrentTab = w->TrafficTab;
  w->mnuPreview.Click();
  EXPECT_THAT(Calls("GetTraffic"), IsEmpty());

  Period("GetNewPeriod",
         {DayOf(2026, 7, 1), DayOf(2026, 12, 31), Variant(0), Variant(true), Variant(0)});
  w->mnuPreview.Click();
  EXPECT_THAT(Calls("GetTraffic"), ElementsAre("'O00001002','2026-07-01','2026-12-31'"));
}

TEST_F(FirmDetailListsTest, ContractsRefreshFromTheirMenuAndTotalWithoutSign) {
  Reply(
      "GetContractsList",
      Set({"OIDR", "OType", "ContractNumber", "DateFrom", "DateTo", "SumA", "State", "Responsible"},
          {{Variant("O10010001"), Variant("O1001000"), Variant("S-1"), Variant::Null(),
            Variant::Null(), Variant(-200), Variant::Null(), Variant::Null()},
           {Variant("O10010002"), Variant("O1001000"), Variant("S-2"), Variant::Null(),
            Variant::Null(), Variant(50.255), Variant::Null(), Variant::Null()}}));
  auto w = Open(kFirm);
  w->mnuContractRefresh.Click();
  EXPECT_THAT(Calls("GetContractsList"), ElementsAre(kFirm));
  EXPECT_THAT(RowsOf(Tab(*w, "FirmContracts")),
              ElementsAre("O10010001|S-1|;;-200,00;;|O10010001|O1001000",
                          "O10010002|S-2|;;50,26;;|O10010002|O1001000", "| | ; ;149,75*;;||"));
}

// ---- goods bought ----

TEST_F(FirmDetailListsTest, GoodsSearchCancelledReadsNothing) {
  auto w = Open(kFirm);
  w->CurrentTab = w->GoodsTab;
  w->mnuPreview.Click();
  EXPECT_EQ(Tab(*w, "GOODS").ColumnHeaders().Item("Amount").Text(), "Kiekis");
  EXPECT_THAT(Calls("GetFindGoods"), IsEmpty());
  auto search = host_.HostClasses()->LastObjectSelect();
  ASSERT_NE(search, nullptr);
  EXPECT_EQ(search->ColumnCaption(), "Prekės pavadinimas");
  EXPECT_EQ(search->OType(), "O0000200");
}

// ---- the note line ----

struct NoteLineCase {
  const char* name;
  Variant dateTo;
  int priority;
  bool shown;
  int32_t color;
};

class NoteLineTest : public FirmDetailListsTest,
                     public ::testing::WithParamInterface<NoteLineCase> {};

TEST_P(NoteLineTest, TheFirstNoteInForceIsShownInItsColour) {
  const NoteLineCase& c = GetParam();
  Reply("GetFirmInfo", Set({"ID", "Info", "DateFrom", "DateTo", "UserName", "Priority"},
                           {{Variant(4), Variant("Mokėjimai vėluoja"), DayOf(2026, 1, 1), c.dateTo,
                             Variant("admin"), Variant(c.priority)},
                            {Variant(9), Variant("Sena"), DayOf(2025, 1, 1), DayOf(2025, 2, 1),
                             Variant("rūta"), Variant(3)}}));
  auto w = Open(kFirm);
  EXPECT_EQ(w->lblInfo.Visible(), c.shown);
  EXPECT_EQ(w->pnlLists.Top(), w->pnlInfo.Top() + (c.shown ? w->pnlInfo.Height() : 0));
  if (c.shown) {
    EXPECT_EQ(w->lblInfo.Caption(), "Mokėjimai vėluoja (admin)");
    EXPECT_EQ(w->lblInfo.ForeColor(), c.color);
  }
  // Every note stays in the list, coloured by its priority.
  ListView& list = Tab(*w, "FirmInfo");
  ASSERT_EQ(list.ListItems().Count(), 2);
  EXPECT_EQ(list.ListItems().Item("4K").ForeColor(), c.color);
  EXPECT_EQ(list.ListItems().Item("9K").ForeColor(), vbRed);
  EXPECT_EQ(list.ListItems().Item("9K").ListSubItems().Item(2).Text(), "2025-02-01");
}

INSTANTIATE_TEST_SUITE_P(
    Cases, NoteLineTest,
    ::testing::Values(NoteLineCase{"NoEnd", Variant::Null(), 1, true, vbBlack},
                      NoteLineCase{"EndsToday", DayOf(2026, 11, 23), 2, true, vbBlue},
                      NoteLineCase{"EndsLater", DayOf(2027, 1, 1), 3, true, vbRed},
                      NoteLineCase{"EndedYesterday", DayOf(2026, 11, 22), 2, false, vbBlue}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(FirmDetailListsTest, AnOrdinaryNoteKeepsTheLinesColourAndNoNotesHideIt) {
  const std::vector<std::string> fields{"ID", "Info", "DateFrom", "DateTo", "UserName", "Priority"};
  Reply("GetFirmInfo", Set(fields, {{Variant(4), Variant("A"), DayOf(2026, 1, 1), Variant::Null(),
                                     Variant("admin"), Variant(3)}}));
  auto w = Open(kFirm);
  ASSERT_TRUE(w->lblInfo.Visible());
  Reply("GetFirmInfo", Set(fields, {{Variant(5), Variant("B"), DayOf(2026, 1, 1), Variant::Null(),
                                     Variant("admin"), Variant(1)}}));
  w->LoadFirmInfo();
  EXPECT_EQ(w->lblInfo.Caption(), "B (admin)");
  EXPECT_EQ(w->lblInfo.ForeColor(), vbRed);
  Reply("GetFirmInfo", Set(fields, {}));
  w->LoadFirmInfo();
  EXPECT_FALSE(w->lblInfo.Visible());
  EXPECT_EQ(w->pnlLists.Top(), w->pnlInfo.Top());
}

// ---- discounts in words ----

struct DiscountCase {
  const char* name;
  Variant variantName, sumFrom, sumTo, goodName, valid;
  const char* variant;
  const char* origin;
};

class DiscountWordsTest : public FirmDetailListsTest,
                          public ::testing::WithParamInterface<DiscountCase> {};

TEST_P(DiscountWordsTest, VariantAndOrigin) {
  const DiscountCase& c = GetParam();
  Reply("GetDiscounts", Set({"OIDR", "DiscountTypeName", "VariantName", "SumFrom", "SumTo",
                             "Percent", "GoodName", "Valid", "FirmName"},
                            {{Variant("O10006001"), Variant("N"), c.variantName, c.sumFrom, c.sumTo,
                              Variant(5), c.goodName, c.valid, Variant("Tiekėjai")}}));
  auto w = Open(kFirm);
  const ListItem& row = Tab(*w, "Discounts").ListItems().Item(1);
  EXPECT_EQ(row.ListSubItems().Item(1).Text(), c.variant);
  EXPECT_EQ(row.ListSubItems().Item(2).Text(), "5%");
  EXPECT_EQ(row.ListSubItems().Item(3).Text(), c.origin);
  EXPECT_EQ(row.ListSubItems().Item(4).Text(), "Tiekėjai");
}

INSTANTIATE_TEST_SUITE_P(
    Cases, DiscountWordsTest,
    ::testing::Values(
        DiscountCase{"NoVariant", Variant::Null(), Variant(100), Variant(200), Variant::Null(),
                     Variant(true), "", ""},
        DiscountCase{"NoUpperBound", Variant("Didmena"), Variant(100), Variant(0), Variant(""),
                     Variant(true), "Didmena (nuo:100)", ""},
        DiscountCase{"Bounds", Variant("Didmena"), Variant(100.5), Variant(500), Variant::Null(),
                     Variant(true), "Didmena (nuo:100,5, iki:500)", ""},
        DiscountCase{"Inherited", Variant::Null(), Variant::Null(), Variant::Null(),
                     Variant("Statyba"), Variant(true), "", "Paveldeta iš grupės:Statyba"},
        DiscountCase{"InheritedNotValid", Variant::Null(), Variant::Null(), Variant::Null(),
                     Variant("Statyba"), Variant(false), "",
                     "Paveldeta iš grupės:Statyba(negalioja)"},
        DiscountCase{"NotValidAlone", Variant::Null(), Variant::Null(), Variant::Null(),
                     Variant::Null(), Variant(false), "", "(negalioja)"}),
    [](const auto& info) { return std::string(info.param.name); });

// ---- editing rows ----

// The detail dialog, scripted: it notes what it was given and answers.
class ScriptedDetailDialogs : public DetailDialog {
 public:
  bool Edit(const std::shared_ptr<OrvelObjectUIO>& detail, const std::string& caption,
            const std::string& msgTitle) override {
    seen.push_back(detail ? detail->OIDR() +
                                " FirmID=" + ConcatText(detail->Fields("FirmID").Value()) + " " +
                                caption + " / " + msgTitle
                          : "none");
    return save;
  }
  bool save = true;
  std::vector<std::string> seen;
};

struct DetailCase {
  const char* tab;
  const char* otype;
  const char* call;
  bool isNew;
  const char* seen;
};

class EditDetailTest : public FirmDetailListsTest,
                       public ::testing::WithParamInterface<DetailCase> {
 protected:
  void SetUp() override {
    FirmDetailListsTest::SetUp();
    dialogs_ = std::make_shared<ScriptedDetailDialogs>();
    InstallDetailDialog(dialogs_);
  }
  void TearDown() override {
    InstallDetailDialog(nullptr);
    FirmDetailListsTest::TearDown();
  }
  std::shared_ptr<ScriptedDetailDialogs> dialogs_;
};

TEST_P(EditDetailTest, OpensTheRowOrANewRecordAndReloadsWhenSaved) {
  const DetailCase& c = GetParam();
  auto& table = BO(c.otype).Table();
  table.SetFields({"ID", "Name", "FirmID"});
  table.Seed({{{"Name", Variant("Esamas")}, {"FirmID", Variant(2)}}});
  // One row that every detail list can read.
  std::vector<std::string> fields{"OIDR", "Name",   "Preview",  "AddressType", "LastName",
                                  "Role", "Region", "PostCode", "Street",      "Phone",
                                  "Fax",  "EMail",  "Note",     "FlagMain"};
  Variant::Array row(fields.size(), Variant("x"));
  row[0] = Variant(std::string(c.otype) + "1");
  Reply(c.call, Set(fields, {row}));
  auto w = Open(kFirm);
  ListView& list = Tab(*w, c.tab);
  list.SetSelectedItem(&list.ListItems().Item(1));
  const size_t before = Calls(c.call).size();
  for (size_t i = 0; i < Grid(*w).Tabs().size(); ++i) {
    if (Grid(*w).Tabs()[i].key == c.tab) w->CurrentTab = static_cast<int16_t>(i + 1);
  }
  w->EditDetail(c.isNew);
  EXPECT_THAT(dialogs_->seen, ElementsAre(c.seen));
  EXPECT_EQ(Calls(c.call).size(), before + 1);

  dialogs_->save = false;
  w->EditDetail(c.isNew);
  EXPECT_EQ(Calls(c.call).size(), before + 1);
}

INSTANTIATE_TEST_SUITE_P(
    Tabs, EditDetailTest,
    ::testing::Values(
        DetailCase{"FirmAddresses", "O0002000", "GetFirmADDRESSES", true,
                   " FirmID=2 UAB Šilas: Naujas adresas / Apskaita"},
        DetailCase{"FirmAddresses", "O0002000", "GetFirmADDRESSES", false,
                   "O00020001 FirmID=2 UAB Šilas: Adresai / Apskaita"},
        DetailCase{"FirmContacts", "O0002100", "GetFirmCONTACTS", true,
                   " FirmID=2 UAB Šilas: Naujas kontaktas / Apskaita"},
        DetailCase{"FirmServers", "O0002400", "GetFirmSERVERS", false,
                   "O00024001 FirmID=2 UAB Šilas: Vadybininkas atsakingas už įmonės aptarnavimą"
                   " / Apskaita"},
        DetailCase{"FirmServers", "O0002400", "GetFirmSERVERS", true,
                   " FirmID=2 UAB Šilas: Naujas vadybininkas atsakingas už įmonės aptarnavimą"
                   " / Apskaita"},
        DetailCase{"FirmActivity", "O0002500", "GetFirmActivity", true,
                   " FirmID=2 UAB Šilas: Nauja veiklos rūšis / Apskaita"}),
    [](const auto& info) {
      return std::string(info.param.tab) + (info.param.isNew ? "New" : "Existing");
    });

TEST_F(FirmDetailListsTest, EditingWithoutASelectedRowOpensNothing) {
  auto dialogs = std::make_shared<ScriptedDetailDialogs>();
  InstallDetailDialog(dialogs);
  auto w = Open(kFirm);
  w->CurrentTab = w->ContactsTab;
  w->EditDetail(false);
  w->EditAccount(false);
  w->EditFirmInfo(false);
  InstallDetailDialog(nullptr);
  EXPECT_THAT(dialogs->seen, IsEmpty());
  EXPECT_THAT(host_.Ui()->Boxes(), IsEmpty());
  EXPECT_EQ(host_.Ui()->PendingModalScripts(), 0u);
}

class AccountDialogTest : public FirmDetailListsTest {
 protected:
  void SetUp() override {
    FirmDetailListsTest::SetUp();
    auto& table = BO("O0000500").Table();
    table.SetFields({"ID", "Name", "BankID", "FOIDR"});
    table.Seed({{{"Name", Variant("LT01")}, {"FOIDR", Variant(kFirm)}}});
  }
};

TEST_F(AccountDialogTest, ANewAccountBelongsToTheFirmAndReloadsTheList) {
  auto w = Open(kFirm);
  std::string caption;
  host_.Ui()->QueueModal([&](Form& form) {
    auto& dialog = dynamic_cast<frmAccounts&>(form);
    caption = dialog.Caption();
    dynamic_cast<FakeOrvelGrid&>(*dialog.OrvelGrid).EditField("Name", Variant("LT02"));
    dialog.cmdEnter.Click();
  });
  w->mnuAccountsNew.Click();
  EXPECT_EQ(caption, "UAB Šilas: Nauja atsiskaitomoji sąskaita");
  EXPECT_EQ(BO("O0000500").Table().Value(2, "FOIDR"), Variant(kFirm));
  EXPECT_EQ(BO("O0000500").Table().Value(2, "Name"), Variant("LT02"));
  EXPECT_THAT(Calls("GetAccounts"), ElementsAre(kFirm));
}

TEST_F(AccountDialogTest, AFailedWriteIsShownAndTheDialogStays) {
  Reply("GetAccounts", Set({"OIDR", "Number", "BankName"},
                           {{Variant("O00005001"), Variant("LT01"), Variant("Swedbank")}}));
  BO("O0000500").FailCallsNamed("Orvel_SaveObject", 17, "Numeris kartojasi");
  auto w = Open(kFirm);
  ListView& list = Tab(*w, "Accounts");
  list.SetSelectedItem(&list.ListItems().Item(1));
  bool stayed = false;
  bool savedAfterCancel = true;
  host_.Ui()->QueueModal([&](Form& form) {
    auto& dialog = dynamic_cast<frmAccounts&>(form);
    EXPECT_EQ(dialog.Caption(), "UAB Šilas: Atsiskaitomoji sąskaita");
    dialog.cmdEnter.Click();
    stayed = dialog.Visible();
    dialog.cmdCancel.Click();
    savedAfterCancel = dialog.Saved;
  });
  host_.Ui()->QueueAnswer(vbOK);
  Grid(*w).DoubleClickList(w->AccountsTab - 1);
  EXPECT_TRUE(stayed);
  EXPECT_FALSE(savedAfterCancel);
  EXPECT_THAT(Boxes(), ElementsAre("16 Apskaita Klaida!\n\nNumeris kartojasi"));
  EXPECT_THAT(Calls("GetAccounts"), IsEmpty());
}

TEST_F(FirmDetailListsTest, EditorsOfANewFirmAskToSaveItFirst) {
  auto w = Open("O00001001", "1");
  w->CurrentTab = w->AddressesTab;
  for (int box = 0; box < 3; ++box) host_.Ui()->QueueAnswer(vbOK);
  w->EditDetail(true);
  w->EditAccount(true);
  w->EditFirmInfo(true);
  EXPECT_THAT(Boxes(), ElementsAre("48 Apskaita Išsaugokite naujai sukurtą įmonę",
                                   "48 Apskaita Išsaugokite naujai sukurtą įmonę",
                                   "48 Apskaita Išsaugokite naujai sukurtą įmonę"));
}

}  // namespace
}  // namespace orvel
