#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "host/RecordsetCriteria.h"
#include "orvel/RuntimeError.h"
#include "support/RuntimeErrors.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;

Variant Day(int y, int m, int d) { return Variant(DateSerial(y, m, d)); }

// Six rows covering text in several cases, Lithuanian letters, a quote,
// numbers held as text, Nulls in every kind of column, and a date with a time.
MemoryRecordset MakeSet() {
  MemoryRecordset rs({"ID", "Code", "Name", "Amount", "Date", "PurchaseID", "Purch Date", "Note"});
  const Variant null = Variant::Null();
  Variant noon(Date{DateSerial(2024, 3, 31).serial + 0.5});
  rs.AddRow({1, "EUR", "Šarūnas", 12.345, Day(2024, 3, 31), 0, Day(2024, 1, 1), "a"});
  rs.AddRow({2, "usd", "šarūnas", 5, Day(2024, 4, 1), 7, Day(2024, 1, 2), null});
  rs.AddRow({3, "Eur", "O'Malley", -3, Day(2023, 12, 31), 12, null, "x"});
  rs.AddRow({4, null, "Žemaitė", null, null, -1, Day(2024, 1, 1), "A"});
  rs.AddRow({5, "GBP", "Smith", 100, noon, 5, Day(2024, 2, 1), ""});
  rs.AddRow({6, "10", "Smithers", 0.5, Day(2024, 5, 1), true, Day(2024, 2, 1), "b"});
  return rs;
}

std::vector<int> VisibleIds(MemoryRecordset& rs) {
  std::vector<int> ids;
  for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext()) ids.push_back(rs.Fields("ID").Value().Integer());
  return ids;
}

struct PickCase {
  const char* criteria;
  std::vector<int> ids;
};

void PrintTo(const PickCase& c, std::ostream* os) { *os << '"' << c.criteria << '"'; }

class RecordsetFilterPicks : public ::testing::TestWithParam<PickCase> {};

TEST_P(RecordsetFilterPicks, VisibleRowsAreTheMatchingOnesInStorageOrder) {
  MemoryRecordset rs = MakeSet();
  rs.SetFilter(GetParam().criteria);
  EXPECT_THAT(VisibleIds(rs), ElementsAreArray(GetParam().ids));
  EXPECT_EQ(rs.RecordCount(), static_cast<int>(GetParam().ids.size()));
}

INSTANTIATE_TEST_SUITE_P(
    Comparisons, RecordsetFilterPicks,
    ::testing::Values(
        // The forms the module builds.
        PickCase{"Code = 'EUR'", {1, 3}}, PickCase{" ID = 5", {5}},
        PickCase{"PurchaseID>0", {2, 3, 5}}, PickCase{"  ID   =\t3  ", {3}},
        // Field names and keywords ignore case; so does text.
        PickCase{"code = 'eur'", {1, 3}}, PickCase{"Name = 'ŠARŪNAS'", {1, 2}},
        PickCase{"name = 'žemaitė'", {4}}, PickCase{"Name = 'O''Malley'", {3}},
        // Every operator; a Null matches none of them, not even <>.
        PickCase{"ID <> 2", {1, 3, 4, 5, 6}}, PickCase{"Amount <> 5", {1, 3, 5, 6}},
        PickCase{"Amount >= 12.345", {1, 5}}, PickCase{"Amount > 12.345", {5}},
        PickCase{"Amount < 0", {3}}, PickCase{"Amount <= -3", {3}},
        PickCase{"Note <> 'a'", {3, 5, 6}}, PickCase{"Code < 'F'", {1, 3, 6}},
        PickCase{"Code >= 'f'", {2, 5}}, PickCase{"Note = ''", {5}},
        // Numbers in their forms.
        PickCase{"Amount = .5", {6}}, PickCase{"Amount = 1e2", {5}}, PickCase{"Amount = +100", {5}},
        PickCase{"PurchaseID = -1", {4, 6}},  // True is -1
        // Dates in their three forms; a date with a time is not that day.
        PickCase{"Date = #2024-03-31#", {1}}, PickCase{"Date = #2024.03.31#", {1}},
        PickCase{"Date = #3/31/2024#", {1}}, PickCase{"Date > #2024-03-31#", {2, 5, 6}},
        PickCase{"[Purch Date] = #2024-01-01#", {1, 4}},
        PickCase{"[purch date]<#2024-02-01#", {1, 2, 4}},
        // A number field against text, a text field against a number.
        PickCase{"ID = '5'", {5}}, PickCase{"ID = ' 5 '", {5}}, PickCase{"ID = 'five'", {}},
        PickCase{"Code = 10.0", {6}}, PickCase{"Date = '2024-04-01'", {2}}));

INSTANTIATE_TEST_SUITE_P(
    Like, RecordsetFilterPicks,
    ::testing::Values(PickCase{"Name LIKE 'smith*'", {5, 6}}, PickCase{"Name LIKE '*MIT*'", {5, 6}},
                      PickCase{"Name LIKE '%ūna%'", {1, 2}}, PickCase{"Name LIKE 'ŠAR*'", {1, 2}},
                      PickCase{"Name LIKE 'smith'", {5}},
                      PickCase{"Name LIKE '*'", {1, 2, 3, 4, 5, 6}},
                      PickCase{"Name LIKE '%%'", {1, 2, 3, 4, 5, 6}},
                      PickCase{"Code LIKE '*'", {1, 2, 3, 5, 6}},  // not the Null
                      PickCase{"Name LIKE '*''*'", {3}}, PickCase{"ID LIKE '1*'", {1}}));

INSTANTIATE_TEST_SUITE_P(
    AndOr, RecordsetFilterPicks,
    ::testing::Values(PickCase{"ID = 1 OR ID = 3", {1, 3}},
                      PickCase{"ID = 1 AND Code = 'EUR'", {1}},
                      PickCase{"ID > 1 and ID < 4", {2, 3}},
                      PickCase{"(ID = 1 AND Code = 'EUR') OR ID = 6", {1, 6}},
                      // Equal precedence, left to right.
                      PickCase{"ID = 1 AND Code = 'usd' OR ID = 6", {6}},
                      PickCase{"(ID = 1 OR ID = 2) OR (ID = 5 AND Name LIKE 'S*')", {1, 2, 5}},
                      PickCase{"((ID = 2))", {2}}, PickCase{"(ID=1)OR(ID=4)", {1, 4}},
                      PickCase{"ID = 1 AND(Code='EUR')", {1}}));

struct BadCase {
  const char* criteria;
  const char* problem;
  int position;
};

void PrintTo(const BadCase& c, std::ostream* os) { *os << '"' << c.criteria << '"'; }

class RecordsetFilterRefuses : public ::testing::TestWithParam<BadCase> {};

TEST_P(RecordsetFilterRefuses, NamesTheProblemAndItsPositionAndKeepsThePreviousFilter) {
  MemoryRecordset rs = MakeSet();
  rs.SetFilter("Code = 'EUR'");
  rs.MoveNext();
  std::string text;
  EXPECT_EQ(ErrorOf([&] { rs.SetFilter(GetParam().criteria); }, &text), RuntimeError::kBadFilter);
  EXPECT_THAT(text, HasSubstr(GetParam().problem));
  EXPECT_THAT(text, HasSubstr("pozicija " + std::to_string(GetParam().position)));
  EXPECT_EQ(rs.Filter(), Variant("Code = 'EUR'"));
  EXPECT_EQ(rs.Fields("ID").Value(), Variant(3));  // still on the second match
  EXPECT_THAT(VisibleIds(rs), ElementsAre(1, 3));
}

INSTANTIATE_TEST_SUITE_P(
    Grammar, RecordsetFilterRefuses,
    ::testing::Values(
        BadCase{"Nope = 1", "nežinomas laukas 'Nope'", 1},
        BadCase{"ID = 1 AND Šalis = 2", "nežinomas laukas 'Šalis'", 12},
        BadCase{"ID 1", "laukta operatoriaus", 4}, BadCase{"Name IS 'x'", "laukta operatoriaus", 6},
        BadCase{"ID == 1", "laukta reikšmės", 5}, BadCase{"ID =", "laukta reikšmės", 5},
        BadCase{"Code = EUR", "rasta 'EUR'", 8}, BadCase{"ID = Null", "negali būti Null", 6},
        BadCase{"Code = 'EUR", "be uždarančios kabutės", 8},
        BadCase{"Code = 'O''", "be uždarančios kabutės", 8},
        BadCase{"Date = #2024-01-01", "be uždarančio #", 8},
        BadCase{"Date = #2024-13-01#", "'2024-13-01' nėra data", 8},
        BadCase{"Date = #2/30/2024#", "nėra data", 8}, BadCase{"Date = ##", "nėra data", 8},
        BadCase{"ID = 1.2.3", "'1.2.3' nėra skaičius", 6},
        BadCase{"ID = 5abc", "'5abc' nėra skaičius", 6},
        BadCase{"ID = 1,5", "'1,5' nėra skaičius", 6}, BadCase{"ID = -", "nėra skaičius", 6},
        BadCase{"ID = 1e999", "nėra skaičius", 6},
        BadCase{"ID = 1 Code = 'X'", "laukta AND arba OR", 8},
        BadCase{"Name = 'Šarūnas' ID", "laukta AND arba OR", 18}));

INSTANTIATE_TEST_SUITE_P(
    Structure, RecordsetFilterRefuses,
    ::testing::Values(BadCase{"   ", "laukta lauko vardo", 4},
                      BadCase{"= 1", "laukta lauko vardo", 1},
                      BadCase{"ID = 1 AND", "laukta lauko vardo", 11},
                      BadCase{"(ID = 1", "'(' be atitinkamo ')'", 1},
                      BadCase{"ID = 1)", "')' be atitinkamo '('", 7},
                      BadCase{"(ID = 1 Code = 'X')", "laukta AND, OR arba ')'", 9},
                      BadCase{"()", "tušti skliaustai", 1},
                      BadCase{"[Purch Date = 1", "'[' be atitinkamo ']'", 1},
                      BadCase{"[ ] = 1", "tuščias lauko vardas", 1},
                      BadCase{"[Purch  Date] = 1", "nežinomas laukas 'Purch  Date'", 1},
                      // An OR-group may not be joined by AND, on either side.
                      BadCase{"(ID = 1 OR ID = 2) AND Code = 'EUR'", "OR sujungtų sąlygų", 20},
                      BadCase{"Code = 'EUR' AND (ID = 1 OR ID = 2)", "OR sujungtų sąlygų", 14},
                      BadCase{"ID = 1 OR ID = 2 AND Code = 'EUR'", "OR sujungtų sąlygų", 18},
                      // LIKE takes text with wildcards at the end or at both ends only.
                      BadCase{"Name LIKE '*ith'", "tik gale arba abiejuose galuose", 11},
                      BadCase{"Name LIKE 'S*h'", "tik gale arba abiejuose galuose", 11},
                      BadCase{"Name LIKE '***'", "tik gale arba abiejuose galuose", 11},
                      BadCase{"Name LIKE 5", "LIKE reikia tekstinės reikšmės", 11}));

TEST(RecordsetFilterLimits, NestingBeyondSixtyFourLevelsButNotUpToIt) {
  MemoryRecordset rs = MakeSet();
  rs.SetFilter(std::string(64, '(') + "ID = 2" + std::string(64, ')'));
  EXPECT_THAT(VisibleIds(rs), ElementsAre(2));
  std::string text;
  EXPECT_EQ(
      ErrorOf([&] { rs.SetFilter(std::string(10000, '(') + "ID = 1" + std::string(10000, ')')); },
              &text),
      RuntimeError::kBadFilter);
  EXPECT_THAT(text, HasSubstr("įdėtų skliaustų, pozicija 65"));
  EXPECT_LT(text.size(), 400u);  // the criteria shown are cut short
  EXPECT_THAT(VisibleIds(rs), ElementsAre(2));
}

TEST(RecordsetFilterLimits, ValuesThatAreNeitherCriteriaNorZero) {
  MemoryRecordset rs = MakeSet();
  for (const Variant& bad : {Variant::Null(), Variant(3), Variant(1.5), Variant(true),
                             Variant(Variant::Array{Variant(1)})}) {
    EXPECT_EQ(ErrorOf([&] { rs.SetFilter(bad); }), RuntimeError::kBadFilter) << Describe(bad);
  }
  EXPECT_EQ(rs.RecordCount(), 6);
}

TEST(RecordsetFilter, MovesToTheFirstMatchCountsOnlyMatchesAndWithNoneHasNoCurrentRecord) {
  MemoryRecordset rs = MakeSet();
  rs.MoveNext();
  rs.MoveNext();
  rs.MoveNext();
  rs.SetFilter("Code = 'eur'");
  EXPECT_FALSE(rs.IsBOF());
  EXPECT_FALSE(rs.IsEOF());
  EXPECT_EQ(rs.Fields("ID").Value(), Variant(1));
  EXPECT_EQ(rs.RecordCount(), 2);
  rs.MoveNext();
  EXPECT_EQ(rs.Fields("ID").Value(), Variant(3));
  rs.MoveNext();
  EXPECT_TRUE(rs.IsEOF());
  {
    MemoryRecordset rs = MakeSet();
    rs.SetFilter("ID = 99");
    EXPECT_TRUE(rs.IsBOF());
    EXPECT_TRUE(rs.IsEOF());
    EXPECT_EQ(rs.RecordCount(), 0);
    EXPECT_EQ(ErrorOf([&] { rs.Fields("ID").Value(); }), RuntimeError::kNoCurrentRecord);
  }
}

// Empty text, zero or Empty clears the filter.
TEST(RecordsetFilter, ClearingShowsEveryRowFromTheFirstAndReportsWhatWasSet) {
  for (const Variant& clear : {Variant(""), Variant(0), Variant(0.0), Variant()}) {
    MemoryRecordset rs = MakeSet();
    rs.SetFilter("ID = 99");
    rs.SetFilter(clear);
    EXPECT_EQ(rs.RecordCount(), 6) << Describe(clear);
    EXPECT_FALSE(rs.IsBOF());
    EXPECT_EQ(rs.Fields("ID").Value(), Variant(1));
    EXPECT_EQ(rs.Filter(), clear);
  }
}

TEST(RecordsetFilter, ReportsTheCriteriaAsSetAndReplacesRatherThanNarrows) {
  MemoryRecordset rs = MakeSet();
  EXPECT_EQ(rs.Filter(), Variant(0));
  rs.SetFilter(" ID = 5");
  EXPECT_EQ(rs.Filter(), Variant(" ID = 5"));
  rs.SetFilter("ID = 2");
  EXPECT_THAT(VisibleIds(rs), ElementsAre(2));
}

TEST(RecordsetFilter, RowsAddedLaterJoinWhenTheyMatchEditsMoveNoneUntilTheFilterIsSetAgain) {
  MemoryRecordset rs = MakeSet();
  rs.SetFilter("Code = 'EUR'");
  rs.AddRow({7, "eur", "x", 1, Variant::Null(), 0, Variant::Null(), "n"});
  rs.AddRow({8, "LTL", "y", 1, Variant::Null(), 0, Variant::Null(), "n"});
  EXPECT_THAT(VisibleIds(rs), ElementsAre(1, 3, 7));
  EXPECT_EQ(rs.StoredRowCount(), 8u);
  {
    MemoryRecordset rs = MakeSet();
    rs.SetFilter("Code = 'EUR'");
    rs.Fields("Code").SetValue("LTL");
    EXPECT_THAT(VisibleIds(rs), ElementsAre(1, 3));
    rs.SetFilter(rs.Filter());
    EXPECT_THAT(VisibleIds(rs), ElementsAre(3));
  }
}

TEST(RecordsetFilter, ValuesWithoutATextFormMatchNoTextComparisonAndFailNothing) {
  // LIKE, and a text value that is not a number, see numbers and dates as
  // their text; NaN, infinities and dates beyond 9999 have none.
  MemoryRecordset rs({"ID", "X", "D"});
  const double inf = std::numeric_limits<double>::infinity();
  rs.AddRow({1, std::numeric_limits<double>::quiet_NaN(), Variant(Date{1e300})});
  rs.AddRow({2, inf, Day(2024, 1, 1)});
  rs.AddRow({3, 1.5, Variant(Date{-1e300})});
  for (const char* criteria : {"X LIKE '*'", "X = 'abc' OR X <> 'abc'", "X >= 'a' OR X < 'a'"}) {
    rs.SetFilter(criteria);
    EXPECT_THAT(VisibleIds(rs), ElementsAre(3)) << criteria;
  }
  rs.SetFilter("D LIKE '2024*'");
  EXPECT_THAT(VisibleIds(rs), ElementsAre(2));
  rs.SetFilter("X > 1");
  EXPECT_THAT(VisibleIds(rs), ElementsAre(2, 3));  // NaN is not greater, infinity is
}

TEST(RecordsetFilter, GroupedClausesOverManyRowsAgreeWithRowByRowEvaluation) {
  // Enough rows that each clause runs down a whole column, against a plain
  // statement of the same criteria.
  const std::vector<std::string> names{"A", "B", "C"};
  std::vector<RecordsetColumn> columns(3);
  MemoryRecordset rs(names);
  std::vector<size_t> expected;
  for (int i = 0; i < 3000; ++i) {
    const int a = i % 10, b = (i * 7) % 13;
    const bool cNull = i % 7 == 0;
    const char c = static_cast<char>('a' + i % 5);
    std::vector<Variant> row{a, b, cNull ? Variant::Null() : Variant(std::string(1, c))};
    for (size_t k = 0; k < 3; ++k) columns[k].push_back(row[k]);
    rs.AddRow(row);
    if ((a == 1 && b > 5) || (!cNull && c == 'c' && a < 5) || (b == 0 && !cNull && c != 'a')) {
      expected.push_back(i);
    }
  }
  const char* criteria = "(A = 1 AND B > 5) OR (C = 'C' AND A < 5) OR (B = 0 AND C <> 'a')";
  rs.SetFilter(criteria);
  std::vector<size_t> visible;
  for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext()) visible.push_back(rs.CurrentStoredRow());
  EXPECT_EQ(visible, expected);
  EXPECT_GT(expected.size(), 300u);

  auto compiled = RecordsetCriteria::Compile(criteria, names);
  EXPECT_EQ(compiled.ClauseCount(), 6u);
  std::vector<size_t> rowByRow;
  for (size_t r = 0; r < 3000; ++r) {
    if (compiled.Matches(columns, r)) rowByRow.push_back(r);
  }
  EXPECT_EQ(rowByRow, expected);
}

}  // namespace
}  // namespace orvel
