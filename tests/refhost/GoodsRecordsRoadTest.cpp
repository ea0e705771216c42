#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "RunningHost.h"
#include "host/Convert.h"

namespace orvel {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;

// A good's detail records through the real module over the sample database:
// added from their tab in the record's dialog, written, shown in the tab and
// deleted from it.
class GoodsRecordsRoadTest : public RunningHost {
 protected:
  // The card of the first good with rows in `table`; its sheet in sheet_.
  std::shared_ptr<Form> OpenGood(const std::string& table) {
    id_ = StoredText("SELECT MIN(GoodID) FROM " + table);
    return OpenSheet("O0000200" + id_);
  }

  // The record dialog: its field sheet filled with `fields`, then Write.
  void FillDialogWith(std::vector<std::pair<std::string, std::string>> fields) {
    Terminal().SetModalRunner([this, fields](Form& dialog) {
      dialogCaption_ = dialog.Caption();
      Fill(Control<FieldSheet>(dialog, "OrvelGrid"), fields);
      Press(dialog, "cmdEnter");
      dialogLeftOpen_ = dialog.Visible();
    });
  }

  std::string id_;
  std::string dialogCaption_;
  bool dialogLeftOpen_ = true;
};

// One kind of detail record added from its tab, on the first good that has
// one: the fields typed in the dialog, the row as stored (`stored` an SQL
// expression over it), and the tab's row as its text and one column's.
struct RoadCase {
  const char *tab, *oid, *table, *caption;
  Typed typed;
  const char *stored, *storedText;
  int column;
  const char* shown;
};

// Price type 3 is "Sutartinė", warehouse 2 "Kauno sandėlis", unit 9 "tona"
// in the sample data. The small adapter of prices answers no "Structure"
// property: the field sheet takes the types from the business layer, so a
// price typed with the decimal comma is stored as a number. A measure's
// ratio left 0 is written as the other's inverse.
TEST_F(GoodsRecordsRoadTest, ARecordIsAddedShownAndDeletedFromItsTab) {
  for (const RoadCase& c : std::vector<RoadCase>{
           {"PRICES", "O0000600", "goods_prices", "Kainos",
            {{"GoodPriceTypeID", "3"}, {"Price", "12,35"}},
            "PriceType || '|' || Currency || '|' || Price", "Sutartinė|EUR|12.35", 2,
            "Sutartinė|12,35"},
           {"MinAmount", "O0000700", "goods_min_amounts", "Minimalus kiekis",
            {{"LocationId", "2"}, {"MinAmount", "7"}}, "Name || '|' || MinAmount",
            "Kauno sandėlis|7.0", 1, "7|Kauno sandėlis"},
           {"Measures", "O0000400", "goods_measures", "Matavimo vienetas",
            {{"MeasureID", "9"}, {"Scale", "1000"}, {"Scale2", "0"}},
            "Name || '|' || Scale || '|' || Scale2", "tona|1000.0|0.001", 2, "tona|1000"}}) {
    SCOPED_TRACE(c.tab);
    ASSERT_NE(OpenGood(c.table), nullptr);
    ListView* list = sheet_->TabList(c.tab);
    ASSERT_NE(list, nullptr);
    const int before = list->ListItems().Count();
    const Variant units = Stored("SELECT COUNT(*) FROM measures");

    FillDialogWith(c.typed);
    RightClick(*sheet_, c.tab, {"Sukurti naują"});
    EXPECT_EQ(dialogCaption_ + (dialogLeftOpen_ ? " (left open)" : ""),
              std::string(": ") + c.caption);
    EXPECT_THAT(calls_, Contains("GetCall Orvel_NewObject '" + std::string(c.oid) + "'"));
    EXPECT_THAT(calls_,
                Contains("ExecArrayCall Orvel_SaveObject '" + std::string(c.oid) + "',''"));

    const std::string id = StoredText(std::string("SELECT MAX(ID) FROM ") + c.table);
    const std::string key = c.oid + id;
    EXPECT_EQ(StoredText(std::string("SELECT GoodID || '|' || ") + c.stored + " FROM " +
                         c.table + " WHERE ID = " + id),
              id_ + "|" + c.storedText);

    // The tab was read again and shows the new record.
    ASSERT_EQ(list->ListItems().Count(), before + 1);
    const ListItem* row = list->ListItems().Find(key);
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->Text() + "|" + row->ListSubItems().Item(c.column).Text(), c.shown);

    list->SetSelectedItem(list->ListItems().Find(key));
    RightClick(*sheet_, c.tab, {"Panaikinti", "Taip"});
    EXPECT_THAT(calls_, Contains("ExecCall Orvel_DeleteObject '" + key + "'"));
    EXPECT_EQ(StoredText("SELECT COUNT(*) FROM " + std::string(c.table) + " WHERE ID=" + id), "0");
    EXPECT_EQ(list->ListItems().Count(), before);
    EXPECT_EQ(list->ListItems().Find(key), nullptr);
    EXPECT_EQ(Stored("SELECT COUNT(*) FROM measures"), units);
  }
}

// "Redaguoti" on a good's measure row opens that row, and the change is
// written to it; the unit it names stays as it was.
TEST_F(GoodsRecordsRoadTest, AMeasureRowIsEditedInPlace) {
  ASSERT_NE(OpenGood("goods_measures"), nullptr);
  const std::string row = StoredText("SELECT MIN(ID) FROM goods_measures");
  const std::string unitOf = "SELECT m.Name FROM measures m JOIN goods_measures gm"
                             " ON gm.MeasureID = m.ID WHERE gm.ID = " + row;
  const Variant unit = Stored(unitOf);
  ListView* list = sheet_->TabList("Measures");
  ASSERT_NE(list, nullptr);
  ListItem* item = list->ListItems().Find("O0000400" + row);
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(Variant(item->Text()), unit);
  list->SetSelectedItem(item);
  FillDialogWith({{"Price", "3,5"}});
  RightClick(*sheet_, "Measures", {"Redaguoti"});
  EXPECT_FALSE(dialogLeftOpen_);
  EXPECT_EQ(dialogCaption_, ConcatText(unit) + ": Matavimo vienetas");
  EXPECT_THAT(calls_, Contains("GetCall Orvel_ReadObject 'O0000400" + row + "'"));
  EXPECT_THAT(calls_,
              Contains("ExecArrayCall Orvel_SaveObject 'O0000400','O0000400" + row + "'"));
  EXPECT_EQ(Stored("SELECT Price FROM goods_measures WHERE ID = " + row), Variant(3.5));
  EXPECT_EQ(Stored(unitOf), unit);
}

// The dialog does not write a price without its amount, and says nothing.
TEST_F(GoodsRecordsRoadTest, APriceWithoutItsAmountIsNotWritten) {
  ASSERT_NE(OpenGood("goods_prices"), nullptr);
  const Variant before = Stored("SELECT COUNT(*) FROM goods_prices");
  FillDialogWith({{"GoodPriceTypeID", "1"}});
  RightClick(*sheet_, "PRICES", {"Sukurti naują"});
  EXPECT_EQ(Stored("SELECT COUNT(*) FROM goods_prices"), before);
  EXPECT_THAT(calls_, ::testing::Not(Contains(HasSubstr("Orvel_SaveObject 'O0000600'"))));
}

}  // namespace
}  // namespace orvel
