#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "host/Text.h"
#include "orvel/RuntimeError.h"
#include "support/RuntimeErrors.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;

Variant Day(int y, int m, int d) { return Variant(DateSerial(y, m, d)); }

// Ties on every key, Nulls and Empties, Lithuanian letters, "_" (which the
// text compare puts before letters), a column mixing numbers and text.
MemoryRecordset MakeSet() {
  MemoryRecordset rs({"ID", "Name", "Amount", "Date", "Grp", "Mixed", "Flag", "Purch Date"});
  const Variant null = Variant::Null();
  rs.AddRow({1, "beta", 10, Day(2024, 1, 2), "B", 5, false, Day(2024, 1, 6)});
  rs.AddRow({2, "Alpha", null, Day(2024, 1, 1), "a", "x", true, Day(2024, 1, 5)});
  rs.AddRow({3, "alpha", 2.5, null, "b", null, false, Day(2024, 1, 4)});
  rs.AddRow({4, "Ąžuolas", 10.0, Day(2023, 12, 31), "A", 1.5, true, Day(2024, 1, 3)});
  rs.AddRow({5, "_under", -1, Day(2024, 1, 2), null, "10", Variant(), Day(2024, 1, 2)});
  rs.AddRow({6, "Zeta", 10, Day(2024, 1, 1), "a", Variant(), false, Day(2024, 1, 1)});
  return rs;
}

std::vector<int> VisibleIds(MemoryRecordset& rs) {
  std::vector<int> ids;
  for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext()) ids.push_back(rs.Fields("ID").Value().Integer());
  return ids;
}

struct OrderCase {
  const char* keys;
  std::vector<int> ids;
};

void PrintTo(const OrderCase& c, std::ostream* os) { *os << '"' << c.keys << '"'; }

class RecordsetSortOrders : public ::testing::TestWithParam<OrderCase> {};

TEST_P(RecordsetSortOrders, RowsComeInKeyOrderWithTiesInStorageOrder) {
  MemoryRecordset rs = MakeSet();
  rs.SetSort(GetParam().keys);
  EXPECT_THAT(VisibleIds(rs), ElementsAreArray(GetParam().ids));
  EXPECT_EQ(rs.Sort(), GetParam().keys);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, RecordsetSortOrders,
    ::testing::Values(
        OrderCase{"", {1, 2, 3, 4, 5, 6}}, OrderCase{"ID DESC", {6, 5, 4, 3, 2, 1}},
        // Text ignores case; "_" comes before letters, Lithuanian after z.
        OrderCase{"Name", {5, 2, 3, 1, 6, 4}}, OrderCase{"Name DESC", {4, 6, 1, 2, 3, 5}},
        OrderCase{"name, id desc", {5, 3, 2, 1, 6, 4}},
        OrderCase{"  Name  ASC , ID DESC ", {5, 3, 2, 1, 6, 4}},
        // Null lowest: first ascending, last descending; 10 and 10.0 tie.
        OrderCase{"Amount", {2, 5, 3, 1, 4, 6}}, OrderCase{"Amount DESC", {1, 4, 6, 3, 5, 2}},
        OrderCase{"Amount DESC, ID DESC", {6, 4, 1, 3, 5, 2}},
        // Dates by serial.
        OrderCase{"Date", {3, 4, 2, 6, 1, 5}}, OrderCase{"Date DESC,Name", {5, 1, 2, 6, 4, 3}},
        OrderCase{"Grp, Amount DESC", {5, 4, 6, 2, 1, 3}},
        // Null and Empty lowest, then numbers, then text (even "10").
        OrderCase{"Mixed", {3, 6, 4, 1, 5, 2}}, OrderCase{"Mixed DESC", {2, 5, 1, 4, 3, 6}},
        // True is -1, before False; Empty below both.
        OrderCase{"Flag, ID DESC", {5, 4, 2, 6, 3, 1}},
        OrderCase{"[Purch Date]", {6, 5, 4, 3, 2, 1}},
        OrderCase{"[purch date] desc", {1, 2, 3, 4, 5, 6}},
        OrderCase{"Purch Date DESC", {1, 2, 3, 4, 5, 6}},  // unambiguous without [ ]
        OrderCase{"Name, Name DESC", {5, 2, 3, 1, 6, 4}}));

struct BadKeysCase {
  const char* keys;
  int32_t number;
  const char* problem;
};

void PrintTo(const BadKeysCase& c, std::ostream* os) { *os << '"' << c.keys << '"'; }

class RecordsetSortRefuses : public ::testing::TestWithParam<BadKeysCase> {};

TEST_P(RecordsetSortRefuses, KeepsTheSortInForceAndThePosition) {
  MemoryRecordset rs = MakeSet();
  rs.SetSort("ID DESC");
  rs.MoveNext();
  std::string text;
  EXPECT_EQ(ErrorOf([&] { rs.SetSort(GetParam().keys); }, &text), GetParam().number);
  EXPECT_THAT(text, HasSubstr(GetParam().problem));
  EXPECT_EQ(rs.Sort(), "ID DESC");
  EXPECT_EQ(rs.Fields("ID").Value(), Variant(5));
  EXPECT_THAT(VisibleIds(rs), ElementsAre(6, 5, 4, 3, 2, 1));
}

INSTANTIATE_TEST_SUITE_P(
    Keys, RecordsetSortRefuses,
    ::testing::Values(
        BadKeysCase{"Nope", RuntimeError::kItemNotFound, "Kolekcijoje nėra elemento: Nope"},
        BadKeysCase{"Name UP", RuntimeError::kItemNotFound, "elemento: Name UP"},
        BadKeysCase{"Name,,ID", RuntimeError::kBadFilter, "tuščias rikiavimo raktas, pozicija 6"},
        BadKeysCase{"DESC", RuntimeError::kItemNotFound, "elemento: DESC"},
        BadKeysCase{"[Name", RuntimeError::kBadFilter, "'[' be atitinkamo ']'"},
        BadKeysCase{"[Name] UP", RuntimeError::kBadFilter, "laukta ASC arba DESC"}));

TEST(RecordsetSort, MovesToTheFirstRecordOfTheNewOrderAndSortsEmptySets) {
  MemoryRecordset rs = MakeSet();
  rs.MoveNext();
  rs.MoveNext();
  rs.SetSort("Name");
  EXPECT_EQ(rs.Fields("ID").Value(), Variant(5));
  rs.SetSort("");
  EXPECT_EQ(rs.Fields("ID").Value(), Variant(1));
  {
    MemoryRecordset empty({"ID"});
    empty.SetSort("ID DESC");
    EXPECT_TRUE(empty.IsBOF());
    EXPECT_TRUE(empty.IsEOF());
    MemoryRecordset rs = MakeSet();
    rs.SetFilter("ID = 99");
    rs.SetSort("Name");
    EXPECT_TRUE(rs.IsEOF());
    EXPECT_EQ(rs.RecordCount(), 0);
  }
}

TEST(RecordsetSort, AndFilterEachKeepTheOtherWhenSet) {
  MemoryRecordset rs = MakeSet();
  rs.SetSort("Amount DESC");
  rs.SetFilter("Grp = 'a'");
  EXPECT_THAT(VisibleIds(rs), ElementsAre(4, 6, 2));
  EXPECT_EQ(rs.Sort(), "Amount DESC");
  rs.SetSort("");
  EXPECT_THAT(VisibleIds(rs), ElementsAre(2, 4, 6));
  rs.SetSort("ID DESC");
  EXPECT_THAT(VisibleIds(rs), ElementsAre(6, 4, 2));
  rs.SetFilter("");
  EXPECT_THAT(VisibleIds(rs), ElementsAre(6, 5, 4, 3, 2, 1));
  rs.SetFilter("Amount > 0");
  rs.SetSort("Name");
  EXPECT_THAT(VisibleIds(rs), ElementsAre(3, 1, 6, 4));
  EXPECT_EQ(rs.RecordCount(), 4);
}

TEST(RecordsetSort, TheModulesOwnKeyLists) {
  MemoryRecordset rs({"PurchDate", "PurchaseID", "Sign", "Date", "ID", "Number"});
  rs.AddRow({Day(2024, 2, 1), 7, 1, Day(2024, 2, 3), 10, "B-2"});
  rs.AddRow({Day(2024, 1, 1), 9, -1, Day(2024, 2, 3), 11, "B-1"});
  rs.AddRow({Day(2024, 2, 1), 7, -1, Day(2024, 2, 2), 12, "A-9"});
  rs.AddRow({Day(2024, 1, 1), 9, -1, Day(2024, 2, 3), 11, "a-1"});
  rs.SetSort("PurchDate,PurchaseID,Sign,Date,ID,Number");
  EXPECT_THAT(VisibleIds(rs), ElementsAre(11, 11, 12, 10));
  rs.MoveFirst();
  EXPECT_EQ(rs.Fields("Number").Value(), Variant("a-1"));
  rs.SetSort("Date DESC,ID,Number");
  std::vector<std::string> numbers;
  for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext()) {
    numbers.push_back(rs.Fields("Number").Value().String());
  }
  EXPECT_THAT(numbers, ElementsAre("B-2", "a-1", "B-1", "A-9"));
}

TEST(RecordsetSort, NumbersIncludingInfinitiesAndNaNHaveATotalOrder) {
  const double inf = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  MemoryRecordset rs({"ID", "X"});
  const std::vector<Variant> xs{nan, 1.0, -inf, Variant::Null(), -0.0, inf, 0.0, -1e300, nan};
  for (size_t i = 0; i < xs.size(); ++i) rs.AddRow({static_cast<int>(i), xs[i]});
  rs.SetSort("X");
  EXPECT_THAT(VisibleIds(rs), ElementsAre(3, 2, 7, 4, 6, 1, 5, 0, 8));
  rs.SetSort("X DESC");
  EXPECT_THAT(VisibleIds(rs), ElementsAre(0, 8, 5, 1, 4, 6, 7, 2, 3));
}

int Rank(const Variant& v) {
  switch (v.Type()) {
    case VarType::Empty:
    case VarType::Null:
      return 0;
    case VarType::String:
      return 2;
    default:
      return 1;
  }
}

double NumberOf(const Variant& v) {
  if (v.Type() == VarType::Integer) return v.Integer();
  if (v.Type() == VarType::Date) return v.DateValue().serial;
  return v.Double();
}

int ReferenceCompare(const Variant& a, const Variant& b) {
  if (Rank(a) != Rank(b)) return Rank(a) < Rank(b) ? -1 : 1;
  if (Rank(a) == 1) return (NumberOf(a) > NumberOf(b)) - (NumberOf(a) < NumberOf(b));
  if (Rank(a) == 2) return StrComp(a.String(), b.String(), Compare::Text);
  return 0;
}

// Pieces of text whose case forms fold together (ſ, s and S; ı, I, İ and i),
// Lithuanian letters, bytes that are not UTF-8, characters beyond them, and
// long pieces so that many texts share more than their first seven bytes.
const std::vector<std::string> kPieces{
    "a", "A", "b", "Z", "_",    "0",    " ",    "ą",  "Ą", "š", "Š", "ž", "ſ",         "s",
    "S", "ı", "İ", "i", "\xff", "\x80", "\xc5", "中", "é", "É", "ÿ", "Ÿ", "Vilniaus ", "VILNIAUS "};

Variant RandomValue(std::mt19937& gen, int column) {
  std::uniform_int_distribution<int> pick(0, 99);
  int p = pick(gen);
  if (p < 8) return Variant::Null();
  if (p < 10) return Variant();
  if (column == 0 || (column == 2 && p < 50)) {
    std::string s;
    for (int n = std::uniform_int_distribution<int>(0, 5)(gen); n > 0; --n) {
      s += kPieces[std::uniform_int_distribution<size_t>(0, kPieces.size() - 1)(gen)];
    }
    return Variant(s);
  }
  if (p < 40) return Variant(std::uniform_int_distribution<int>(-3, 3)(gen));
  if (p < 70) return Variant(std::uniform_int_distribution<int>(-3, 3)(gen) * 0.5);
  return Variant(Date{std::uniform_int_distribution<int>(-2, 2)(gen) * 1.0});
}

TEST(RecordsetSort, AgreesWithAStableSortByTheTextCompareOnGeneratedRows) {
  std::mt19937 gen(20240331);
  MemoryRecordset rs({"ID", "Text", "Number", "Mixed"});
  std::vector<std::vector<Variant>> rows;
  for (int i = 0; i < 4000; ++i) {
    std::vector<Variant> row{i, RandomValue(gen, 0), RandomValue(gen, 1), RandomValue(gen, 2)};
    rows.push_back(row);
    rs.AddRow(row);
  }
  struct Keys {
    const char* text;
    std::vector<int> columns;
    std::vector<bool> descending;
  };
  for (const Keys& keys :
       std::vector<Keys>{{"Text", {1}, {false}},
                         {"Text DESC", {1}, {true}},
                         {"Mixed, Number DESC", {3, 2}, {false, true}},
                         {"Number, Text DESC, Mixed", {2, 1, 3}, {false, true, false}}}) {
    std::vector<int> expected(rows.size());
    std::iota(expected.begin(), expected.end(), 0);
    std::stable_sort(expected.begin(), expected.end(), [&](int a, int b) {
      for (size_t k = 0; k < keys.columns.size(); ++k) {
        int c = ReferenceCompare(rows[a][keys.columns[k]], rows[b][keys.columns[k]]);
        if (c != 0) return keys.descending[k] ? c > 0 : c < 0;
      }
      return false;
    });
    rs.SetSort(keys.text);
    EXPECT_EQ(VisibleIds(rs), expected) << keys.text;
  }
}

}  // namespace
}  // namespace orvel
