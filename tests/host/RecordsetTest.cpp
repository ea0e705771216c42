#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <limits>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "host/RecordsetColumn.h"
#include "host/RecordsetCriteria.h"
#include "host/Text.h"
#include "orvel/RuntimeError.h"
#include "support/RuntimeErrors.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using Ids = std::vector<int>;

Variant Day(int y, int m, int d) { return Variant(DateSerial(y, m, d)); }

std::vector<int> VisibleIds(MemoryRecordset& rs) {
  std::vector<int> ids;
  for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext()) ids.push_back(rs.Fields("ID").Value().Integer());
  return ids;
}

// Where a set stands: "BOF", "EOF", both, or the current row's ID; then "/"
// and the number of rows it shows.
std::string At(MemoryRecordset& rs) {
  std::string at = rs.IsBOF() ? (rs.IsEOF() ? "BOF EOF" : "BOF") : (rs.IsEOF() ? "EOF" : "");
  return (at.empty() ? CStr(rs.Fields("ID").Value()) : at) + "/" + std::to_string(rs.RecordCount());
}

MemoryRecordset BankSet() {
  MemoryRecordset rs({"ID", "Pavadinimas", "Šalis", "Kaina"});
  rs.AddRow({1, "Bankas", "Lietuva", 1.5});
  rs.AddRow({2, "Kitas", "Latvija", Variant::Null()});
  rs.AddRow({3, "Trečias", "Estija", 3});
  return rs;
}

// ---- fields ----

TEST(RecordsetFields, LookupIgnoresCaseIncludingLithuanianLetters) {
  MemoryRecordset rs = BankSet();
  for (const auto& [asked, name] :
       {std::pair{"ID", "ID"}, {"id", "ID"}, {"PAVADINIMAS", "Pavadinimas"}, {"šalis", "Šalis"},
        {"ŠALIS", "Šalis"}, {"kAiNa", "Kaina"}}) {
    EXPECT_TRUE(rs.Fields().Exists(asked)) << asked;
    EXPECT_EQ(rs.Fields(asked).Name(), name);
  }
}

// What no set can do is the runtime's error, and changes nothing.
TEST(RecordsetFields, RefusalsAreTheRuntimesErrors) {
  MemoryRecordset rs = BankSet();
  EXPECT_FALSE(rs.Fields().Exists("Salis"));
  std::string text;
  EXPECT_EQ(ErrorOf([&] { rs.Fields("Salis"); }, &text), RuntimeError::kItemNotFound);
  EXPECT_EQ(text, "Kolekcijoje nėra elemento: Salis");
  const std::vector<std::pair<std::function<void()>, int32_t>> calls{
      {[&] { rs.Fields().Item(4); }, RuntimeError::kItemNotFound},
      {[&] { rs.Fields().Item(-1); }, RuntimeError::kItemNotFound},
      {[&] { rs.AddRow({1, 2}); }, RuntimeError::kInvalidCall},
      {[&] { rs.AddRow({1, 2, 3, 4, 5}); }, RuntimeError::kInvalidCall},
      {[&] { rs.StoredValue(3, 0); }, RuntimeError::kSubscript},
      {[&] { rs.StoredValue(0, 4); }, RuntimeError::kSubscript},
      {[&] { rs.FieldName(4); }, RuntimeError::kSubscript}};
  for (size_t i = 0; i < calls.size(); ++i) {
    EXPECT_EQ(ErrorOf(calls[i].first), calls[i].second) << i;
  }
  EXPECT_EQ(rs.StoredRowCount(), 3u);
  EXPECT_EQ(rs.RecordCount(), 3);
}

// By index in field order; a field added again keeps its index, a new one
// gives the rows already there Empty.
TEST(RecordsetFields, ByIndexInFieldOrderAndAddedAtTheEnd) {
  MemoryRecordset rs = BankSet();
  EXPECT_EQ(rs.Fields().Item(1).Name(), "Pavadinimas");
  EXPECT_EQ(rs.Fields().Item(3).Value(), Variant(1.5));
  EXPECT_EQ(&rs.Fields().Item(2), &rs.Fields("ŠALIS"));
  EXPECT_EQ(rs.AddField("kaina"), 3);
  EXPECT_EQ(rs.AddField("Pastaba"), 4);
  EXPECT_EQ(rs.Fields().Count(), 5);
  EXPECT_TRUE(rs.Fields("Pastaba").Value().IsEmpty());
  rs.AddRow({4, "x", "y", 1, "z"});
  EXPECT_EQ(rs.StoredValue(3, 4), Variant("z"));
}

TEST(RecordsetFields, ReadingAndWritingNeedACurrentRecord) {
  MemoryRecordset rs = BankSet();
  rs.MoveNext();
  rs.MoveNext();
  rs.MoveNext();
  ASSERT_TRUE(rs.IsEOF());
  Field& id = rs.Fields("ID");  // looking a field up is fine
  EXPECT_EQ(ErrorOf([&] { id.Value(); }), RuntimeError::kNoCurrentRecord);
  EXPECT_EQ(ErrorOf([&] { id.UnderlyingValue(); }), RuntimeError::kNoCurrentRecord);
  EXPECT_EQ(ErrorOf([&] { id.SetValue(9); }), RuntimeError::kNoCurrentRecord);
  EXPECT_EQ(rs.CurrentStoredRow(), SIZE_MAX);
  EXPECT_FALSE(rs.CurrentChanged());
}

// ---- moving ----

// An empty set is both BOF and EOF until a row is added; a walk stops at EOF,
// which stays when rows are appended behind it.
TEST(RecordsetMoving, WalksEveryRowThenStopsAtEof) {
  MemoryRecordset empty({"ID"});
  empty.MoveFirst();
  EXPECT_EQ(At(empty), "BOF EOF/0");
  EXPECT_EQ(ErrorOf([&] { empty.MoveNext(); }), RuntimeError::kNoCurrentRecord);
  empty.AddRow({7});
  EXPECT_EQ(empty.Fields("ID").Value(), Variant(7));
  MemoryRecordset rs = BankSet();
  std::vector<Variant> names;
  for (; !rs.IsEOF(); rs.MoveNext()) names.push_back(rs.Fields("Pavadinimas").Value());
  EXPECT_THAT(names, ElementsAre(Variant("Bankas"), Variant("Kitas"), Variant("Trečias")));
  EXPECT_EQ(At(rs), "EOF/3");
  EXPECT_EQ(ErrorOf([&] { rs.MoveNext(); }), RuntimeError::kNoCurrentRecord);
  rs.AddRow({4, "x", "y", 1});
  EXPECT_EQ(At(rs), "EOF/4");
  rs.MoveFirst();
  EXPECT_EQ(At(rs), "1/4");
  EXPECT_EQ(rs.CurrentStoredRow(), 0u);
}

// ---- edits ----

TEST(RecordsetEdits, ValueIsTheEditUnderlyingValueTheValueAsRead) {
  MemoryRecordset rs = BankSet();
  Field& name = rs.Fields("Pavadinimas");
  name.SetValue("Naujas");
  EXPECT_EQ(name.Value(), Variant("Naujas"));
  EXPECT_EQ(name.UnderlyingValue(), Variant("Bankas"));
  EXPECT_TRUE(rs.CurrentChanged());
  name.SetValue("Kitas vardas");
  EXPECT_EQ(name.UnderlyingValue(), Variant("Bankas"));  // the first edit keeps it
  name.SetValue("Bankas");  // the original value back is no change
  EXPECT_FALSE(rs.CurrentChanged());
  rs.MoveNext();
  EXPECT_EQ(rs.Fields("Kaina").UnderlyingValue(), Variant::Null());
}

// Accept makes the edits of every row the values as read; cancel puts those back.
TEST(RecordsetEdits, AcceptKeepsAndCancelPutsBackTheEditsOfEveryRow) {
  MemoryRecordset rs = BankSet();
  rs.Fields("Kaina").SetValue(2.0);
  rs.MoveNext();
  rs.Fields("Kaina").SetValue(4);
  rs.AcceptChanges();
  EXPECT_FALSE(rs.CurrentChanged());
  EXPECT_EQ(rs.Fields("Kaina").UnderlyingValue(), Variant(4));
  rs.MoveFirst();
  EXPECT_EQ(rs.Fields("Kaina").UnderlyingValue(), Variant(2.0));
  rs.Fields("Kaina").SetValue(3.0);
  rs.Fields("ID").SetValue(Variant::Null());
  rs.MoveNext();
  rs.Fields("Kaina").SetValue(Variant::Null());
  rs.CancelChanges();
  EXPECT_EQ(std::vector({rs.StoredValue(0, 3), rs.StoredValue(0, 0), rs.StoredValue(1, 3)}),
            std::vector<Variant>({2.0, 1, 4}));
  EXPECT_FALSE(rs.CurrentChanged());
}

TEST(RecordsetEdits, AddNewAppendsAnEmptyCurrentRowEvenUnderAFilter) {
  MemoryRecordset rs = BankSet();
  rs.SetFilter("ID = 2");
  rs.AddNew();
  EXPECT_EQ(rs.RecordCount(), 2);
  EXPECT_EQ(rs.CurrentStoredRow(), 3u);
  EXPECT_TRUE(rs.Fields("ID").Value().IsEmpty());
  EXPECT_TRUE(rs.Fields("ID").UnderlyingValue().IsEmpty());
  rs.Fields("ID").SetValue(4);
  EXPECT_TRUE(rs.CurrentChanged());
  EXPECT_EQ(rs.StoredRowCount(), 4u);
}

// ---- building ----

TEST(RecordsetBuilding, CloneCopiesDataAndEditsButNotFilterOrSort) {
  MemoryRecordset rs = BankSet();
  rs.Fields("Kaina").SetValue(9);
  rs.SetFilter("ID > 1");
  rs.SetSort("ID DESC");
  EXPECT_EQ(rs.MarshalOptions(), 0);
  rs.SetMarshalOptions(1);
  auto copy = rs.Clone();
  EXPECT_EQ(copy->RecordCount(), 3);
  EXPECT_EQ(copy->Filter(), Variant(0));
  EXPECT_EQ(copy->Sort(), "");
  EXPECT_EQ(copy->MarshalOptions(), 1);
  EXPECT_EQ(copy->Fields("Kaina").Value(), Variant(9));
  EXPECT_EQ(copy->Fields("Kaina").UnderlyingValue(), Variant(1.5));
  copy->Fields("Kaina").SetValue(10);
  copy->AddRow({4, "a", "b", 1});
  EXPECT_EQ(rs.StoredValue(0, 3), Variant(9));
  EXPECT_EQ(rs.StoredRowCount(), 3u);
  EXPECT_EQ(copy->Fields().Item(0).Name(), "ID");
}

// A set moved from is left empty and usable; the set moved to has the rows.
TEST(RecordsetBuilding, AMoveTakesTheRowsAndLeavesAnEmptySet) {
  MemoryRecordset rs = BankSet();
  MemoryRecordset moved(std::move(rs));
  EXPECT_EQ(moved.RecordCount(), 3);
  EXPECT_EQ(rs.FieldCount(), 0u);  // NOLINT(bugprone-use-after-move): left empty by design
  rs = std::move(moved);
  EXPECT_EQ(rs.Fields("Pavadinimas").Value(), Variant("Bankas"));
  EXPECT_TRUE(moved.IsEOF());  // NOLINT(bugprone-use-after-move)
}

// ---- columns ----

using Values = std::vector<Variant>;

void ExpectHolds(const RecordsetColumn& column, const Values& values) {
  ASSERT_EQ(column.size(), values.size());
  for (size_t r = 0; r < values.size(); ++r) {
    EXPECT_EQ(column[r], values[r]) << "row " << r;
    EXPECT_EQ(column.TypeAt(r), values[r].Type()) << "row " << r;
    if (values[r].IsString()) {
      EXPECT_EQ(column.TextAt(r), values[r].String()) << "row " << r;
    }
  }
}

// What a column gives back is what went in, whatever kinds follow one
// another; then each row takes another value (the same kinds and others)
// and the last rows go again.
TEST(RecordsetColumn, GivesBackWhatWentInThroughEditsAndRemovals) {
  for (Values values : std::vector<Values>{
           {Variant("Pienas"), Variant(""), Variant::Null(), Variant("Grietinė 30 %"), Variant()},
           {Variant(), Variant::Null(), Variant(5), Variant(-2147483647 - 1), Variant::Null()},
           {Variant(1.5), Variant::Null(), Variant(-0.0), Variant(1e300)},
           {Variant(true), Variant(false), Variant()}, {Variant(Date{1.25}), Variant::Null()},
           // More than one kind: kept as they came.
           {Variant(3), Variant(3.0), Variant("3"), Variant(true), Variant::Null(), Variant()},
           {Variant(Variant::Array{Variant(1)}), Variant("a")}}) {
    SCOPED_TRACE(Describe(values[0]));
    RecordsetColumn column;
    for (const Variant& v : values) column.push_back(v);
    ExpectHolds(column, values);

    const Values edits{Variant("ab"), Variant::Null(), Variant(7), Variant(), Variant("xyz")};
    for (size_t r = 0; r < values.size(); ++r) {
      // Same kind and length, then something else.
      if (values[r].IsString()) {
        std::string same(values[r].String().size(), 'q');
        column.Set(r, Variant(same));
        values[r] = Variant(same);
        ExpectHolds(column, values);
      }
      values[r] = edits[r % edits.size()];
      column.Set(r, values[r]);
      ExpectHolds(column, values);
    }
    while (!values.empty()) {
      values.pop_back();
      column.pop_back();
      ExpectHolds(column, values);
    }
    column.push_back(Variant(Date{45000.5}));
    ExpectHolds(column, {Variant(Date{45000.5})});
  }
}

TEST(RecordsetColumnEmptyRows, StartEmptyAndTakeTheFirstKindGiven) {
  RecordsetColumn column(5);
  ExpectHolds(column, Values(5));
  column.Set(3, Variant("x"));
  column.push_back(Variant("yy"));
  ExpectHolds(column, {Variant(), Variant(), Variant(), Variant("x"), Variant(), Variant("yy")});
  // The first Null of a column of values, on an early row, leaves the later rows values.
  RecordsetColumn values;
  for (const char* text : {"a", "b", "c", "d", "e", "f"}) values.push_back(Variant(text));
  values.Set(1, Variant::Null());
  ExpectHolds(values, {Variant("a"), Variant::Null(), Variant("c"), Variant("d"), Variant("e"),
                       Variant("f")});
}

// ---- filters ----

// Six rows covering text in several cases, Lithuanian letters, a quote,
// numbers held as text, Nulls in every kind of column, and a date with a time.
MemoryRecordset FilterSet() {
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

// Each criteria shows the matching rows in storage order.
TEST(RecordsetFilter, ShowsTheMatchingRowsInStorageOrder) {
  for (const auto& [criteria, ids] : std::initializer_list<std::pair<const char*, Ids>>{
           // The forms the module builds.
           {"Code = 'EUR'", {1, 3}}, {" ID = 5", {5}}, {"PurchaseID>0", {2, 3, 5}},
           {"  ID   =\t3  ", {3}},
           // Field names and keywords ignore case; so does text.
           {"code = 'eur'", {1, 3}}, {"Name = 'ŠARŪNAS'", {1, 2}}, {"name = 'žemaitė'", {4}},
           {"Name = 'O''Malley'", {3}},
           // Every operator; a Null matches none of them, not even <>.
           {"ID <> 2", {1, 3, 4, 5, 6}}, {"Amount <> 5", {1, 3, 5, 6}},
           {"Amount >= 12.345", {1, 5}}, {"Amount > 12.345", {5}}, {"Amount < 0", {3}},
           {"Amount <= -3", {3}}, {"Note <> 'a'", {3, 5, 6}}, {"Code < 'F'", {1, 3, 6}},
           {"Code >= 'f'", {2, 5}}, {"Note = ''", {5}},
           // Numbers in their forms; True is -1.
           {"Amount = .5", {6}}, {"Amount = 1e2", {5}}, {"Amount = +100", {5}},
           {"PurchaseID = -1", {4, 6}},
           // Dates in their three forms; a date with a time is not that day.
           {"Date = #2024-03-31#", {1}}, {"Date = #2024.03.31#", {1}}, {"Date = #3/31/2024#", {1}},
           {"Date > #2024-03-31#", {2, 5, 6}}, {"[Purch Date] = #2024-01-01#", {1, 4}},
           {"[purch date]<#2024-02-01#", {1, 2, 4}},
           // A number field against text, a text field against a number.
           {"ID = '5'", {5}}, {"ID = ' 5 '", {5}}, {"ID = 'five'", {}}, {"Code = 10.0", {6}},
           {"Date = '2024-04-01'", {2}},
           // LIKE; "*" does not match a Null.
           {"Name LIKE 'smith*'", {5, 6}}, {"Name LIKE '*MIT*'", {5, 6}},
           {"Name LIKE '%ūna%'", {1, 2}}, {"Name LIKE 'ŠAR*'", {1, 2}}, {"Name LIKE 'smith'", {5}},
           {"Name LIKE '*'", {1, 2, 3, 4, 5, 6}}, {"Name LIKE '%%'", {1, 2, 3, 4, 5, 6}},
           {"Code LIKE '*'", {1, 2, 3, 5, 6}}, {"Name LIKE '*''*'", {3}}, {"ID LIKE '1*'", {1}},
           // AND and OR of equal precedence, left to right.
           {"ID = 1 OR ID = 3", {1, 3}}, {"ID = 1 AND Code = 'EUR'", {1}},
           {"ID > 1 and ID < 4", {2, 3}}, {"(ID = 1 AND Code = 'EUR') OR ID = 6", {1, 6}},
           {"ID = 1 AND Code = 'usd' OR ID = 6", {6}},
           {"(ID = 1 OR ID = 2) OR (ID = 5 AND Name LIKE 'S*')", {1, 2, 5}}, {"((ID = 2))", {2}},
           {"(ID=1)OR(ID=4)", {1, 4}}, {"ID = 1 AND(Code='EUR')", {1}}}) {
    MemoryRecordset rs = FilterSet();
    rs.SetFilter(criteria);
    EXPECT_EQ(VisibleIds(rs), ids) << criteria;
    EXPECT_EQ(rs.RecordCount(), static_cast<int>(ids.size())) << criteria;
  }
}

// A refusal names the problem and its position and keeps the previous filter
// and the current row.
TEST(RecordsetFilter, RefusesWithTheProblemAndItsPositionKeepingThePreviousFilter) {
  for (const auto& [criteria, problem, position] :
       std::initializer_list<std::tuple<const char*, const char*, int>>{
           {"Nope = 1", "nežinomas laukas 'Nope'", 1},
           {"ID = 1 AND Šalis = 2", "nežinomas laukas 'Šalis'", 12},
           {"ID 1", "laukta operatoriaus", 4}, {"Name IS 'x'", "laukta operatoriaus", 6},
           {"ID == 1", "laukta reikšmės", 5}, {"ID =", "laukta reikšmės", 5},
           {"Code = EUR", "rasta 'EUR'", 8}, {"ID = Null", "negali būti Null", 6},
           {"Code = 'EUR", "be uždarančios kabutės", 8},
           {"Code = 'O''", "be uždarančios kabutės", 8},
           {"Date = #2024-01-01", "be uždarančio #", 8},
           {"Date = #2024-13-01#", "'2024-13-01' nėra data", 8},
           {"Date = #2/30/2024#", "nėra data", 8}, {"Date = ##", "nėra data", 8},
           {"ID = 1.2.3", "'1.2.3' nėra skaičius", 6}, {"ID = 5abc", "'5abc' nėra skaičius", 6},
           {"ID = 1,5", "'1,5' nėra skaičius", 6}, {"ID = -", "nėra skaičius", 6},
           {"ID = 1e999", "nėra skaičius", 6}, {"ID = 1 Code = 'X'", "laukta AND arba OR", 8},
           {"Name = 'Šarūnas' ID", "laukta AND arba OR", 18}, {"   ", "laukta lauko vardo", 4},
           {"= 1", "laukta lauko vardo", 1}, {"ID = 1 AND", "laukta lauko vardo", 11},
           {"(ID = 1", "'(' be atitinkamo ')'", 1}, {"ID = 1)", "')' be atitinkamo '('", 7},
           {"(ID = 1 Code = 'X')", "laukta AND, OR arba ')'", 9}, {"()", "tušti skliaustai", 1},
           {"[Purch Date = 1", "'[' be atitinkamo ']'", 1},
           {"[ ] = 1", "tuščias lauko vardas", 1},
           {"[Purch  Date] = 1", "nežinomas laukas 'Purch  Date'", 1},
           // An OR-group may not be joined by AND, on either side.
           {"(ID = 1 OR ID = 2) AND Code = 'EUR'", "OR sujungtų sąlygų", 20},
           {"Code = 'EUR' AND (ID = 1 OR ID = 2)", "OR sujungtų sąlygų", 14},
           {"ID = 1 OR ID = 2 AND Code = 'EUR'", "OR sujungtų sąlygų", 18},
           // LIKE takes text with wildcards at the end or at both ends only.
           {"Name LIKE '*ith'", "tik gale arba abiejuose galuose", 11},
           {"Name LIKE 'S*h'", "tik gale arba abiejuose galuose", 11},
           {"Name LIKE '***'", "tik gale arba abiejuose galuose", 11},
           {"Name LIKE 5", "LIKE reikia tekstinės reikšmės", 11}}) {
    SCOPED_TRACE(criteria);
    MemoryRecordset rs = FilterSet();
    rs.SetFilter("Code = 'EUR'");
    rs.MoveNext();
    std::string text;
    EXPECT_EQ(ErrorOf([&, c = criteria] { rs.SetFilter(c); }, &text), RuntimeError::kBadFilter);
    EXPECT_THAT(text, HasSubstr(problem));
    EXPECT_THAT(text, HasSubstr("pozicija " + std::to_string(position)));
    EXPECT_EQ(rs.Filter(), Variant("Code = 'EUR'"));
    EXPECT_EQ(rs.Fields("ID").Value(), Variant(3));  // still on the second match
    EXPECT_THAT(VisibleIds(rs), ElementsAre(1, 3));
  }
}

TEST(RecordsetFilterLimits, NestingBeyondSixtyFourLevelsButNotUpToIt) {
  MemoryRecordset rs = FilterSet();
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
  MemoryRecordset rs = FilterSet();
  for (const Variant& bad : {Variant::Null(), Variant(3), Variant(1.5), Variant(true),
                             Variant(Variant::Array{Variant(1)})}) {
    EXPECT_EQ(ErrorOf([&] { rs.SetFilter(bad); }), RuntimeError::kBadFilter) << Describe(bad);
  }
  EXPECT_EQ(rs.RecordCount(), 6);
}

// The criteria are reported as set; a new filter replaces rather than narrows.
TEST(RecordsetFilter, MovesToTheFirstMatchCountsOnlyMatchesAndWithNoneHasNoCurrentRecord) {
  MemoryRecordset rs = FilterSet();
  EXPECT_EQ(rs.Filter(), Variant(0));
  rs.MoveNext();
  rs.MoveNext();
  rs.MoveNext();
  rs.SetFilter("Code = 'eur'");
  EXPECT_EQ(At(rs), "1/2");
  rs.MoveNext();
  EXPECT_EQ(At(rs), "3/2");
  rs.MoveNext();
  EXPECT_EQ(At(rs), "EOF/2");
  rs.SetFilter(" ID = 2");
  EXPECT_EQ(rs.Filter(), Variant(" ID = 2"));
  EXPECT_EQ(At(rs), "2/1");
  MemoryRecordset none = FilterSet();
  none.SetFilter("ID = 99");
  EXPECT_EQ(At(none), "BOF EOF/0");
  EXPECT_EQ(ErrorOf([&] { none.Fields("ID").Value(); }), RuntimeError::kNoCurrentRecord);
}

// Empty text, zero or Empty clears the filter.
TEST(RecordsetFilter, ClearingShowsEveryRowFromTheFirstAndReportsWhatWasSet) {
  for (const Variant& clear : {Variant(""), Variant(0), Variant(0.0), Variant()}) {
    MemoryRecordset rs = FilterSet();
    rs.SetFilter("ID = 99");
    rs.SetFilter(clear);
    EXPECT_EQ(At(rs), "1/6") << Describe(clear);
    EXPECT_EQ(rs.Filter(), clear);
  }
}

TEST(RecordsetFilter, RowsAddedLaterJoinWhenTheyMatchEditsMoveNoneUntilTheFilterIsSetAgain) {
  MemoryRecordset rs = FilterSet();
  rs.SetFilter("Code = 'EUR'");
  rs.AddRow({7, "eur", "x", 1, Variant::Null(), 0, Variant::Null(), "n"});
  rs.AddRow({8, "LTL", "y", 1, Variant::Null(), 0, Variant::Null(), "n"});
  EXPECT_THAT(VisibleIds(rs), ElementsAre(1, 3, 7));
  EXPECT_EQ(rs.StoredRowCount(), 8u);
  MemoryRecordset edited = FilterSet();
  edited.SetFilter("Code = 'EUR'");
  edited.Fields("Code").SetValue("LTL");
  EXPECT_THAT(VisibleIds(edited), ElementsAre(1, 3));
  edited.SetFilter(edited.Filter());
  EXPECT_THAT(VisibleIds(edited), ElementsAre(3));
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

// ---- sorting ----

// Ties on every key, Nulls and Empties, Lithuanian letters, "_" (which the
// text compare puts before letters), a column mixing numbers and text.
MemoryRecordset SortSet() {
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

// Rows come in key order with ties in storage order. Text ignores case, "_"
// comes before letters, Lithuanian after z; Null lowest, first ascending and
// last descending, 10 and 10.0 tie; dates by serial; Null and Empty lowest,
// then numbers, then text (even "10"); True is -1, before False, Empty below
// both.
TEST(RecordsetSort, RowsComeInKeyOrderWithTiesInStorageOrder) {
  for (const auto& [keys, ids] : std::initializer_list<std::pair<const char*, Ids>>{
           {"", {1, 2, 3, 4, 5, 6}}, {"ID DESC", {6, 5, 4, 3, 2, 1}}, {"Name", {5, 2, 3, 1, 6, 4}},
           {"Name DESC", {4, 6, 1, 2, 3, 5}}, {"name, id desc", {5, 3, 2, 1, 6, 4}},
           {"  Name  ASC , ID DESC ", {5, 3, 2, 1, 6, 4}}, {"Amount", {2, 5, 3, 1, 4, 6}},
           {"Amount DESC", {1, 4, 6, 3, 5, 2}}, {"Amount DESC, ID DESC", {6, 4, 1, 3, 5, 2}},
           {"Date", {3, 4, 2, 6, 1, 5}}, {"Date DESC,Name", {5, 1, 2, 6, 4, 3}},
           {"Grp, Amount DESC", {5, 4, 6, 2, 1, 3}}, {"Mixed", {3, 6, 4, 1, 5, 2}},
           {"Mixed DESC", {2, 5, 1, 4, 3, 6}}, {"Flag, ID DESC", {5, 4, 2, 6, 3, 1}},
           {"[Purch Date]", {6, 5, 4, 3, 2, 1}}, {"[purch date] desc", {1, 2, 3, 4, 5, 6}},
           {"Purch Date DESC", {1, 2, 3, 4, 5, 6}},  // unambiguous without [ ]
           {"Name, Name DESC", {5, 2, 3, 1, 6, 4}}}) {
    MemoryRecordset rs = SortSet();
    rs.SetSort(keys);
    EXPECT_EQ(VisibleIds(rs), ids) << keys;
    EXPECT_EQ(rs.Sort(), keys);
  }
}

TEST(RecordsetSort, RefusesKeepingTheSortInForceAndThePosition) {
  constexpr int32_t kNotFound = RuntimeError::kItemNotFound, kBad = RuntimeError::kBadFilter;
  for (const auto& [keys, number, problem] :
       std::initializer_list<std::tuple<const char*, int32_t, const char*>>{
           {"Nope", kNotFound, "Kolekcijoje nėra elemento: Nope"},
           {"Name UP", kNotFound, "elemento: Name UP"},
           {"Name,,ID", kBad, "tuščias rikiavimo raktas, pozicija 6"},
           {"DESC", kNotFound, "elemento: DESC"}, {"[Name", kBad, "'[' be atitinkamo ']'"},
           {"[Name] UP", kBad, "laukta ASC arba DESC"}}) {
    MemoryRecordset rs = SortSet();
    rs.SetSort("ID DESC");
    rs.MoveNext();
    std::string text;
    EXPECT_EQ(ErrorOf([&, k = keys] { rs.SetSort(k); }, &text), number) << keys;
    EXPECT_THAT(text, HasSubstr(problem));
    EXPECT_EQ(rs.Sort(), "ID DESC");
    EXPECT_EQ(rs.Fields("ID").Value(), Variant(5));
    EXPECT_THAT(VisibleIds(rs), ElementsAre(6, 5, 4, 3, 2, 1));
  }
}

TEST(RecordsetSort, MovesToTheFirstRecordOfTheNewOrderAndSortsEmptySets) {
  MemoryRecordset rs = SortSet();
  rs.MoveNext();
  rs.MoveNext();
  rs.SetSort("Name");
  EXPECT_EQ(rs.Fields("ID").Value(), Variant(5));
  rs.SetSort("");
  EXPECT_EQ(rs.Fields("ID").Value(), Variant(1));
  MemoryRecordset empty({"ID"});
  empty.SetSort("ID DESC");
  EXPECT_EQ(At(empty), "BOF EOF/0");
  MemoryRecordset none = SortSet();
  none.SetFilter("ID = 99");
  none.SetSort("Name");
  EXPECT_EQ(At(none), "BOF EOF/0");
}

TEST(RecordsetSort, AndFilterEachKeepTheOtherWhenSet) {
  MemoryRecordset rs = SortSet();
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

// Null and Empty lowest, then numbers, then text.
int Rank(const Variant& v) { return v.IsEmpty() || v.IsNull() ? 0 : v.IsString() ? 2 : 1; }

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
  // A negative column sorts descending.
  for (const auto& [keys, columns] : std::initializer_list<std::pair<const char*, Ids>>{
           {"Text", {1}}, {"Text DESC", {-1}}, {"Mixed, Number DESC", {3, -2}},
           {"Number, Text DESC, Mixed", {2, -1, 3}}}) {
    std::vector<int> expected(rows.size());
    std::iota(expected.begin(), expected.end(), 0);
    std::stable_sort(expected.begin(), expected.end(), [&, &columns = columns](int a, int b) {
      for (const int k : columns) {
        const int c = ReferenceCompare(rows[a][std::abs(k)], rows[b][std::abs(k)]);
        if (c != 0) return k < 0 ? c > 0 : c < 0;
      }
      return false;
    });
    rs.SetSort(keys);
    EXPECT_EQ(VisibleIds(rs), expected) << keys;
  }
}

}  // namespace
}  // namespace orvel
