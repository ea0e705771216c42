#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include "FirmCardFixture.h"
#include "common/DetailDialog.h"
#include "firms/frmAccounts.h"
#include "firms/frmFirmInfo.h"
#include "host/Text.h"
#include "testhost/TestHostClasses.h"
#include "testhost/TestMainForm.h"
#include "testhost/TestObjectManager.h"
#include "testhost/TestObjectSelect.h"
#include "testhost/TestRights.h"
#include "testhost/TestUser.h"
#include "ui/ControlConstants.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kFirm = "O00001002";
constexpr const char* kDocs = "OIDR OType DocName Number Date Suma Debt Sign GID";

// The caption of each column, with " R" for a right-aligned one, by "|".
std::string Columns(const ListView& list) {
  Lines out;
  for (const auto& column : list.ColumnHeaders()) {
    out.push_back(column->Text() + (column->Alignment() == lvwColumnRight ? " R" : ""));
  }
  return Join(out, "|");
}

// "key|text|sub1;sub2|tag|icon" of each row; a bold sub-item is starred.
Lines RowsOf(const ListView& list) {
  Lines out;
  for (const auto& row : list.ListItems()) {
    std::string subs;
    for (const auto& sub : row->ListSubItems()) {
      if (sub->Index() > 1) subs += ";";
      subs += sub->Text() + (sub->Bold() ? "*" : "");
    }
    out.push_back(row->Key() + "|" + row->Text() + "|" + subs + "|" + ConcatText(row->Tag()) + "|" +
                  row->SmallIcon());
  }
  return out;
}

class FirmDetailListsTest : public FirmCardTest {
 protected:
  void SetUp() override {
    FirmCardTest::SetUp();
    // The branch tab is made for a firm that has branches.
    Reply("CheckBranch", "Exist", "1");
  }

  ListView& Tab(frmFirms& window, const std::string& key) { return Grid(window).TabList(key); }
  std::string Shown(frmFirms& window, const std::string& key) {
    return Join(RowsOf(Tab(window, key)), "\n");
  }

  void Period(const char* call, Variant::Array period) {
    host_.ObjectManager()->ReplyToCall(call, OrvelResult{0, "", Variant(std::move(period))});
  }
};

// Each row: the tab, the call, its fields (by blanks) and rows (a line a row),
// the columns, the list shown and the parameters sent. The window reads the
// short lists and a group's firms on opening.
TEST_F(FirmDetailListsTest, LoadersAskWithTheFirmsOidrAndShowTheirColumns) {
  for (const auto& [tab, call, fields, rows, columns, shown, sent] :
       {std::tuple{"Accounts", "GetAccounts", "OIDR Number BankName", "O00005007|LT12|~",
         "Numeris|Bankas", "O00005007|LT12|||", kFirm},
        {"FirmAddresses", "GetFirmADDRESSES",
         "OIDR AddressType Region PostCode Street Phone Fax EMail FlagMain",
         "O00020001|B|V|L|G|P|~|E|true\nO00020002|P|~|~|~|~|~|~|false",
         "Tipas|Regionas|Indeksas|Gatvė|Telefonas|Faksas|El. paštas|Pagrindinis",
         "O00020001|B|V;L;G;P;;E;Taip||\nO00020002|P|;;;;;;||", kFirm},
        {"FirmContacts", "GetFirmCONTACTS",
         "OIDR Name LastName Role Phone Fax EMail Note FlagMain", "O00021003|A|K|D|8|~|~|N|~",
         "Vardas|Pavarde|Pareigos|Telefonas|Faksas|El. paštas|Pastaba|Pagrindinis",
         "O00021003|A|K;D;8;;;N;||", kFirm},
        {"FirmBRANCH", "GetFirmBranch", "OIDR Name Code Region Street Tel Fax EMail",
         "O00016041|K|#12|R|S|8|~|~",
         "Pavadinimas|Kodas|Regionas|Gatvė|Telefonas|Faksas|El. paštas",
         "O00016041|K|12;R;S;8;;|O00016041|", kFirm},
        {"FirmServers", "GetFirmSERVERS", "OIDR Name", "O00024001|R", "Vadybininkas",
         "O00024001|R|||", kFirm},
        {"FirmActivity", "GetFirmActivity", "OIDR Preview", "O00025002|D",
         "Veiklos pavadinimas", "O00025002|D||O00025002|", kFirm},
        {"FirmInfo", "GetFirmInfo", "ID Info DateFrom DateTo UserName Priority",
         "17|S|@2026-01-05|~|admin|1", "Informacija|Galioja nuo|Galioja iki|Autorius",
         "17K|S|2026-01-05;;admin||", "'O00001002',0"},
        {"Discounts", "GetDiscounts",
         "OIDR DiscountTypeName VariantName SumFrom SumTo Percent GoodName Valid FirmName",
         "O10006001|S|V|50|500|2.5|~|true|F", "Pavadinimas|Variantas|Procentas||Įmonė",
         "O10006001|S|V (nuo:50, iki:500);2,5%;;F|O10006001|", kFirm},
        {"Traffic", "GetTraffic", kDocs, "O10002005|O1000200|P|N|@2026-03-02|1234.5|-100.0|-1|2",
         "Dok. grupė|Dok. Nr.|Data|Suma R|Skola R",
         "O10002005|P|N;2026-03-02;1234,50;100,00|O10002005|O1000200\n| | ; ; ;100,00*||",
         "'O00001002','2026-11-23','9999-12-31'"},
        // Contracts total without a sign.
        {"FirmContracts", "GetContractsList",
         "OIDR OType ContractNumber DateFrom DateTo SumA State Responsible",
         "O10010003|O1001000|S-1|@2026-01-01|~|-200|G|R\nO10010002|O1001000|S-2|~|~|50.255|~|~",
         "Numeris|Galioja nuo|Galioja iki|Suma R|Būklė|Vadybininkas",
         "O10010003|S-1|2026-01-01;;-200,00;G;R|O10010003|O1001000\n"
         "O10010002|S-2|;;50,26;;|O10010002|O1001000\n| | ; ;149,75*;;||", kFirm},
        {"Firms", "GetFirms", "OIDR Preview GroupFlag Code Street RegionName Tel Fax Director",
         "O00001004|V|1|~|~|~|~|~|~\nO00001002|U|0|#302|S|R|8|~|J",
         "Pavadinimas|Įm. kodas|Gatvė|Regionas|Telefonas|Faksas|Direktorius",
         "O00001004|V||O00001004|stdClose\nO00001002|U|302;S;R;8;;J|O00001002|C0000100",
         "O00001001"},
        {"GOODS", "GetFindGoods", "GOIDR DocOIDR OType GoodName Comment Number Date Amount OIDR",
         "O10001001.4|O10001001|O1000100|C|~|N|@2026-02-03|2.5|O00002009",
         "Prekės pavadinimas|Komentaras|Dok. Numeris|Data|Kiekis R",
         "O10001001.4|C|;N;2026-02-03;2,5|O10001001|O1000100", "'O00001002','cukr'"}}) {
    SCOPED_TRACE(tab);
    Reply(call, fields, rows);
    const std::string key = tab;
    auto w = adapter_->ClickMenu(key == "Firms" ? "O00001001" : kFirm, "", "0", "")
                 .Value.ObjectAs<frmFirms>();
    if (key == "GOODS") host_.HostClasses()->QueueObjectSelect("cukr");
    host_.WindowManager()->ShowWindow(w);
    if (key == "Traffic") w->LoadTraffic(true);
    if (key == "FirmContracts") w->mnuContractRefresh.Click();
    if (key == "GOODS") w->LoadGoods(true);
    Lines made = Calls(call);
    ASSERT_FALSE(made.empty()) << call;
    EXPECT_EQ(made.back(), sent);
    EXPECT_EQ(Columns(Tab(*w, tab)), columns);
    EXPECT_EQ(Shown(*w, tab), shown);
    EXPECT_EQ(host_.Ui()->GetMousePointer(), vbDefault);
    if (key == "Firms") {
      EXPECT_EQ(Tab(*w, "Firms").SmallIcons(), host_.MainForm()->ImgCatalogue());
    }
  }
}

// A new firm reads nothing, and its editors ask to save it first.
TEST_F(FirmDetailListsTest, ANewFirmShowsEmptyListsAndItsEditorsAskToSaveItFirst) {
  auto w = Open("O00001001", "1");
  using D = frmFirms::DetailList;
  for (D list : {D::Accounts, D::Addresses, D::Contacts, D::Managers, D::Activity}) {
    w->LoadDetail(list);
  }
  w->LoadFirmInfo();
  w->LoadDiscounts();
  EXPECT_THAT(BO("O0000100").Calls(), IsEmpty());
  EXPECT_EQ(Columns(Tab(*w, "FirmAddresses")) + "/" + Columns(Tab(*w, "Discounts")),
            "Tipas|Regionas|Indeksas|Gatvė|Telefonas|Faksas|El. paštas|Pagrindinis/");
  EXPECT_EQ(Tab(*w, "FirmAddresses").ListItems().Count(), 0);
  w->CurrentTab = w->AddressesTab;
  for (int box = 0; box < 3; ++box) host_.Ui()->QueueAnswer(vbOK);
  w->EditDetail(true);
  w->EditAccount(true);
  w->EditFirmInfo(true);
  EXPECT_EQ(Boxes(), Lines(3, "48 Apskaita Išsaugokite naujai sukurtą įmonę"));
}

// A failed read leaves the list empty and reports nothing; a cancelled goods
// search reads nothing.
TEST_F(FirmDetailListsTest, AFailedReadOrACancelledSearchShowsNothing) {
  BO("O0000100").FailCallsNamed("GetFirmCONTACTS", 5, "Serveris nepasiekiamas");
  auto w = Open(kFirm);
  w->LoadDetail(frmFirms::DetailList::Contacts);
  EXPECT_EQ(Tab(*w, "FirmContacts").ListItems().Count(), 0);
  EXPECT_THAT(host_.Ui()->Boxes(), IsEmpty());
  w->CurrentTab = w->GoodsTab;
  w->mnuPreview.Click();
  EXPECT_EQ(Tab(*w, "GOODS").ColumnHeaders().Item("Amount").Text(), "Kiekis");
  EXPECT_THAT(Calls("GetFindGoods"), IsEmpty());
  auto search = host_.HostClasses()->LastObjectSelect();
  EXPECT_EQ(search->ColumnCaption() + " " + search->OType(), "Prekės pavadinimas O0000200");
}

TEST_F(FirmDetailListsTest, DocumentsWaitBehindThePlaceholderUntilDoubleClicked) {
  Reply("GetTraffic", kDocs, "O10001001|O1000100|PVM sąskaita|PSF1|@2026-03-01|10|10|1|1");
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

// Each row: a right taken away ("" none), the documents and the list shown.
TEST_F(FirmDetailListsTest, RowsTotalsAndTagsByRight) {
  for (const auto& [denied, rows, shown] : {
        // What the firm owes and what we owe it cancel out: the total is 0.00.
        std::tuple{"", "O10001001|O1000100|D|#1|@2026-03-01|50|50|1|1\nO10002002|O1000200|D|#2|@20"
         "26-03-02|50|50|1|2\nO10002003|O1000200|D|#3|@2026-03-03|100|-100|1|2",
         "O10001001|D|1;2026-03-01;50,00;50,00|O10001001|O1000100\nO10002002|D|2;2026-03-02;50,00;"
         "50,00|O10002002|O1000200\nO10002003|D|3;2026-03-03;100,00;100,00|O10002003|O1000200\n| |"
         " ; ; ;0,00*||"},
        // A sign of -1 turns a debt around before it is added.
        {"", "O10002002|O1000200|D|#2|@2026-03-02|80|-80|-1|2\nO10001001|O1000100|D|#1|@2026-03-01"
         "|30|30|1|1",
         "O10002002|D|2;2026-03-02;80,00;80,00|O10002002|O1000200\nO10001001|D|1;2026-03-01;30,00;"
         "30,00|O10001001|O1000100\n| | ; ; ;110,00*||"},
        // Document groups answer to their lock right, the others to the
        // operation right; a row without the right shows but has no Tag.
        {"CDocumentGroupLock7", "O10001001|O1000100|D|#1|@2026-03-01|1|1|1|7\nO10002002|O1000200|D"
         "|#2|@2026-03-02|1|1|1|7",
         "O10001001|D|1;2026-03-01;1,00;1,00||O1000100\nO10002002|D|2;2026-03-02;1,00;1,00|O100020"
         "02|O1000200\n| | ; ; ;2,00*||"},
        // A repeated OIDR adds no row: its columns go into the row before.
        {"", "O10001001|O1000100|D|#1|@2026-03-01|1|1|1|1\nO10001001|O1000100|D|#9|@2026-03-09|2|2"
         "|1|1",
         "O10001001|D|1;2026-03-01;1,00;1,00;9;2026-03-09;2,00;2,00|O10001001|O1000100\n| | ; ; ;3"
         ",00*||"},
        // The business layer's summary row names no record: it is not opened.
        {"", "O0000000|O0000000|Iš viso||~|5|5|0|0",
         "O0000000|Iš viso|;;5,00;5,00||O0000000\n| | ; ; ;0,00*||"},
        {"", "", ""}}) {  // no documents, no total
    SCOPED_TRACE(rows);
    if (*denied) host_.Rights()->Deny(denied, TestRights::Right::Allowed);
    Reply("GetTraffic", kDocs, rows);
    auto w = Open(kFirm);
    w->LoadTraffic(true);
    EXPECT_EQ(Join(RowsOf(Tab(*w, "Traffic")), "\n"), shown);
  }
}

// The period gives the days; a new period reloads the documents, the same
// one does not.
TEST_F(FirmDetailListsTest, ThePeriodGivesTheDays) {
  for (const auto& [period, params] :
       {std::tuple{Variant::Array{DayOf(2026, 1, 1), DayOf(2026, 6, 30), Variant(30), Variant(true),
                                  Variant(0)},
                   "'O00001002','2026-01-01','2026-06-30'"},
        {{DayOf(2026, 1, 1), DayOf(2026, 6, 30), Variant(30), Variant(false), Variant(0)},
         "'O00001002','2026-10-24','9999-12-31'"},
        {Variant::Array{}, "'O00001002','2026-11-23','9999-12-31'"}}) {  // none from the host
    SCOPED_TRACE(params);
    Period("GetOldPeriod", period);
    auto w = Open(kFirm);
    w->LoadTraffic(true);
    EXPECT_THAT(Calls("GetTraffic"), ElementsAre(params));
  }
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

constexpr const char* kNotes = "ID Info DateFrom DateTo UserName Priority";

// The first note in force is shown in its colour, or not at all; an ordinary
// note keeps the line's colour and no notes hide it.
TEST_F(FirmDetailListsTest, TheFirstNoteInForceIsShownInItsColour) {
  for (const auto& [note, shown, color] :
       {std::tuple{"4|Mokėjimai vėluoja|@2026-01-01|~|admin|1", true, vbBlack},
        {"4|Mokėjimai vėluoja|@2026-01-01|@2026-11-23|admin|2", true, vbBlue},
        {"4|Mokėjimai vėluoja|@2026-01-01|@2027-01-01|admin|3", true, vbRed},
        {"4|Mokėjimai vėluoja|@2026-01-01|@2026-11-22|admin|2", false, vbBlue}}) {
    SCOPED_TRACE(note);
    Reply("GetFirmInfo", kNotes, note + std::string("\n9|Sena|@2025-01-01|@2025-02-01|rūta|3"));
    auto w = Open(kFirm);
    EXPECT_EQ(w->pnlLists.Top(), w->pnlInfo.Top() + (shown ? w->pnlInfo.Height() : 0));
    EXPECT_EQ(w->lblInfo.Visible() ? w->lblInfo.Caption() + std::to_string(w->lblInfo.ForeColor())
                                   : "",
              shown ? "Mokėjimai vėluoja (admin)" + std::to_string(color) : "");
    // Every note stays in the list, coloured by its priority.
    ListView& list = Tab(*w, "FirmInfo");
    ASSERT_EQ(list.ListItems().Count(), 2);
    EXPECT_EQ(list.ListItems().Item("4K").ForeColor() + list.ListItems().Item("9K").ForeColor(),
              color + vbRed);
    EXPECT_EQ(list.ListItems().Item("9K").ListSubItems().Item(2).Text(), "2025-02-01");
  }
  Reply("GetFirmInfo", kNotes, "4|A|@2026-01-01|~|admin|3");
  auto w = Open(kFirm);
  ASSERT_TRUE(w->lblInfo.Visible());
  Reply("GetFirmInfo", kNotes, "5|B|@2026-01-01|~|admin|1");
  w->LoadFirmInfo();
  EXPECT_EQ(w->lblInfo.Caption() + " " + std::to_string(w->lblInfo.ForeColor()), "B (admin) 255");
  Reply("GetFirmInfo", kNotes, "");
  w->LoadFirmInfo();
  EXPECT_FALSE(w->lblInfo.Visible());
  EXPECT_EQ(w->pnlLists.Top(), w->pnlInfo.Top());
}

// A row's VariantName|SumFrom|SumTo|GoodName|Valid, its variant and origin.
TEST_F(FirmDetailListsTest, VariantAndOrigin) {
  for (const auto& [row, variant, origin] :
       {std::tuple{"~|100|200|~|true", "", ""},
        {"Didmena|100|0||true", "Didmena (nuo:100)", ""},
        {"Didmena|100.5|500|~|true", "Didmena (nuo:100,5, iki:500)", ""},
        {"~|~|~|Statyba|true", "", "Paveldeta iš grupės:Statyba"},
        {"~|~|~|Statyba|false", "", "Paveldeta iš grupės:Statyba(negalioja)"},
        {"~|~|~|~|false", "", "(negalioja)"}}) {
    SCOPED_TRACE(row);
    Reply("GetDiscounts",
          "OIDR DiscountTypeName Percent FirmName VariantName SumFrom SumTo GoodName Valid",
          std::string("O10006001|N|5|Tiekėjai|") + row);
    auto w = Open(kFirm);
    EXPECT_EQ(Shown(*w, "Discounts"),
              "O10006001|N|" + std::string(variant) + ";5%;" + origin + ";Tiekėjai|O10006001|");
  }
}

// The detail dialog, scripted: it notes what it was given and answers.
class ScriptedDetailDialogs : public DetailDialog {
 public:
  bool Edit(const std::shared_ptr<OrvelObjectUIO>& detail, const std::string& caption,
            const std::string& msgTitle) override {
    seen += detail->OIDR() + " FirmID=" + ConcatText(detail->Fields("FirmID").Value()) + " " +
            caption + " / " + msgTitle;
    return save;
  }
  bool save = true;
  std::string seen;
};

// The row's record or a new one, reloaded when saved; with no row selected
// nothing opens.
TEST_F(FirmDetailListsTest, EditorsOpenTheRowOrANewRecordAndReloadWhenSaved) {
  auto dialogs = std::make_shared<ScriptedDetailDialogs>();
  InstallDetailDialog(dialogs);
  for (const auto& [tab, otype, call, isNew, caption] :
       {std::tuple{"FirmAddresses", "O0002000", "GetFirmADDRESSES", true, "Naujas adresas"},
        {"FirmAddresses", "O0002000", "GetFirmADDRESSES", false, "Adresai"},
        {"FirmContacts", "O0002100", "GetFirmCONTACTS", true, "Naujas kontaktas"},
        {"FirmServers", "O0002400", "GetFirmSERVERS", false,
         "Vadybininkas atsakingas už įmonės aptarnavimą"},
        {"FirmServers", "O0002400", "GetFirmSERVERS", true,
         "Naujas vadybininkas atsakingas už įmonės aptarnavimą"},
        {"FirmActivity", "O0002500", "GetFirmActivity", true, "Nauja veiklos rūšis"}}) {
    SCOPED_TRACE(std::string(tab) + (isNew ? " new" : ""));
    auto& table = BO(otype).Table();
    table.SetFields({"ID", "Name", "FirmID"});
    table.Seed({{{"Name", Variant("Esamas")}, {"FirmID", Variant(2)}}});
    // One row that every detail list can read.
    Reply(call, "OIDR Name Preview AddressType LastName Role Region Street",
          std::string(otype) + "1|x|x|x|x|x|x|x");
    auto w = Open(kFirm);
    w->CurrentTab = static_cast<int16_t>(TabIndex(*w, tab) + 1);
    dialogs->seen.clear();
    for (const bool save : {true, false}) {
      Tab(*w, tab).SetSelectedItem(&Tab(*w, tab).ListItems().Item(1));
      dialogs->save = save;
      w->EditDetail(isNew);
    }
    const std::string once = (isNew ? "" : std::string(otype) + "1") + " FirmID=2 UAB Šilas: " +
                             caption + " / Apskaita";
    EXPECT_EQ(dialogs->seen, once + once);
    EXPECT_EQ(Calls(call).size(), 1u) << "only the saved edit reloads";
  }
  dialogs->seen.clear();
  auto w = Open(kFirm);
  w->CurrentTab = w->ContactsTab;
  w->EditDetail(false);
  w->EditAccount(false);
  w->EditFirmInfo(false);
  InstallDetailDialog(nullptr);
  EXPECT_EQ(dialogs->seen, "");
  EXPECT_THAT(host_.Ui()->Boxes(), IsEmpty());
  EXPECT_EQ(host_.Ui()->PendingModalScripts(), 0u);
}

// An account's dialog: a new one belongs to the firm and reloads the list; a
// failed write is shown and the dialog stays.
TEST_F(FirmDetailListsTest, TheAccountDialogWritesUnderTheFirm) {
  auto& table = BO("O0000500").Table();
  table.SetFields({"ID", "Name", "BankID", "FOIDR"});
  table.Seed({{{"Name", Variant("LT01")}, {"FOIDR", Variant(kFirm)}}});
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
  EXPECT_EQ(table.Value(2, "FOIDR"), Variant(kFirm));
  EXPECT_EQ(table.Value(2, "Name"), Variant("LT02"));
  EXPECT_THAT(Calls("GetAccounts"), ElementsAre(kFirm));

  Reply("GetAccounts", "OIDR Number BankName", "O00005001|LT01|Swedbank");
  BO("O0000500").FailCallsNamed("Orvel_SaveObject", 17, "Numeris kartojasi");
  w = Open(kFirm);
  ListView& list = Tab(*w, "Accounts");
  list.SetSelectedItem(&list.ListItems().Item(1));
  std::string seen;
  host_.Ui()->QueueModal([&](Form& form) {
    auto& dialog = dynamic_cast<frmAccounts&>(form);
    dialog.cmdEnter.Click();
    seen = dialog.Caption() + (dialog.Visible() ? " stays" : "");
    dialog.cmdCancel.Click();
    seen += dialog.Saved ? " saved" : "";
  });
  host_.Ui()->QueueAnswer(vbOK);
  Grid(*w).DoubleClickList(w->AccountsTab - 1);
  EXPECT_EQ(seen, "UAB Šilas: Atsiskaitomoji sąskaita stays");
  EXPECT_THAT(Boxes(), ElementsAre("16 Apskaita Klaida!\n\nNumeris kartojasi"));
  EXPECT_THAT(Calls("GetAccounts"), IsEmpty());
}

// "ID|text|from|to|priority|colour" of the dialog, the colour of the text and
// of its sample by "/".
std::string Describe(frmFirmInfo& d) {
  return std::to_string(d.ID) + "|" + d.txtInfo.Text() + "|" + ConcatText(d.dtpDateFrom.Value()) +
         "|" + ConcatText(d.dtpDateTo.Value()) + "|" + d.imcPriority.Text() + "|" +
         std::to_string(d.txtInfo.ForeColor()) + "/" + std::to_string(d.lblColor.ForeColor());
}

using FrmFirmInfoTest = FirmDetailListsTest;

// A new note starts today without an end; the start bounds the end and, moved
// past it, moves it along. It is written under ID 0, and the list is read again.
TEST_F(FrmFirmInfoTest, ANewNoteStartsTodayAndItsStartBoundsTheEnd) {
  auto w = Open(kFirm);
  host_.Ui()->QueueModal([](Form& form) {
    auto& dialog = dynamic_cast<frmFirmInfo&>(form);
    EXPECT_EQ(dialog.Caption(), "Įmonės informacija");
    EXPECT_EQ(Describe(dialog), "0||2026-11-23||Svarbi informacija|0/0");
    ASSERT_EQ(dialog.imcPriority.ComboItems().Count(), 3);
    dialog.txtInfo.Edit("  Skambinti 'rytoj'  ");
    dialog.imcPriority.Pick(dialog.imcPriority.ComboItems().Item(2));
    EXPECT_EQ(dialog.txtInfo.ForeColor(), vbBlue);  // the pick recolours
    EXPECT_TRUE(dialog.dtpDateTo.Pick(DayOf(2026, 12, 1)));
    EXPECT_FALSE(dialog.dtpDateTo.Pick(DayOf(2026, 11, 22)));
    EXPECT_EQ(dialog.dtpDateTo.Value(), DayOf(2026, 12, 1));
    EXPECT_TRUE(dialog.dtpDateFrom.Pick(DayOf(2027, 1, 10)));
    EXPECT_EQ(dialog.dtpDateTo.MinDate(), DateSerial(2027, 1, 10));
    EXPECT_EQ(dialog.dtpDateTo.Value(), DayOf(2027, 1, 10));
    EXPECT_TRUE(dialog.dtpDateFrom.Pick(DayOf(2026, 11, 1)));  // the end stays
    dialog.cmdWrite.Click();
  });
  w->EditFirmInfo(true);
  EXPECT_THAT(Calls("AddUpdateFirmInfo"),
              ElementsAre("0,'Skambinti \"rytoj\"','20261101','20270110',2,1,2"));
  EXPECT_EQ(Calls("GetFirmInfo").size(), 1u);
}

// A stored note opens in its priority and colour. One another user removed
// meanwhile ("gone") opens as a new one. Cancel writes and reloads nothing; a
// failed write still closes as saved, and reloads. Each row: the notes, the
// row opened ("" a new note), the text typed, whether it is written, the
// dialog as opened and closed, the write and the reads (the dialog reads a
// stored note itself).
TEST_F(FrmFirmInfoTest, TheDialogOpensTheNoteAndWritesIt) {
  const std::string stored = "17|Mokėjimai vėluoja|@2026-01-05|@2026-12-31|admin|";
  const std::string old = "17|Mokėjimai vėluoja|2026-01-05|2026-12-31|";
  const std::string blank = "0||2026-11-23||Svarbi informacija|0/0";
  host_.User()->SetRs(TextRecords("ID", "3"));
  for (const auto& [notes, key, typed, write, shown, written, reads] :
       {std::tuple{stored + "1\n18|Kita|@2026-02-01|~|admin|1", "17K", "", true,
                   old + "Svarbi informacija|0/0 saved",
                   "17,'Mokėjimai vėluoja','20260105','20261231',2,3,1", 2u},
        {stored + "2", "17K", "", true, old + "Ypatingai svarbi informacija|16711680/16711680"
         " saved",
         "17,'Mokėjimai vėluoja','20260105','20261231',2,3,2", 2u},
        {stored + "3", "17K", "", true, old + "Įspėjamoji informacija|255/255 saved",
         "17,'Mokėjimai vėluoja','20260105','20261231',2,3,3", 2u},
        {"17|Sena|@2026-01-05|~|admin|3", "gone", "Nauja", true, blank + " saved",
         "0,'Nauja','20261123',Null,2,3,1", 2u},
        {"", "", "Neįrašyti", false, blank, "", 0u},
        {"", "fails", "Bet kas", true, blank + " saved", "0,'Bet kas','20261123',Null,2,3,1",
         1u}}) {
    SCOPED_TRACE(std::string(key) + " " + written);
    const std::string row = key;
    BO("O0000100").ClearFailures();
    Reply("GetFirmInfo", kNotes, notes);
    if (row == "fails") BO("O0000100").FailCallsNamed("AddUpdateFirmInfo", 5, "Klaida serveryje");
    auto w = Open(kFirm);
    if (row == "17K" || row == "gone") SelectRow(*w, "FirmInfo", "17K");
    if (row == "gone") Reply("GetFirmInfo", kNotes, "");
    std::string seen;
    host_.Ui()->QueueModal([&, typed = typed, write = write](Form& form) {
      auto& dialog = dynamic_cast<frmFirmInfo&>(form);
      seen = Describe(dialog);
      if (*typed) dialog.txtInfo.Edit(typed);
      (write ? dialog.cmdWrite : dialog.cmdCancel).Click();
      seen += std::string(dialog.Saved ? " saved" : "") + (dialog.Loaded() ? " stays" : "");
    });
    w->EditFirmInfo(row != "17K" && row != "gone");
    EXPECT_EQ(seen, shown);
    EXPECT_EQ(Join(Calls("AddUpdateFirmInfo"), "\n"), written);
    EXPECT_EQ(Calls("GetFirmInfo").size(), reads);
    EXPECT_THAT(host_.Ui()->Boxes(), IsEmpty());
  }
}

TEST_F(FrmFirmInfoTest, TheMethodHandsBackTheIdTheDialogEndedWith) {
  auto firm = adapter_->GetOrvelObject(kFirm);
  ASSERT_NE(firm, nullptr);
  Variant::Array params{Variant(17)};  // no such note
  host_.Ui()->QueueModal([](Form& form) { dynamic_cast<frmFirmInfo&>(form).cmdCancel.Click(); });
  OrvelResult shown = firm->Methods("ShowFirmInfo", params);
  EXPECT_EQ(shown.Value, Variant(false));
  EXPECT_EQ(params[0], Variant(0));

  // A firm not saved yet shows no dialog.
  auto fresh = adapter_->GetOrvelObject("");
  ASSERT_NE(fresh, nullptr);
  Variant::Array none{Variant(0)};
  EXPECT_TRUE(fresh->Methods("ShowFirmInfo", none).Value.IsEmpty());
  EXPECT_EQ(host_.Ui()->PendingModalScripts(), 0u);
}

}  // namespace
}  // namespace orvel
