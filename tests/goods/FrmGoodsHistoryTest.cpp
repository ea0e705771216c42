#include <gtest/gtest.h>

#include "goods/GoodsDialogs.h"
#include "goods/frmGoodsHistory.h"
#include "orvel/ImageList.h"
#include "orvel/OrvelMainForm.h"
#include "support/ModuleTest.h"
#include "support/StubObjectUI.h"
#include "support/TextRecords.h"
#include "testhost/TestMainForm.h"
#include "testhost/TestEnvironment.h"
#include "testhost/TestRights.h"
#include "testhost/TestServices.h"
#include "testhost/TestWindowManager.h"

namespace orvel {
namespace {

// An image list that knows its keys, as a host's may: the sales' one only.
class KeyedImages : public ImageList {
 public:
  bool HasImage(std::string_view key) const override { return key == "O0012000"; }
};

class KeyedMainForm : public OrvelMainForm {
 public:
  std::shared_ptr<Object> ImgCatalogue() override { return images; }
  std::shared_ptr<Object> images = std::make_shared<KeyedImages>();
};

// The type adapter of the documents: notes what goes to the desktop.
class DocumentsUI : public StubObjectUI {
 public:
  bool AddToDeskTopOrvelObject(const std::string& oidr) override {
    desktop.push_back(oidr);
    return true;
  }
  std::vector<std::string> desktop;
};

constexpr const char* kFields =
    "Name OIDR OType Sign Number Date Addressee Amount Measure CurrencyRate CODE Price Suma LName";
constexpr const char* kSale =
    "Pardavimas|O00120015|O0012000|1|PR-15|@2026-11-23|UAB Rytas|2.5|vnt.|~|LTL|2.0|10.0|Centrinis";

// Movements, each a sale of 2.5 in the base currency with the fields in its changes
// ("name=value;...") put in.
std::shared_ptr<MemoryRecordset> Movements(const std::vector<std::string>& changes) {
  auto rs = TextRecords(kFields, std::vector<std::string>(changes.size(), kSale));
  for (const auto& change : changes) {
    for (const auto& [name, value] : Assignments(change)) rs->Fields(name).SetValue(value);
    rs->MoveNext();
  }
  rs->MoveFirst();
  return rs;
}

class FrmGoodsHistoryTest : public ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    // Services with a main window whose image list knows its keys; stored
    // first, so the adapters keep them.
    mainForm_ = std::make_shared<KeyedMainForm>();
    SetOrvelS(std::make_shared<TestServices>(mainForm_, host_.ObjectManager(),
                                             host_.WindowManager(), host_.Rights(),
                                             host_.Environment()));
    documents_ = std::make_shared<DocumentsUI>();
    host_.SetAdapterSource([this](const std::string& oid) -> std::shared_ptr<OrvelObjectUI> {
      if (oid == "O0012001") return documents_;
      return std::dynamic_pointer_cast<OrvelObjectUI>(ClassFactory::Create("UI" + oid.substr(1)));
    });
    auto& goods = BO("O0000200").Table();
    goods.SetFields({"ID", "Name", "GroupFlag", "ParentID"});
    goods.SetDefault("ParentID", Variant::Null());
    goods.Seed({{{"Name", Variant("Duona")}, {"GroupFlag", Variant(0)}}});
    good_ = Adapter("O0000200")->GetOrvelObject("O00002001");
    ASSERT_NE(good_, nullptr);
  }

  void TearDown() override {
    InstallGoodsDialogs(nullptr);
    ModuleTest::TearDown();
  }

  void Reply(const std::vector<std::string>& changes) {
    BO("O0000200").ReplyRead("GetGoodHistory", Movements(changes));
  }

  std::unique_ptr<frmGoodsHistory> Open(int32_t goodId = 15) {
    auto w = std::make_unique<frmGoodsHistory>();
    w->OrvelObjectUIO = good_;
    w->GoodID = goodId;
    host_.Log().Clear();
    w->Show();
    return w;
  }

  static std::vector<std::string> Cells(const ListItem& row) {
    std::vector<std::string> cells{row.Text()};
    for (const auto& sub : row.ListSubItems()) cells.push_back(sub->Text());
    return cells;
  }

  std::shared_ptr<KeyedMainForm> mainForm_;
  std::shared_ptr<DocumentsUI> documents_;
  std::shared_ptr<OrvelObjectUIO> good_;
};

TEST_F(FrmGoodsHistoryTest, LoadSetsTheThirteenColumnsTheWidthAndTheIconsUnderTheHourglass) {
  Reply({});
  host_.Ui()->SetScreenWidth(15360);
  auto w = Open();
  std::vector<std::string> columns;
  for (const auto& c : w->lswHistory.ColumnHeaders()) {
    columns.push_back(c->Text() + " " + std::to_string(c->Width()) +
                      (c->Alignment() == lvwColumnRight ? " R" : ""));
  }
  EXPECT_EQ(Join(columns, "|"),
            "Dok. grupė 2000|Dok. Nr. 1000|Data 1200|Tiekėjas/Gavėjas 2000|Kiekis 1000 R|"
            "M.vnt. 700|Kaina 1000 R|Suma 1000 R|Sandėlis 2000|Valiuta 700|Kursas 1000|"
            "Kaina val. 1440|Suma val. 1440");
  EXPECT_EQ(w->Caption() + "|" + w->cmdClose.Caption() + "|" + std::to_string(w->Width),
            "Istorija|Uždaryti|14360");
  EXPECT_EQ(w->lswHistory.SmallIcons(), mainForm_->images);
  EXPECT_EQ(host_.Ui()->MousePointers(), (std::vector<int32_t>{vbHourglass, vbDefault}));
  w->Form_Resize(12000);
  EXPECT_EQ(w->lswHistoryWidth, 12000 - 2 * 120 - 100);
  w->Form_Resize(100);
  EXPECT_EQ(w->lswHistoryWidth, 0);
}

TEST_F(FrmGoodsHistoryTest, AsksOnceAndRowsCarryNumberedKeysTheDocumentAndItsFieldsAsTheyStand) {
  Reply({"", "OIDR=O00120016"});
  auto w = Open(-7);
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall GetGoodHistory -7"});
  auto& rows = w->lswHistory.ListItems();
  ASSERT_EQ(rows.Count(), 2);
  EXPECT_EQ(rows.Item(1).Key() + " " + rows.Item(2).Key() + " " + ConcatText(rows.Item(2).Tag()),
            "1_K 2_K O00120016");
  EXPECT_EQ(Join(Cells(rows.Item(1)), "|"),
            "Pardavimas|PR-15|2026-11-23|UAB Rytas|2,5|vnt.|2,00|10,00|Centrinis| | | | ");
  // Loaded again, the window starts over instead of doubling its rows.
  w->Unload();
  w->Show();
  EXPECT_EQ(std::pair(rows.Count(), w->lswHistory.ColumnHeaders().Count()), std::pair(2, 13));
}

// CurrencyRate, CODE, Price and Suma given; Kaina, Suma, Valiuta, Kursas, Kaina val. and
// Suma val. shown, joined by "|".
struct MoneyCase {
  const char *name, *money, *cells;
  bool invariant = false;
};

TEST_F(FrmGoodsHistoryTest, ShowsTheBaseAndTheDocumentCurrency) {
  for (const MoneyCase& c : std::initializer_list<MoneyCase>{
           {"BaseKeepsItsFiguresWhateverTheRate", "CurrencyRate=3.45", "2,00|10,00| | | | "},
           {"NoRateIsUnmultipliedWhateverTheCode", "CODE=EUR", "2,00|10,00| | | | "},
           {"ForeignIsMultipliedAndShownInItsOwnCurrency", "CurrencyRate=3.45;CODE=EUR",
            "6,90|34,50|EUR|3,45|2,00|10,00"},
           {"TheCodeComparesExactly", "CurrencyRate=2.0;CODE=ltl;Price=1.0;Suma=1.0",
            "2,00|2,00|ltl|2|1,00|1,00"},
           {"PriceKeepsUpToEightDecimals", "Price=0.12345678;Suma=0.125",
            "0,12345678|0,13| | | | "},
           {"PriceRoundsItsNinthDecimal", "Price=0.66666666666666663;Suma=-2.675",
            "0,66666667|-2,68| | | | "},
           {"TheProductRoundsAsItReads",
            "CurrencyRate=0.5;CODE=USD;Price=1.23456789;Suma=1234567.5",
            "0,61728395|617283,75|USD|0,5|1,23456789|1234567,50"},
           {"NullFiguresShowNothing", "CurrencyRate=4.0;CODE=EUR;Price=~;Suma=~", "||EUR|4||"},
           {"InvariantSeparator", "CurrencyRate=3.45;CODE=EUR", "6.90|34.50|EUR|3.45|2.00|10.00",
            true}}) {
    SCOPED_TRACE(c.name);
    if (c.invariant) host_.Ui()->SetLocale(Locale::Invariant());
    Reply({c.money});
    auto w = Open();
    ASSERT_EQ(w->lswHistory.ListItems().Count(), 1);
    auto cells = Cells(w->lswHistory.ListItems().Item(1));
    std::string money = cells[6];
    for (size_t column : {8, 10, 11, 12, 13}) money.append("|").append(cells[column - 1]);
    EXPECT_EQ(money, c.cells);
  }
  // Only signs zero and two are bold.
  for (const std::string sign : {"0", "2", "2.0", "1", "-2", "3", "~"}) {
    Reply({"Sign=" + sign});
    auto w = Open();
    ASSERT_EQ(w->lswHistory.ListItems().Count(), 1);
    EXPECT_EQ(w->lswHistory.ListItems().Item(1).Bold(), sign == "0" || sign[0] == '2') << sign;
  }
}

TEST_F(FrmGoodsHistoryTest, ATypeWithoutAnIconLeavesOnlyThatRowWithoutOne) {
  auto rs = Movements({"", "OType=O9999900", "OType=~", "OType=", "", ""});
  for (int row = 1; row < 5; ++row) rs->MoveNext();
  rs->Fields("OType").SetValue(Variant(Variant::Array{Variant(1)}));  // a list is no key
  BO("O0000200").ReplyRead("GetGoodHistory", rs);
  auto w = Open();
  std::vector<std::string> icons;
  for (const auto& row : w->lswHistory.ListItems()) icons.push_back(row->SmallIcon());
  EXPECT_EQ(icons, (std::vector<std::string>{"O0012000", "", "", "", "", "O0012000"}));
  EXPECT_EQ(Cells(w->lswHistory.ListItems().Item(2))[1], "PR-15");
  // An image list that cannot tell takes every key.
  mainForm_->images = host_.MainForm()->ImgCatalogue();
  Reply({"OType=O9999900"});
  EXPECT_EQ(Open()->lswHistory.ListItems().Item(1).SmallIcon(), "O9999900");
}

// A failed call, a record whose price is no number after a good one, a set that lacks the
// history's fields: the whole rows before stay, so does the window, and only a fault in the rows
// is reported. Without an object nothing is asked.
TEST_F(FrmGoodsHistoryTest, AFaultKeepsTheWholeRowsBeforeAndTheWindow) {
  for (const auto& [reply, rows, box] :
       std::initializer_list<std::tuple<OrvelBoResult, int, const char*>>{
           {OrvelBoResult(5, "nėra"), 0, ""},
           {OrvelBoResult(0, "", Movements({"", "Price=abc", ""})), 1,
            "16 Klaida!\nNetinkamas tipas: CDbl negali paversti String 'abc'"},
           {OrvelBoResult(0, "", TextRecords("Name OIDR", {"Pardavimas|O00120015"})), 0,
            "16 Klaida!\nKolekcijoje nėra elemento: OType"}}) {
    SCOPED_TRACE(box);
    host_.Ui()->ClearBoxes();
    BO("O0000200").ReplyRead("GetGoodHistory", reply);
    if (*box) host_.Ui()->QueueAnswer(vbOK);
    auto w = Open();
    EXPECT_EQ(w->lswHistory.ListItems().Count(), rows);
    EXPECT_EQ(w->lswHistory.ColumnHeaders().Count(), 13);
    EXPECT_EQ(Join(BoxLines(*host_.Ui(), false), "|"), box);
    EXPECT_EQ(host_.Ui()->MousePointers().back(), vbDefault);
    EXPECT_TRUE(w->Visible());
  }
  auto bare = std::make_unique<frmGoodsHistory>();
  host_.Log().Clear();
  bare->Show();
  EXPECT_EQ(bare->lswHistory.ListItems().Count(), 0);
  EXPECT_TRUE(BusinessLines().empty());
}

TEST_F(FrmGoodsHistoryTest, TheRightButtonOnASelectedRowOffersTheDesktopThenCloseUnloads) {
  Reply({"", "OIDR=O00120016"});
  auto w = Open();
  w->lswHistory.MouseUp(vbRightButton);
  w->mnuToDesktop.Click();
  EXPECT_TRUE(documents_->desktop.empty());
  w->lswHistory.ItemClick(w->lswHistory.ListItems().Item(2));
  w->lswHistory.MouseUp(vbLeftButton);
  host_.Ui()->QueuePopupPick("mnuToDesktop");
  w->lswHistory.MouseUp(vbRightButton);
  ASSERT_EQ(host_.Ui()->Popups().size(), 1u);
  EXPECT_EQ(host_.Ui()->Popups()[0].menu + " " + Join(host_.Ui()->Popups()[0].shown, " "),
            "mnuMain mnuToDesktop");
  EXPECT_EQ(documents_->desktop, std::vector<std::string>{"O00120016"});
  w->cmdClose.Click();
  EXPECT_FALSE(w->Loaded());
}

// Dialogs that refine another entry only.
class SettingsOnlyDialogs : public GoodsDialogs {
 public:
  bool EditListSettings(std::string&) override { return true; }
};

TEST_F(FrmGoodsHistoryTest, TheHistoryEntryOpensTheWindowModallyOnTheGood) {
  Reply({"", ""});
  for (const bool installed : {false, true}) {
    if (installed) InstallGoodsDialogs(std::make_shared<SettingsOnlyDialogs>());
    int shownRows = -1;
    host_.Ui()->QueueModal([&](Form& form) {
      shownRows = dynamic_cast<frmGoodsHistory&>(form).lswHistory.ListItems().Count();
    });
    host_.Log().Clear();
    CurrentGoodsDialogs().ShowGoodsHistory(good_, 15);
    EXPECT_EQ(Join(host_.Log().Lines(Channel::Window), "|") + " " + Join(BusinessLines(), "|") +
                  " " + std::to_string(shownRows),
              "ShowModal frmGoodsHistory GetCall GetGoodHistory 15 2");
  }
}

}  // namespace
}  // namespace orvel
