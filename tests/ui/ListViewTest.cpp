#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "support/RuntimeErrors.h"
#include "ui/ListView.h"
#include "ui/RecordingObserver.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Each row as "key@index", by "|".
std::string Rows(const ListView& view) {
  std::string rows;
  for (const auto& row : view.ListItems())
    rows += (rows.empty() ? "" : "|") + row->Key() + "@" + std::to_string(row->Index());
  return rows;
}

class ListViewTest : public ::testing::Test {
 protected:
  ListViewTest() {
    for (const char* bank : {"SEB", "Swedbank", "Luminor"})
      view.ListItems().Add(0, "O0000300" + std::to_string(view.ListItems().Count() + 1), bank);
    view.SetObserver(&observer);
  }
  ListView view{"lvwBanks"};
  RecordingObserver observer;
};

// A repeated key is refused and changes nothing (empty keys may repeat); an index inserts and
// renumbers, rows keeping their address, one past the end appends and further is refused.
TEST_F(ListViewTest, Add_KeysUniqueIndexInsertsAndRenumbers) {
  std::string text;
  EXPECT_EQ(ErrorOf([&] { view.ListItems().Add(1, "O00003002", "Kitas"); }, &text), 35602);
  EXPECT_EQ(text, "Raktas kolekcijoje nėra unikalus");
  EXPECT_EQ(view.ListItems().Item("O00003002").Text(), "Swedbank");
  EXPECT_THAT(observer.changes, IsEmpty());
  ListItem& first = view.ListItems().Item(1);
  for (int twice = 0; twice < 2; ++twice) view.ListItems().Add(2, "", "Be rakto");
  EXPECT_EQ(Rows(view), "O00003001@1|@2|@3|O00003002@4|O00003003@5");
  view.ListItems().Add(6, "L", "Paskutinė");
  EXPECT_EQ(view.ListItems().Item(6).Key(), "L");
  EXPECT_EQ(ErrorOf([&] { view.ListItems().Add(8, "M", "Per toli"); }), 35600);
  EXPECT_EQ(view.ListItems().Count(), 6);
  EXPECT_EQ(&view.ListItems().Item(1), &first);
}

TEST_F(ListViewTest, ItemCheck_TogglesAndRaisesOnlyWithCheckboxesAndInput_KeyDownTakesTheCode) {
  std::vector<std::string> checked;
  view.OnItemCheck = [&](ListItem& row) {
    checked.push_back(row.Key() + (row.Checked() ? " on" : " off"));
  };
  ListItem& row = view.ListItems().Item(2);
  view.ItemCheck(row);  // no check boxes shown: nothing
  EXPECT_FALSE(row.Checked());
  view.SetCheckboxes(true);
  for (int twice = 0; twice < 2; ++twice) view.ItemCheck(row);
  row.SetChecked(true);  // from code: no event
  view.SetEnabled(false);
  view.ItemCheck(row);
  EXPECT_TRUE(row.Checked());
  EXPECT_THAT(checked, ElementsAre("O00003002 on", "O00003002 off"));
  view.SetEnabled(true);
  view.OnKeyDown = [](int& keyCode, int shift) {
    if (keyCode == 46 && shift == 0) keyCode = 0;
  };
  EXPECT_EQ(std::vector({view.KeyDown(46), view.KeyDown(46, 1), view.KeyDown(13)}),
            std::vector({0, 46, 13}));
}

// Items are one-based, a bad index or key refused; removing by either renumbers, frees the key.
TEST_F(ListViewTest, Item_IsOneBased_RemoveByIndexAndByKeyRenumbersAndFreesTheKey) {
  EXPECT_EQ(view.ListItems().Item(1).Text() + view.ListItems().Item(3).Text(), "SEBLuminor");
  for (int outside : {0, 4}) EXPECT_EQ(ErrorOf([&] { view.ListItems().Item(outside); }), 35600);
  std::string text;
  EXPECT_EQ(ErrorOf([&] { view.ListItems().Item("O00003009"); }, &text), 35601);
  EXPECT_EQ(text, "Elementas nerastas");
  EXPECT_EQ(view.ListItems().Find("O00003009"), nullptr);
  EXPECT_EQ(ErrorOf([&] { view.ListItems().Item(""); }), 35601);
  ListItem& last = view.ListItems().Item("O00003003");
  view.ListItems().Remove(1);
  EXPECT_EQ(Rows(view) + " " + std::to_string(last.Index()), "O00003002@1|O00003003@2 2");
  view.ListItems().Remove("O00003002");
  EXPECT_EQ(Rows(view), "O00003003@1");
  EXPECT_EQ(&view.ListItems().Item(1), &last);
  view.ListItems().Add(0, "O00003002", "Vėl");  // the key is free again
  EXPECT_EQ(ErrorOf([&] { view.ListItems().Remove(3); }), 35600);
  EXPECT_EQ(ErrorOf([&] { view.ListItems().Remove("nėra"); }), 35601);
  EXPECT_EQ(view.ListItems().Count(), 2);
  EXPECT_THAT(observer.changes,
              ElementsAre("lvwBanks.ListItems", "lvwBanks.ListItems", "lvwBanks.ListItems"));
}

// However the selected row leaves the list, the selection goes with it.
TEST(ListView, SelectionGoesWithItsRow) {
  const std::function<void(ListItems&)> ways[] = {
      [](ListItems& r) { r.Remove(2); }, [](ListItems& r) { r.Remove("b"); }, &ListItems::Clear};
  for (const auto& remove : ways) {
    ListView view("lvw");
    view.ListItems().Add(0, "a", "A");
    view.ListItems().Add(0, "b", "B").SetSelected(true);
    view.ListItems().Add(0, "c", "C");
    RecordingObserver observer;
    view.SetObserver(&observer);
    remove(view.ListItems());
    EXPECT_EQ(view.SelectedItem(), nullptr);
    EXPECT_EQ(observer.changes.front(), "lvw.SelectedItem");
  }
}

// The click selects before the handler runs; removing another row keeps it; foreign rows fail.
TEST_F(ListViewTest, ItemClick_SelectsTheRowBeforeTheHandlerRuns_ARowOfAnotherViewIsRefused) {
  std::vector<ListItem*> seen;
  view.OnItemClick = [&](ListItem& row) { seen = {&row, view.SelectedItem()}; };
  ListView other("lvwOther");
  ListItem& foreign = other.ListItems().Add(0, "x", "X");
  view.ItemClick(foreign);
  EXPECT_TRUE(seen.empty());
  EXPECT_EQ(ErrorOf([&] { view.SetSelectedItem(&foreign); }), 380);
  EXPECT_EQ(view.SelectedItem(), nullptr);
  ListItem& row = view.ListItems().Item(2);
  view.ItemClick(row);
  EXPECT_EQ(seen, (std::vector<ListItem*>{&row, &row}));
  view.ListItems().Remove(1);
  EXPECT_EQ(view.SelectedItem(), &row);
  EXPECT_TRUE(row.Selected());
  EXPECT_FALSE(view.ListItems().Item(2).Selected());
}

// Notifications are coarse for rows.
TEST_F(ListViewTest, SubItems_ByKeyAndIndex_KeysUniquePerRow_NotificationsCoarse) {
  ListItem& row = view.ListItems().Item(1);
  row.ListSubItems().Add(0, "Code", "CBVILT2X");
  ListSubItem& amount = row.ListSubItems().Add(0, "Amount", "12,50");
  view.ListItems().Item(2).ListSubItems().Add(0, "Code", "HABALT22");  // another row: fine
  EXPECT_EQ(&row.ListSubItems().Item("Amount"), &amount);
  EXPECT_EQ(row.ListSubItems().Item(1).Text() + std::to_string(amount.Index()), "CBVILT2X2");
  EXPECT_EQ(ErrorOf([&] { row.ListSubItems().Add(0, "Code", "kitas"); }), 35602);
  EXPECT_EQ(ErrorOf([&] { row.ListSubItems().Item("Nėra"); }), 35601);
  EXPECT_EQ(ErrorOf([&] { row.ListSubItems().Item(3); }), 35600);
  EXPECT_EQ(row.ListSubItems().Count(), 2);
  amount.SetTag(Variant::Null());
  amount.SetBold(true);
  EXPECT_TRUE(amount.Tag().IsNull() && amount.Bold());
  // A row's tag too is Empty until set, and keeps a Null.
  EXPECT_TRUE(row.ListSubItems().Item("Code").Tag().IsEmpty() && row.Tag().IsEmpty());
  row.SetTag(Variant::Null());
  EXPECT_TRUE(row.Tag().IsNull());
  observer.changes.clear();
  for (int twice = 0; twice < 2; ++twice) row.SetText("SEB bankas");  // unchanged: nothing
  row.ListSubItems().Add(0, "", "x");
  for (int twice = 0; twice < 2; ++twice) row.SetSelected(true);
  view.ColumnHeaders().Add(0, "", "Pavadinimas", 2000, lvwColumnLeft);
  view.ListItems().Clear();
  EXPECT_THAT(observer.changes,
              ElementsAre("lvwBanks.ListItems", "lvwBanks.ListItems", "lvwBanks.SelectedItem",
                          "lvwBanks.ColumnHeaders", "lvwBanks.SelectedItem", "lvwBanks.ListItems"));
}

// By the text or a sub-item, either way; equal texts in any case keep their places, "" first.
TEST(ListView, SortedOrdersRowsAndRenumbers_ColumnHeadersAppendOrInsert) {
  const std::tuple<int, int, const char*> cases[] = {
      {0, lvwAscending, "k2@1|k3@2|k1@3|k4@4"}, {0, lvwDescending, "k4@1|k1@2|k2@3|k3@4"},
      {1, lvwAscending, "k4@1|k3@2|k1@3|k2@4"}};
  for (const auto& [sortKey, sortOrder, rows] : cases) {
    ListView view("lvw");
    for (const auto& [key, text, code] : {std::tuple{"k1", "beta", "2"}, {"k2", "Alfa", "3"},
                                          {"k3", "ALFA", "1"}, {"k4", "gama", ""}}) {
      ListItem& row = view.ListItems().Add(0, key, text);
      if (*code) row.ListSubItems().Add(0, "", code);
    }
    view.SetSortKey(sortKey);
    view.SetSortOrder(sortOrder);
    view.SetSorted(true);
    EXPECT_EQ(Rows(view), rows);
    EXPECT_EQ(view.ListItems().Item(std::string(rows, 2)).Index(), 1);
  }
  // The sort properties and column headers refuse bad values; columns append or insert.
  ListView view("lvw");
  EXPECT_EQ(ErrorOf([&] { view.SetSortOrder(2); }), 380);
  EXPECT_EQ(ErrorOf([&] { view.SetSortKey(-1); }), 380);
  EXPECT_EQ(std::to_string(view.SortOrder()) + std::to_string(view.SortKey()), "00");
  auto& columns = view.ColumnHeaders();
  columns.Add(0, "Name", "Pavadinimas", 3000, lvwColumnLeft);
  columns.Add(0, "Amount", "Suma", 1200, lvwColumnRight);
  ColumnHeader& code = columns.Add(1, "Code", "Kodas", 900, lvwColumnLeft);
  EXPECT_EQ(std::to_string(code.Index()) + columns.Item(2).Text(), "1Pavadinimas");
  EXPECT_EQ(columns.Item("Amount").Alignment(), lvwColumnRight);
  EXPECT_EQ(columns.Item("Amount").Index(), 3);
  EXPECT_EQ(ErrorOf([&] { columns.Add(0, "X", "X", 100, 3); }), 380);
  EXPECT_EQ(ErrorOf([&] { columns.Add(0, "X", "X", -1, lvwColumnLeft); }), 380);
  EXPECT_EQ(ErrorOf([&] { columns.Add(0, "Code", "Dar", 100, lvwColumnLeft); }), 35602);
  EXPECT_EQ(columns.Count(), 3);
}

}  // namespace
}  // namespace orvel
