#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "host/MemoryRecordset.h"
#include "orvel/RuntimeError.h"
#include "support/RuntimeErrors.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;

MemoryRecordset MakeSet() {
  MemoryRecordset rs({"ID", "Pavadinimas", "Šalis", "Kaina"});
  rs.AddRow({1, "Bankas", "Lietuva", 1.5});
  rs.AddRow({2, "Kitas", "Latvija", Variant::Null()});
  rs.AddRow({3, "Trečias", "Estija", 3});
  return rs;
}

// ---- fields ----

struct LookupCase {
  const char* asked;
  const char* name;
};

class RecordsetFieldLookup : public ::testing::TestWithParam<LookupCase> {};

TEST_P(RecordsetFieldLookup, IgnoresCaseIncludingLithuanianLetters) {
  MemoryRecordset rs = MakeSet();
  EXPECT_TRUE(rs.Fields().Exists(GetParam().asked));
  EXPECT_EQ(rs.Fields(GetParam().asked).Name(), GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(Names, RecordsetFieldLookup,
                         ::testing::Values(LookupCase{"ID", "ID"}, LookupCase{"id", "ID"},
                                           LookupCase{"PAVADINIMAS", "Pavadinimas"},
                                           LookupCase{"šalis", "Šalis"},
                                           LookupCase{"ŠALIS", "Šalis"},
                                           LookupCase{"kAiNa", "Kaina"}));

// What no set can do is the runtime's error, and changes nothing.
TEST(RecordsetFields, RefusalsAreTheRuntimesErrors) {
  MemoryRecordset rs = MakeSet();
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
  MemoryRecordset rs = MakeSet();
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
  MemoryRecordset rs = MakeSet();
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
  EXPECT_TRUE(empty.IsBOF() && empty.IsEOF());
  EXPECT_EQ(ErrorOf([&] { empty.MoveNext(); }), RuntimeError::kNoCurrentRecord);
  empty.AddRow({7});
  EXPECT_EQ(empty.Fields("ID").Value(), Variant(7));
  MemoryRecordset rs = MakeSet();
  std::vector<Variant> names;
  for (; !rs.IsEOF(); rs.MoveNext()) names.push_back(rs.Fields("Pavadinimas").Value());
  EXPECT_THAT(names, ElementsAre(Variant("Bankas"), Variant("Kitas"), Variant("Trečias")));
  EXPECT_FALSE(rs.IsBOF());
  EXPECT_EQ(ErrorOf([&] { rs.MoveNext(); }), RuntimeError::kNoCurrentRecord);
  rs.AddRow({4, "x", "y", 1});
  EXPECT_TRUE(rs.IsEOF());
  EXPECT_EQ(rs.RecordCount(), 4);
  rs.MoveFirst();
  EXPECT_EQ(rs.Fields("ID").Value(), Variant(1));
  EXPECT_EQ(rs.CurrentStoredRow(), 0u);
}

// ---- edits ----

TEST(RecordsetEdits, ValueIsTheEditUnderlyingValueTheValueAsRead) {
  MemoryRecordset rs = MakeSet();
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
  MemoryRecordset rs = MakeSet();
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
  EXPECT_EQ(rs.StoredValue(0, 3), Variant(2.0));
  EXPECT_EQ(rs.StoredValue(0, 0), Variant(1));
  EXPECT_EQ(rs.StoredValue(1, 3), Variant(4));
  EXPECT_FALSE(rs.CurrentChanged());
}

TEST(RecordsetEdits, AddNewAppendsAnEmptyCurrentRowEvenUnderAFilter) {
  MemoryRecordset rs = MakeSet();
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
  MemoryRecordset rs = MakeSet();
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
  MemoryRecordset rs = MakeSet();
  MemoryRecordset moved(std::move(rs));
  EXPECT_EQ(moved.RecordCount(), 3);
  EXPECT_EQ(rs.FieldCount(), 0u);  // NOLINT(bugprone-use-after-move): left empty by design
  rs = std::move(moved);
  EXPECT_EQ(rs.Fields("Pavadinimas").Value(), Variant("Bankas"));
  EXPECT_TRUE(moved.IsEOF());  // NOLINT(bugprone-use-after-move)
}

}  // namespace
}  // namespace orvel
