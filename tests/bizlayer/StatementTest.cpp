#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <tuple>

#include "ScratchDatabase.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"

namespace orvel {
namespace {

struct RoundTrip {
  const char* column;  // a column of the probe table
  Variant stored;
  std::optional<Variant> read;  // when not what was stored
};

Date At(int y, int m, int d, int seconds = 0) {
  Date date = DateSerial(y, m, d);
  date.serial += seconds / 86400.0;
  return date;
}

// What the layer stores reads back the same on every engine.
class DatabaseTest : public ::testing::TestWithParam<EngineMaker> {
 protected:
  void SetUp() override { db_ = GetParam().make(); }
  std::shared_ptr<Database> db_;
};

TEST_P(DatabaseTest, AValueReadsBackByItsDeclaredType) {
  db_->Exec(
      "CREATE TABLE probe (ID INTEGER PRIMARY KEY AUTOINCREMENT, i INTEGER, r REAL, t TEXT,"
      " d DATE, b BOOLEAN);"
      "INSERT INTO probe (i) VALUES (NULL);");
  for (const RoundTrip& c : std::vector<RoundTrip>{
           {"i", Variant(42)}, {"i", Variant(int64_t{5000000000}), Variant(5e9)},
           {"i", Variant(), Variant::Null()}, {"i", Variant::Null()},
           {"r", Variant(3.4528)}, {"r", Variant(7), Variant(7.0)},
           {"t", Variant("O'Brien")}, {"t", Variant("x'; DROP TABLE firms; --")},
           {"t", Variant("UAB „Šiaulių duona“ ?")}, {"t", Variant("")},
           {"d", Variant(At(2026, 11, 23))},
           {"d", Variant(At(2014, 12, 31, 13 * 3600 + 5 * 60 + 7))},
           {"b", Variant(true)}, {"b", Variant(false)}}) {
    SCOPED_TRACE(std::string(c.column) + " " + Describe(c.stored));
    db_->Prepare(std::string("UPDATE probe SET ") + c.column + " = ?").Bind(1, c.stored).Run();
    EXPECT_EQ(db_->Changes(), 1);
    auto select = db_->Prepare(std::string("SELECT ") + c.column + " FROM probe");
    ASSERT_TRUE(select.Step());
    EXPECT_EQ(select.Column(0), c.read.value_or(c.stored)) << Describe(select.Column(0));
  }
}

// An object cannot be stored; bad SQL is an error naming the statement.
TEST_P(DatabaseTest, ObjectsAndBadSqlAreRefused) {
  db_->Exec("CREATE TABLE probe (t TEXT)");
  auto insert = db_->Prepare("INSERT INTO probe VALUES (?)");
  EXPECT_THROW(insert.Bind(1, Variant(std::make_shared<MemoryRecordset>())), DatabaseError);
  try {
    db_->Prepare("SELECT nothing FROM nowhere").Step();
    FAIL() << "no error";
  } catch (const DatabaseError& e) {
    EXPECT_THAT(e.what(), ::testing::HasSubstr("nowhere"));
  }
}

TEST_P(DatabaseTest, ContainsAndStartsCompareLithuanianLettersWithoutCase) {
  auto probe = db_->Prepare(
      "SELECT CASE WHEN orvel_contains(?1, ?2) THEN 1 ELSE 0 END,"
      " CASE WHEN orvel_starts(?1, ?2) THEN 1 ELSE 0 END");
  for (const auto& [text, part, contains, starts] :
       std::vector<std::tuple<const char*, const char*, int, int>>{
           {"AB „ŠIAULIŲ DUONA“", "šiaulių", 1, 0},
           {"Šiaulių bankas", "ŠIAULIŲ", 1, 1},
           {"Medienos centras", "Šiaulių", 0, 0}}) {
    probe.Reset();
    probe.BindAll(text, part);
    ASSERT_TRUE(probe.Step());
    EXPECT_EQ(probe.Column(0), Variant(contains)) << text;
    EXPECT_EQ(probe.Column(1), Variant(starts)) << text;
  }
}

TEST_P(DatabaseTest, RollsBackUnlessCommittedAndGivesTheNewId) {
  db_->Exec("CREATE TABLE probe (ID INTEGER PRIMARY KEY AUTOINCREMENT, t TEXT)");
  {
    Transaction transaction(*db_);
    db_->Exec("INSERT INTO probe (t) VALUES ('lost')");
  }
  int64_t id = 0;
  {
    Transaction transaction(*db_);
    db_->Prepare("INSERT INTO probe (t) VALUES (?)").BindAll("kept").Run();
    id = db_->LastInsertRowId();
    transaction.Commit();
  }
  auto rows = db_->Prepare("SELECT ID, t AS Kept FROM probe WHERE t IS NOT ?");
  rows.BindAll("lost");
  ASSERT_TRUE(rows.Step());
  EXPECT_EQ(rows.Column(0), Variant(static_cast<int32_t>(id)));
  EXPECT_EQ(rows.ColumnName(1) + "=" + ConcatText(rows.Column(1)), "Kept=kept");
  EXPECT_FALSE(rows.Step());
}

INSTANTIATE_TEST_SUITE_P(Engines, DatabaseTest, ::testing::ValuesIn(DatabaseEngines()),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace orvel
