#include "host/RecordsetColumn.h"

#include <gtest/gtest.h>

#include <vector>

namespace orvel {
namespace {

using Values = std::vector<Variant>;

// What a column gives back is what went in, whatever kinds follow one
// another; then each row takes another value (the same kinds and others)
// and the last rows go again.
class RecordsetColumnTest : public ::testing::TestWithParam<Values> {};

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

TEST_P(RecordsetColumnTest, GivesBackWhatWentInThroughEditsAndRemovals) {
  Values values = GetParam();
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

INSTANTIATE_TEST_SUITE_P(
    Kinds, RecordsetColumnTest,
    ::testing::Values(
        Values{Variant("Pienas"), Variant(""), Variant::Null(), Variant("Grietinė 30 %"),
               Variant()},
        Values{Variant(), Variant::Null(), Variant(5), Variant(-2147483647 - 1), Variant::Null()},
        Values{Variant(1.5), Variant::Null(), Variant(-0.0), Variant(1e300)},
        Values{Variant(true), Variant(false), Variant()},
        Values{Variant(Date{1.25}), Variant::Null()},
        // More than one kind: kept as they came.
        Values{Variant(3), Variant(3.0), Variant("3"), Variant(true), Variant::Null(), Variant()},
        Values{Variant(Variant::Array{Variant(1)}), Variant("a")}));

TEST(RecordsetColumnEmptyRows, StartEmptyAndTakeTheFirstKindGiven) {
  RecordsetColumn column(5);
  ExpectHolds(column, Values(5));
  column.Set(3, Variant("x"));
  column.push_back(Variant("yy"));
  ExpectHolds(column, {Variant(), Variant(), Variant(), Variant("x"), Variant(), Variant("yy")});
}

}  // namespace
}  // namespace orvel
