#include <gtest/gtest.h>

#include "bizlayer/SqliteDatabase.h"
#include "bizlayer/Database.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"

namespace orvel {
namespace {

struct RoundTrip {
  const char* column;  // a column of the probe table
  Variant stored;
  Variant read;
};

class SqliteRoundTripTest : public ::testing::TestWithParam<RoundTrip> {
 protected:
  SqliteRoundTripTest() {
    db_.Exec(
        "CREATE TABLE probe (i INTEGER, r REAL, t TEXT, d DATE, b BOOLEAN);"
        "INSERT INTO probe DEFAULT VALUES;");
  }
  SqliteDatabase db_{":memory:"};
};

TEST_P(SqliteRoundTripTest, ValueReadsBackByDeclaredType) {
  const auto& c = GetParam();
  db_.Prepare(std::string("UPDATE probe SET ") + c.column + " = ?").Bind(1, c.stored).Run();
  auto select = db_.Prepare(std::string("SELECT ") + c.column + " FROM probe");
  ASSERT_TRUE(select.Step());
  EXPECT_EQ(select.Column(0), c.read) << Describe(select.Column(0));
}

Date At(int y, int m, int d, int seconds = 0) {
  Date date = DateSerial(y, m, d);
  date.serial += seconds / 86400.0;
  return date;
}

INSTANTIATE_TEST_SUITE_P(
    Values, SqliteRoundTripTest,
    ::testing::Values(
        RoundTrip{"i", Variant(42), Variant(42)},
        RoundTrip{"i", Variant(int64_t{5000000000}), Variant(5000000000.0)},
        RoundTrip{"i", Variant(), Variant::Null()},
        RoundTrip{"i", Variant::Null(), Variant::Null()},
        RoundTrip{"r", Variant(3.4528), Variant(3.4528)}, RoundTrip{"r", Variant(7), Variant(7.0)},
        RoundTrip{"t", Variant("O'Brien"), Variant("O'Brien")},
        RoundTrip{"t", Variant("x'; DROP TABLE firms; --"), Variant("x'; DROP TABLE firms; --")},
        RoundTrip{"t", Variant("UAB „Šiaulių duona“"), Variant("UAB „Šiaulių duona“")},
        RoundTrip{"t", Variant(""), Variant("")},
        RoundTrip{"d", Variant(At(2026, 11, 23)), Variant(At(2026, 11, 23))},
        RoundTrip{"d", Variant(At(2014, 12, 31, 13 * 3600 + 5 * 60 + 7)),
                  Variant(At(2014, 12, 31, 13 * 3600 + 5 * 60 + 7))},
        RoundTrip{"b", Variant(true), Variant(true)},
        RoundTrip{"b", Variant(false), Variant(false)}));

TEST(Statement, ObjectsCannotBeStored) {
  SqliteDatabase db(":memory:");
  db.Exec("CREATE TABLE probe (t TEXT)");
  auto insert = db.Prepare("INSERT INTO probe VALUES (?)");
  EXPECT_THROW(insert.Bind(1, Variant(std::make_shared<MemoryRecordset>())), DatabaseError);
}

TEST(Statement, BadSqlIsAnErrorThatNamesTheStatement) {
  SqliteDatabase db(":memory:");
  try {
    db.Prepare("SELECT nothing FROM nowhere");
    FAIL() << "no error";
  } catch (const DatabaseError& e) {
    EXPECT_NE(std::string(e.what()).find("nowhere"), std::string::npos);
  }
}

TEST(Statement, ContainsComparesLithuanianLettersWithoutCase) {
  SqliteDatabase db(":memory:");
  auto probe = db.Prepare("SELECT orvel_contains(?, ?)");
  probe.BindAll("AB „ŠIAULIŲ DUONA“", "šiaulių");
  ASSERT_TRUE(probe.Step());
  EXPECT_EQ(probe.Column(0), Variant(1));
  probe.Reset();
  probe.BindAll("Medienos centras", "Šiaulių");
  ASSERT_TRUE(probe.Step());
  EXPECT_EQ(probe.Column(0), Variant(0));
}

TEST(Transaction, RollsBackUnlessCommitted) {
  SqliteDatabase db(":memory:");
  db.Exec("CREATE TABLE probe (t TEXT)");
  {
    Transaction transaction(db);
    db.Exec("INSERT INTO probe VALUES ('lost')");
  }
  {
    Transaction transaction(db);
    db.Exec("INSERT INTO probe VALUES ('kept')");
    transaction.Commit();
  }
  auto count = db.Prepare("SELECT group_concat(t) FROM probe");
  ASSERT_TRUE(count.Step());
  EXPECT_EQ(count.Column(0), Variant("kept"));
}

}  // namespace
}  // namespace orvel
