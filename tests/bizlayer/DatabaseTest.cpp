#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <optional>
#include <tuple>

#include "ScratchDatabase.h"
#include "TempDatabase.h"
#include "bizlayer/BusinessLayer.h"
#include "bizlayer/ReferenceDatabase.h"
#include "bizlayer/SchemaPart.h"
#include "bizlayer/SchemaParts.h"
#include "bizlayer/SqliteDatabase.h"
#include "bizlayer/TableBusinessObject.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "orvel/Recordset.h"
#include "support/Sql.h"

namespace orvel {
namespace {

struct RoundTrip {
  const char* column;  // a column of the probe table
  Variant stored;
  std::optional<Variant> read = std::nullopt;  // when not what was stored
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

TEST_P(DatabaseTest, ObjectsAndBadSqlAreRefused) {
  db_->Exec("CREATE TABLE probe (t TEXT)");
  auto insert = db_->Prepare("INSERT INTO probe VALUES (?)");
  EXPECT_THROW(insert.Bind(1, Variant(std::make_shared<MemoryRecordset>())), DatabaseError);
  EXPECT_THAT([&] { db_->Prepare("SELECT nothing FROM nowhere").Step(); },
              ::testing::ThrowsMessage<DatabaseError>(::testing::HasSubstr("nowhere")));
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
    EXPECT_EQ(ConcatText(probe.Column(0)) + ConcatText(probe.Column(1)),
              std::to_string(contains) + std::to_string(starts)) << text;
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
  auto rows = db_->Prepare("SELECT t AS Kept, ID FROM probe");
  ASSERT_TRUE(rows.Step());
  EXPECT_EQ(rows.ColumnName(0) + "=" + RowsText(*db_, "SELECT * FROM probe"),
            "Kept=" + std::to_string(id) + "|kept|\n");
}

INSTANTIATE_TEST_SUITE_P(Engines, DatabaseTest, ::testing::ValuesIn(DatabaseEngines()),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(ReferenceDatabase, FirstOpenCreatesTheSampleDataOnce) {
  TempDatabase file;
  {
    auto db = ReferenceDatabase::Open(file.Path());
    // Sales are taken from a lot of their good bought by then, none oversold.
    EXPECT_EQ(ConcatText(FirstValue(
                  *db, "SELECT (SELECT COUNT(*) FROM firms WHERE GroupFlag = 0) || '|' || (SELECT"
                       " COUNT(*) >= 2000 FROM goods) || '|' || (SELECT TenCurr FROM currencies"
                       " WHERE Code = 'EUR') || '|' || (SELECT COUNT(DISTINCT RateDate) FROM"
                       " currency_rates) || '|' || (SELECT COUNT(*) > 20 FROM document_lines"
                       " WHERE PurchaseLineID IS NOT NULL)")),
              "300|1|eurų|365|1");
    EXPECT_EQ(FirstValue(*db,
                  "SELECT COUNT(*) FROM document_lines s JOIN documents sd ON sd.ID ="
                  " s.DocumentID JOIN document_lines p ON p.ID = s.PurchaseLineID JOIN documents"
                  " pd ON pd.ID = p.DocumentID WHERE p.GoodID <> s.GoodID OR pd.DocDate >"
                  " sd.DocDate OR pd.Sign >= 0 OR p.Rest + (SELECT SUM(x.Amount) FROM"
                  " document_lines x WHERE x.PurchaseLineID = p.ID) > p.Amount"),
              Variant(0));
    db->Exec("INSERT INTO banks (Name) VALUES ('Naujas bankas')");
  }
  auto again = ReferenceDatabase::Open(file.Path());
  EXPECT_EQ(FirstValue(*again, "SELECT COUNT(*) FROM banks"), Variant(7));
  EXPECT_EQ(FirstValue(*again, "PRAGMA journal_mode"), Variant("wal"));
}

// A file of an earlier version, made from a file of today by `make`: once
// opened it is of today's version, the queries of `kept` answer what they
// answered before, and each query of `after` answers its value.
struct OldFileCase {
  const char* name;
  std::function<void(const std::string& path)> make;
  std::vector<const char*> kept;
  std::vector<std::pair<const char*, Variant>> after;
};

// Today's file with `sql` run on it: back to an earlier shape.
std::function<void(const std::string&)> Downgraded(const char* sql) {
  return [sql](const std::string& path) { ReferenceDatabase::Open(path)->Exec(sql); };
}

// Version 3 knew no schema parts; the file as it made it, with its records.
void MakeThirdVersionFile(const std::string& path) {
  SqliteDatabase db(path);
  Transaction transaction(db);
  ReferenceDatabase::CreateSchema(db);
  ReferenceDatabase::SeedSampleData(db);
  db.Exec("UPDATE banks SET Name = 'Išlikęs' WHERE ID = 3; PRAGMA user_version = 3;");
  transaction.Commit();
}

// The file as the version before the goods' records made it: prices a call table with NOT NULL
// columns and foreign keys, minimum amounts and templates from the goods-details part, none of the
// three described, units a flat table of names and codes, the good without the rate the card
// writes, every part before the records made.
void MakeFileBeforeGoodsRecords(const std::string& path) {
  SqliteDatabase db(path);
  Transaction transaction(db);
  ReferenceDatabase::CreateSchema(db);
  db.Exec(
      "DROP TABLE goods_prices; DROP TABLE goods_min_amounts; DROP TABLE goods_templates;"
      "DROP VIEW document_invoices; DROP VIEW document_advances_received;"
      "DROP VIEW document_advances_paid; DROP VIEW document_contracts;"
      "DELETE FROM field_descriptions WHERE StructureName IN ('GoodPrices', 'GoodMinAmounts',"
      " 'GoodBRTemplates');"
      "CREATE TABLE goods_prices (ID INTEGER PRIMARY KEY AUTOINCREMENT,"
      " GoodID INTEGER NOT NULL REFERENCES goods(ID) ON DELETE CASCADE, PriceType TEXT NOT NULL,"
      " Currency TEXT NOT NULL, Price REAL NOT NULL, FirmID INTEGER REFERENCES firms(ID));");
  ReferenceDatabase::SeedSampleData(db);
  db.Exec(
      "CREATE TABLE old_measures (ID INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT, Code TEXT);"
      "INSERT INTO old_measures SELECT ID, Name, Code FROM measures; DROP TABLE measures;"
      "ALTER TABLE old_measures RENAME TO measures; DROP TABLE goods_measures;"
      "ALTER TABLE goods DROP COLUMN VAT; ALTER TABLE goods DROP COLUMN PriceWithVAT;"
      "ALTER TABLE goods DROP COLUMN AmountPrecision;"
      "DELETE FROM field_descriptions WHERE StructureName IN ('Measures', 'GoodMeasures');"
      "CREATE TABLE schema_parts (Name TEXT PRIMARY KEY)");
  for (const auto& part : SchemaParts()) {
    if (part.name == "goods-detail-records") break;
    if (part.create) part.create(db);
    if (part.seed) part.seed(db);
    db.Prepare("INSERT INTO schema_parts (Name) VALUES (?)").BindAll(part.name).Run();
  }
  // A kept price type with an apostrophe, and a deleted last price whose ID
  // must not be given again.
  db.Exec(
      "UPDATE goods_prices SET PriceType = 'Klientų ''VIP''' WHERE ID = 2;"
      "INSERT INTO goods_prices (GoodID, PriceType, Currency, Price) SELECT GoodID, 'Laikina',"
      " 'EUR', 1 FROM goods_prices WHERE ID = 1;"
      "DELETE FROM goods_prices WHERE PriceType = 'Laikina';"
      "PRAGMA user_version = " +
      std::to_string(ReferenceDatabase::kSchemaVersion));
  transaction.Commit();
}

class OldFileTest : public ::testing::TestWithParam<OldFileCase> {};

TEST_P(OldFileTest, IsBroughtUpToDateAndKeepsItsRecords) {
  TempDatabase file;
  GetParam().make(file.Path());
  std::vector<std::string> before;
  {
    SqliteDatabase old(file.Path());
    for (const char* sql : GetParam().kept) before.push_back(RowsText(old, sql));
  }
  // Opened twice: the second opening of a file brought up to date writes nothing.
  ReferenceDatabase::Open(file.Path());
  auto db = ReferenceDatabase::Open(file.Path());
  EXPECT_EQ(FirstValue(*db, "PRAGMA user_version"), Variant(ReferenceDatabase::kSchemaVersion));
  for (size_t i = 0; i < before.size(); ++i) {
    EXPECT_FALSE(before[i].empty()) << GetParam().kept[i];
    EXPECT_EQ(RowsText(*db, GetParam().kept[i]), before[i]) << GetParam().kept[i];
  }
  for (const auto& [sql, value] : GetParam().after) EXPECT_EQ(FirstValue(*db, sql), value) << sql;
}

const Variant kParts(static_cast<int32_t>(SchemaParts().size()));

INSTANTIATE_TEST_SUITE_P(
    Versions, OldFileTest,
    ::testing::ValuesIn(std::vector<OldFileCase>{
        {"First", Downgraded(
                "DROP TRIGGER goods_records_follow_good; DELETE FROM schema_parts WHERE Name IN"
                " ('goods-records-follow-their-good', 'goods-measure-rows-and-units-book');"
                " DROP TRIGGER goods_vat_update; DROP TRIGGER goods_vat_rate_update;"
                " DROP VIEW document_invoices; DROP VIEW document_advances_received;"
                " DROP VIEW document_advances_paid; DROP VIEW document_contracts;"
                " DROP TABLE goods_prices; DROP TABLE firm_branches; DROP TABLE firm_info;"
                " DROP TABLE document_lines; DROP TABLE documents; DROP TABLE regions;"
                " DROP TABLE settings; ALTER TABLE firms DROP COLUMN CreditDays;"
                " ALTER TABLE goods DROP COLUMN WithRest; ALTER TABLE goods DROP COLUMN Garanty;"
                " DELETE FROM field_descriptions WHERE Name IN ('CreditDays', 'WithRest',"
                " 'Garanty'); UPDATE firms SET Name = 'Išlikusi O''Brien' WHERE ID = 9;"
                " PRAGMA user_version = 1;"),
            {"SELECT ID, Name FROM firms"},
            {{"SELECT COUNT(*) > 300 FROM documents", Variant(1)},
             {"SELECT COUNT(*) FROM field_descriptions WHERE StructureName = 'Goods'"
              " AND Name IN ('WithRest', 'Garanty')", Variant(2)},
             {"SELECT COUNT(*) FROM sqlite_master WHERE name = 'goods_records_follow_good'",
              Variant(1)}}},
        // Before goods were kept by serial numbers and debts carried their direction in Sign alone.
        {"SerialGoodsAndDebtsBySign", Downgraded(
                "ALTER TABLE goods DROP COLUMN WithItems; UPDATE documents SET Debt = -Debt WHERE"
                " Sign < 0; DELETE FROM field_descriptions WHERE Name = 'WithItems'; DELETE FROM"
                " schema_parts WHERE Name IN ('goods-with-items', 'document-debts-by-sign');"),
            {},
            {{"SELECT COUNT(*) FROM documents WHERE Debt < 0", Variant(0)},
             {"SELECT COUNT(*) FROM field_descriptions WHERE Name = 'WithItems'", Variant(1)},
             {"SELECT COUNT(*) FROM goods WHERE WithItems = 1 AND ID NOT IN (SELECT GoodID FROM"
              " document_lines WHERE SerialNo IS NOT NULL)", Variant(0)},
             {"SELECT COUNT(*) > 10 FROM goods WHERE WithItems = 1", Variant(1)}}},
        {"Second", Downgraded(
                "DROP TABLE reference_books; DROP TABLE book_firm_types; DROP TABLE"
                " book_payment_terms; DROP TABLE book_locations; DELETE FROM field_descriptions"
                " WHERE StructureName IN ('ReferenceBooks', 'FirmTypes', 'PaymentTerms',"
                " 'Locations'); UPDATE banks SET Name = 'Išlikęs bankas' WHERE ID = 2;"
                " PRAGMA user_version = 2;"),
            {"SELECT ID, Name FROM banks"},
            {{"SELECT COUNT(*) FROM reference_books", Variant(3)},
             {"SELECT Name FROM book_payment_terms WHERE Code = '30'", Variant("Per 30 dienų")},
             {"SELECT COUNT(*) FROM field_descriptions WHERE StructureName = 'Locations'",
              Variant(6)}}},
        // Every part is made once and named.
        {"Third", MakeThirdVersionFile, {"SELECT ID, Name FROM banks"},
         {{"SELECT COUNT(*) FROM schema_parts", kParts},
          {"SELECT COUNT(*) FROM reference_books", Variant(6)}}},
        // The prices keep their rows, IDs and sequence; the units become the
        // book, their IDs kept, the measure rows its records.
        {"BeforeGoodsRecords", MakeFileBeforeGoodsRecords,
            {"SELECT ID, GoodID, PriceType, Currency, Price, FirmID FROM goods_prices ORDER BY ID",
             "SELECT ID, GoodID, LocationID, MinAmount FROM goods_min_amounts",
             "SELECT seq FROM sqlite_sequence WHERE name = 'goods_prices'"},
            {{"SELECT COUNT(*) FROM goods_prices WHERE GoodPriceTypeID IS NULL OR Name IS NULL"
              " OR Name <> PriceType", Variant(0)},
             {"SELECT Name FROM goods_prices WHERE ID = 2", Variant("Klientų 'VIP'")},
             {"SELECT COUNT(*) FROM goods_min_amounts WHERE Name IS NULL", Variant(0)},
             {"SELECT COUNT(*) FROM schema_parts WHERE Name = 'goods-detail-records'", Variant(1)},
             {"SELECT ID || '|' || Name || '|' || MeasureType FROM measures WHERE Code = 'pak.'",
              Variant("7|pakuotė|1")},
             {"SELECT COUNT(*) FROM reference_books WHERE BookOID = 'O0001606'", Variant(1)},
             {"SELECT COUNT(*) FROM goods WHERE VAT IS NOT CAST(VatRate AS INTEGER)"
              " OR AmountPrecision IS NULL", Variant(0)}}}}),
    [](const auto& info) { return std::string(info.param.name); });

// A file of the version before the goods' records takes a price as the card
// writes it, under the old constraints, with an ID never given before.
TEST(ReferenceDatabase, AFileBeforeGoodsRecordsTakesANewPrice) {
  TempDatabase file;
  MakeFileBeforeGoodsRecords(file.Path());
  auto db = ReferenceDatabase::Open(file.Path());
  BusinessLayer layer(db);
  layer.SetUserName("admin");
  const Variant lastId =
      FirstValue(*db, "SELECT seq FROM sqlite_sequence WHERE name = 'goods_prices'");
  auto prices = layer.BusinessObject("O0000600");
  auto fresh = std::dynamic_pointer_cast<Recordset>(
      prices->GetCall("Orvel_NewObject", "'O0000600'", 0).Object);
  ASSERT_NE(fresh, nullptr);
  fresh->Fields("GoodID").SetValue(FirstValue(*db, "SELECT GoodID FROM goods_prices WHERE ID = 2"));
  fresh->Fields("GoodPriceTypeID").SetValue(Variant(1));
  fresh->Fields("Price").SetValue(Variant(2.5));
  Variant::Array array{Variant(fresh)};
  auto saved = prices->ExecArrayCall("Orvel_SaveObject", "'O0000600',''", array);
  ASSERT_EQ(saved.Number, 0) << saved.Text;
  EXPECT_GT(fresh->Fields("ID").Value().NumberValue(), lastId.NumberValue());
  EXPECT_EQ(FirstValue(*db, "SELECT PriceType FROM goods_prices ORDER BY ID DESC"),
            Variant("Mažmeninė"));
}

// A writer child saves banks through the business layer as fast as it can
// and is killed in the middle; the database opens again whole, holding only
// whole records.
TEST(ReferenceDatabase, SurvivesAKilledWriter) {
  TempDatabase file;
  ReferenceDatabase::Open(file.Path());
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    close(ready[0]);
    auto db = ReferenceDatabase::Open(file.Path());
    BusinessLayer layer(db);
    auto banks = layer.BusinessObject("O0000300");
    for (int i = 0;; ++i) {
      auto reply = banks->GetCall("Orvel_NewObject", "'O0000300'", 0);
      auto rs = std::dynamic_pointer_cast<Recordset>(reply.Object);
      rs->Fields("Name").SetValue(Variant("Bankas " + std::to_string(i)));
      rs->Fields("Code").SetValue(Variant(std::to_string(i)));
      Variant::Array array{Variant(rs)};
      banks->ExecArrayCall("Orvel_SaveObject", "'O0000300',''", array);
      if (i == 50) (void)!write(ready[1], "x", 1);
    }
  }
  close(ready[1]);
  char byte = 0;
  ASSERT_EQ(read(ready[0], &byte, 1), 1);
  close(ready[0]);
  kill(child, SIGKILL);
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_TRUE(WIFSIGNALED(status));

  auto db = ReferenceDatabase::Open(file.Path());
  EXPECT_EQ(FirstValue(*db, "PRAGMA integrity_check"), Variant("ok"));
  EXPECT_GE(FirstValue(*db, "SELECT COUNT(*) FROM banks").NumberValue(), 6 + 51);
  EXPECT_EQ(FirstValue(*db,
                "SELECT COUNT(*) FROM banks WHERE Name LIKE 'Bankas %'"
                " AND (Code IS NULL OR CreationDate IS NULL)"),
            Variant(0));
}

}  // namespace
}  // namespace orvel
