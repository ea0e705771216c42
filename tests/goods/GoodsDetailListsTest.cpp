#include <gtest/gtest.h>

#include "goods/GoodsCardFixture.h"
#include "ui/ListItem.h"
#include "ui/ListSubItem.h"

namespace orvel {
namespace {

std::vector<std::string> Cells(const ListItem& row) {
  std::vector<std::string> cells{row.Text()};
  for (const auto& cell : row.ListSubItems()) cells.push_back(cell->Text());
  return cells;
}

class GoodsListsTest : public GoodsCardTest {
 protected:
  // Purchases 1 (cost 100) and 3 (cost 60); sales 2 and 5 of purchase 1,
  // 4 of purchase 3, 6 of none; the summary row. Sale 2 is in EUR at 2,
  // purchase 1 in the base currency with a rate.
  void SetUp() override {
    GoodsCardTest::SetUp();
    rs_ = TextRecords(
        "OIDR OType SaleID ID DocName Number Date Addressee Amount Measure Price Suma Comment "
        "LName CODE CurrencyRate SourcerName Cost Sign PurchDate PurchaseID",
        {"O00003001|PURCHASE|11|1|Pirkimas|D1|@2026-01-05|UAB Šilas|10.0|vnt.|10.0|100.0|~|"
         "Centrinis|LTL|3.4528|Tiekėjas|100.0|0|@2026-01-05|1",
         "O00003002|SALE|12|2|Pardavimas|D2|@2026-02-01|UAB Šilas|3.0|vnt.|15.0|45.0|~|Centrinis|"
         "EUR|2|Tiekėjas|30.0|1|@2026-01-05|1",
         "O00003003|PURCHASE|13|3|Pirkimas|D3|@2026-01-10|UAB Šilas|5.0|vnt.|12.0|60.0|~|"
         "Centrinis|LTL|~|Tiekėjas|60.0|0|@2026-01-10|3",
         "O00003004|SALE|14|4|Pardavimas|D4|@2026-03-01|UAB Šilas|2.0|vnt.|14.0|28.0|~|Centrinis|"
         "LTL|~|Tiekėjas|24.0|1|@2026-01-10|3",
         "O00003005|SALE|15|5|Pardavimas|D5|@2026-01-20|UAB Šilas|2.0|vnt.|15.0|30.0|~|Centrinis|"
         "LTL|~|Tiekėjas|20.0|1|@2026-01-05|1",
         "O00003006|SALE|16|6|Pardavimas|D6|@2026-04-01|UAB Šilas|1.0|vnt.|15.0|15.0|~|Centrinis|"
         "LTL|~|Tiekėjas|5.0|1|~|0",
         "O0000000|~|~|~|Iš viso|~|~|~|7|vnt.|~|~|~|~|~|~|~|~|2|~|~"});
    BO("O0000200").ReplyRead("GetTraffic", rs_);
  }

  ListView& Traffic(frmGoods& w) { return Grid(w).TabList("Traffic"); }

  // The user asks for the list by double-clicking the placeholder row.
  void Fetch(frmGoods& w) {
    ListView& list = Traffic(w);
    list.SetSelectedItem(&list.ListItems().Item("more"));
    Grid(w).DoubleClickList(w.TrafficTab - 1);
  }

  std::vector<std::string> Tags(ListView& list) {
    std::vector<std::string> tags;
    for (const auto& row : list.ListItems()) {
      tags.push_back(row->Key() == "O0000000" ? "sum" : ConcatText(row->Tag()));
    }
    return tags;
  }

  std::shared_ptr<MemoryRecordset> rs_;
};

Variant PeriodOf(const char* from, const char* to, int daysBack, bool useDates) {
  return Variant(Variant::Array{Variant(*ParseDate(from)), Variant(*ParseDate(to)),
                                Variant(daysBack), Variant(useDates), Variant("")});
}

TEST_F(GoodsListsTest, TheListIsAskedForOnlyItsParamsCarryTheGoodAndThePeriod) {
  for (const auto& [period, params] :
       {std::pair{PeriodOf("2026-01-01", "2026-06-30", 5, true),
                  "'O00002002','2026-01-01','2026-06-30'"},
        {PeriodOf("2026-01-01", "2026-06-30", 30, false), "'O00002002','2026-10-24','9999-12-31'"},
        {Variant(), "'O00002002','2026-11-23','9999-12-31'"}}) {
    SCOPED_TRACE(params);
    host_.ObjectManager()->ReplyToCall("GetOldPeriod", OrvelResult{0, "", period});
    auto w = Open("O00002002");
    // A first open shows only the placeholder row, on the rests too, and asks nothing.
    ListView& list = Traffic(*w);
    const ListItem& more = list.ListItems().Item(1);
    EXPECT_EQ(more.Key() + "|" + more.Text() + "|" + std::to_string(more.ListSubItems().Count()) +
                  "|" + std::to_string(list.ListItems().Count()) + "|" +
                  list.ColumnHeaders().Item(list.ColumnHeaders().Count()).Text() + "|" +
                  Grid(*w).TabList("Rests").ListItems().Item(1).Key(),
              "more|Atnaujinkite... |14|1|Lik.Suma/Savikaina|more");
    EXPECT_EQ(list.ColumnHeaders().Count(), 16);
    EXPECT_TRUE(BO("O0000200").Calls("GetTraffic").empty());
    Fetch(*w);
    auto calls = BO("O0000200").Calls("GetTraffic");
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].param, params);
  }
}

// A value that cannot be read (purchase 3's price and cost) leaves its cell blank, or goes
// through a number mask as it is, and the list goes on.
TEST_F(GoodsListsTest, ByDateNewestFirstWithTheSummaryLast) {
  rs_->MoveFirst();
  rs_->MoveNext();
  rs_->MoveNext();
  rs_->Fields("Price").SetValue(Variant("nėra"));
  rs_->Fields("Cost").SetValue(Variant("?"));
  auto w = Open("O00002002");
  Fetch(*w);
  ListView& list = Traffic(*w);
  EXPECT_EQ(Tags(list), (std::vector<std::string>{"O00003006", "O00003004", "O00003002",
                                                  "O00003005", "O00003003", "O00003001", "sum"}));
  EXPECT_EQ(list.ListItems().Item(1).Key(), "16_K1");
  // Sale 2 in EUR: base figures at the rate, then the document's own.
  EXPECT_EQ(Join(Cells(list.ListItems().Item(3)), "|"),
            "Pardavimas|D2|2026-02-01|UAB Šilas|3|vnt.|30,00|90,00||Centrinis|EUR|2|15,00|45,00|"
            "Tiekėjas|30,00");
  // The base currency keeps its figures even with a rate.
  EXPECT_EQ(Cells(list.ListItems().Item(6))[6] + Cells(list.ListItems().Item(6))[10], "10,00 ");
  const auto cells = Cells(list.ListItems().Item(5));
  EXPECT_EQ(cells[6] + "|" + cells[7] + "|" + cells[14] + "|" + cells[15], "|60,00|Tiekėjas|?");
  EXPECT_EQ(Join(Cells(list.ListItems().Item("O0000000")), "|"),
            "| | |Iš viso|7|vnt.| | | | | | | | ");
  EXPECT_TRUE(list.ListItems().Item("O0000000").Bold());
  EXPECT_EQ(list.ListItems().Item(1).SmallIcon(), "SALE");
  EXPECT_EQ(host_.Ui()->GetMousePointer(), 0);
}

TEST_F(GoodsListsTest, ByPurchaseEachPurchaseEndsWithWhatIsLeft) {
  auto w = Open("O00002002");
  Fetch(*w);
  w->mnuByPurch_Click();
  ListView& list = Traffic(*w);
  EXPECT_EQ(Tags(list), (std::vector<std::string>{"O00003001", "O00003005", "O00003002",
                                                  "O00003003", "O00003004"}));
  // Per row: bold, bold number, the last column, the icon and the number's icon. Sales
  // stand one step in: their icon moves to the document number.
  std::vector<std::string> rows;
  for (int i : {1, 2, 4}) {
    const ListItem& row = list.ListItems().Item(i);
    rows.push_back(std::to_string(row.Bold()) + std::to_string(row.ListSubItems().Item(1).Bold()) +
                   " " + row.ListSubItems().Item(15).Text() + " " + row.SmallIcon() + " " +
                   row.ListSubItems().Item(1).ReportIcon());
  }
  EXPECT_EQ(Join(rows, "|"), "11 50 PURCHASE |00 20,00  SALE|11 36 PURCHASE ");
  // The kept lines were sorted again: no second call.
  EXPECT_EQ(BO("O0000200").Calls("GetTraffic").size(), 1u);

  w->mnuByPurch_Click();
  EXPECT_EQ(BO("O0000200").Calls("GetTraffic").size(), 2u);
  EXPECT_EQ(Traffic(*w).ListItems().Count(), 7);
}

TEST_F(GoodsListsTest, WithoutRestsSummaryAndStoreAreLeftOutAndAnEmptyAnswerLeavesNoRows) {
  auto w = Open("O00002003");
  Fetch(*w);
  ListView& list = Traffic(*w);
  EXPECT_EQ(std::pair(list.ColumnHeaders().Count(), list.ListItems().Count()), std::pair(15, 6));
  EXPECT_EQ(list.ListItems().Find("O0000000"), nullptr);
  EXPECT_EQ(list.ListItems().Item(1).ListSubItems().Count(), 14);
  BO("O0000200").ReplyRead("GetTraffic", TextRecords("OIDR SaleID", ""));
  w = Open("O00002002");
  host_.Ui()->QueueAnswer(vbOK);  // the set has no Date field to read
  Fetch(*w);
  EXPECT_EQ(Traffic(*w).ListItems().Count(), 0);
  EXPECT_EQ(Traffic(*w).ColumnHeaders().Count(), 16);
  EXPECT_EQ(host_.Ui()->GetMousePointer(), 0);
}

// The rest and the reservation as the answer gives them; the sold and rest columns shown.
struct RestCase {
  const char *name, *rest, *reserved, *sold, *shown;
};

TEST_F(GoodsListsTest, AReservationOfAtLeastOneShowsBehindTheRest) {
  for (const RestCase& c : std::initializer_list<RestCase>{
           {"NoReservation", "10", "0", "0", "10"},
           {"HalfIsNotShown", "10", "0.5", "0", "10"},
           {"Reserved", "10", "2", "0", "10/2"},
           {"PartlySold", "7.3", "~", "2,7", "7,3"}}) {
    SCOPED_TRACE(c.name);
    const std::string rest = std::string(c.rest) + "|" + c.reserved;
    const std::string sold = std::string(c.sold) + "|" + c.shown;
    BO("O0000200").ReplyRead(
        "GetRests", TextRecords("OIDR ID DocName OType Number Date Addressee Amount Measure Price "
                                "Rest Reserved LName PriceSale",
                                {"O00003001|7|Pirkimas|PURCHASE|D1|#2026-01-05|UAB Šilas|10|vnt.|"
                                 "1.5|" + rest + "|Centrinis|~",
                                 "O0000000|~|Iš viso|~|~|~|~|" + std::string(c.rest) +
                                     "|vnt.|~|" + rest + "|~|~"}));
    auto w = Open("O00002002");
    w->LoadRests();
    ListView& list = Grid(*w).TabList("Rests");
    ASSERT_EQ(list.ListItems().Count(), 2);
    EXPECT_EQ(Join(Cells(list.ListItems().Item("O000030017")), "|"),
              "Pirkimas|D1|2026-01-05|UAB Šilas|10|vnt.|1,50|" + sold + "|Centrinis| ");
    EXPECT_EQ(Join(Cells(list.ListItems().Item("O0000000")), "|"),
              "| | |Iš viso| |vnt.| | |" + std::string(c.shown));
    EXPECT_EQ(BO("O0000200").Calls("GetRests")[0].param, "O00002002");
  }
}

}  // namespace
}  // namespace orvel
