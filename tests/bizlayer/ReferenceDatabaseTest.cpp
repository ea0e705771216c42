#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "TempDatabase.h"
#include "bizlayer/BusinessLayer.h"
#include "bizlayer/ReferenceDatabase.h"
#include "bizlayer/SchemaPart.h"
#include "bizlayer/SqliteDatabase.h"
#include "bizlayer/TableBusinessObject.h"
#include "host/Convert.h"
#include "orvel/Recordset.h"
#include "support/Sql.h"

namespace orvel {
namespace {

TEST(ReferenceDatabase, FirstOpenCreatesTheSampleDataOnce) {
  TempDatabase file;
  {
    auto db = ReferenceDatabase::Open(file.Path());
    EXPECT_EQ(FirstValue(*db, "SELECT COUNT(*) FROM firms WHERE GroupFlag = 0"), Variant(300));
    EXPECT_GE(FirstValue(*db, "SELECT COUNT(*) FROM goods").NumberValue(), 2000);
    EXPECT_EQ(FirstValue(*db, "SELECT TenCurr FROM currencies WHERE Code = 'EUR'"), Variant("eurų"));
    EXPECT_EQ(FirstValue(*db, "SELECT COUNT(DISTINCT RateDate) FROM currency_rates"), Variant(365));
    // Sales are taken from a lot of their good bought by then, none oversold.
    EXPECT_GT(FirstValue(*db, "SELECT COUNT(*) FROM document_lines WHERE PurchaseLineID IS NOT NULL")
                  .NumberValue(),
              20);
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

TEST(ReferenceDatabase, AFirstVersionFileIsBroughtUpToDateAndKeepsItsRecords) {
  TempDatabase file;
  {
    auto db = ReferenceDatabase::Open(file.Path());
    // Back to the shape the first version wrote.
    db->Exec(
        "DROP TRIGGER goods_records_follow_good; DELETE FROM schema_parts WHERE Name IN"
        " ('goods-records-follow-their-good', 'goods-measure-rows-and-units-book');"
        " DROP TRIGGER goods_vat_update; DROP TRIGGER goods_vat_rate_update;"
        " DROP VIEW document_invoices; DROP VIEW document_advances_received;"
        " DROP VIEW document_advances_paid; DROP VIEW document_contracts;"
        " DROP TABLE goods_prices; DROP TABLE firm_branches; DROP TABLE firm_info;"
        " DROP TABLE document_lines; DROP TABLE documents; DROP TABLE regions;"
        " DROP TABLE settings; ALTER TABLE firms DROP COLUMN CreditDays;"
        " ALTER TABLE goods DROP COLUMN WithRest; ALTER TABLE goods DROP COLUMN Garanty;"
        " DELETE FROM field_descriptions WHERE Name IN ('CreditDays', 'WithRest', 'Garanty');"
        " UPDATE firms SET Name = 'Išlikusi O''Brien' WHERE ID = 9; PRAGMA user_version = 1;");
  }
  auto db = ReferenceDatabase::Open(file.Path());
  EXPECT_EQ(FirstValue(*db, "PRAGMA user_version"), Variant(ReferenceDatabase::kSchemaVersion));
  EXPECT_EQ(FirstValue(*db, "SELECT Name FROM firms WHERE ID = 9"), Variant("Išlikusi O'Brien"));
  EXPECT_GT(FirstValue(*db, "SELECT COUNT(*) FROM documents").NumberValue(), 300);
  EXPECT_EQ(FirstValue(*db,
                "SELECT COUNT(*) FROM field_descriptions WHERE StructureName = 'Goods'"
                " AND Name IN ('WithRest', 'Garanty')"),
            Variant(2));
  EXPECT_EQ(FirstValue(*db, "SELECT COUNT(*) FROM sqlite_master WHERE name = 'goods_records_follow_good'"),
            Variant(1));
  BusinessLayer layer(db);
  auto firm = layer.BusinessObject("O0000100")->GetCall("Orvel_ReadObject", "'O00001009'", 0);
  EXPECT_EQ(firm.Number, 0) << firm.Text;
  auto debt = layer.BusinessObject("O0000100")->GetCall("GetFirmDebt", "O00001009", 0);
  EXPECT_EQ(debt.Number, 0) << debt.Text;
}

// A file made before goods were kept by serial numbers and before debts
// carried their direction in Sign alone.
TEST(ReferenceDatabase, AnOlderFileGainsSerialGoodsAndDebtsBySign) {
  TempDatabase file;
  {
    auto db = ReferenceDatabase::Open(file.Path());
    db->Exec(
        "ALTER TABLE goods DROP COLUMN WithItems; UPDATE documents SET Debt = -Debt WHERE Sign < 0;"
        " DELETE FROM field_descriptions WHERE Name = 'WithItems'; DELETE FROM schema_parts WHERE"
        " Name IN ('goods-with-items', 'document-debts-by-sign');");
  }
  auto db = ReferenceDatabase::Open(file.Path());
  EXPECT_EQ(FirstValue(*db, "SELECT COUNT(*) FROM documents WHERE Debt < 0"), Variant(0));
  EXPECT_EQ(FirstValue(*db, "SELECT COUNT(*) FROM field_descriptions WHERE Name = 'WithItems'"), Variant(1));
  EXPECT_EQ(FirstValue(*db,
                "SELECT COUNT(*) FROM goods WHERE WithItems = 1 AND ID NOT IN (SELECT GoodID FROM"
                " document_lines WHERE SerialNo IS NOT NULL)"),
            Variant(0));
  EXPECT_GT(FirstValue(*db, "SELECT COUNT(*) FROM goods WHERE WithItems = 1").NumberValue(), 10);
}

TEST(ReferenceDatabase, ASecondVersionFileGainsTheReferenceBooks) {
  TempDatabase file;
  {
    auto db = ReferenceDatabase::Open(file.Path());
    db->Exec(
        "DROP TABLE reference_books; DROP TABLE book_firm_types; DROP TABLE book_payment_terms;"
        " DROP TABLE book_locations; DELETE FROM field_descriptions WHERE StructureName IN"
        " ('ReferenceBooks', 'FirmTypes', 'PaymentTerms', 'Locations');"
        " UPDATE banks SET Name = 'Išlikęs bankas' WHERE ID = 2; PRAGMA user_version = 2;");
  }
  auto db = ReferenceDatabase::Open(file.Path());
  EXPECT_EQ(FirstValue(*db, "PRAGMA user_version"), Variant(ReferenceDatabase::kSchemaVersion));
  EXPECT_EQ(FirstValue(*db, "SELECT Name FROM banks WHERE ID = 2"), Variant("Išlikęs bankas"));
  EXPECT_EQ(FirstValue(*db, "SELECT COUNT(*) FROM reference_books"), Variant(3));
  EXPECT_EQ(FirstValue(*db, "SELECT Name FROM book_payment_terms WHERE Code = '30'"),
            Variant("Per 30 dienų"));
  EXPECT_EQ(FirstValue(*db, "SELECT COUNT(*) FROM field_descriptions WHERE StructureName = 'Locations'"),
            Variant(6));
}

// A file of version 3 knows no schema parts: opening it makes every part once
// and keeps its records; the parts' names are then kept, so a second opening
// writes nothing.
TEST(ReferenceDatabase, AThirdVersionFileGainsTheSchemaParts) {
  TempDatabase file;
  {
    // The file as version 3 made it: its schema and sample data, no parts.
    SqliteDatabase db(file.Path());
    Transaction transaction(db);
    ReferenceDatabase::CreateSchema(db);
    ReferenceDatabase::SeedSampleData(db);
    db.Exec("UPDATE banks SET Name = 'Išlikęs' WHERE ID = 3; PRAGMA user_version = 3;");
    transaction.Commit();
  }
  {
    auto db = ReferenceDatabase::Open(file.Path());
    EXPECT_EQ(FirstValue(*db, "SELECT COUNT(*) FROM schema_parts"),
              Variant(static_cast<int32_t>(SchemaParts().size())));
    EXPECT_EQ(FirstValue(*db, "SELECT Name FROM banks WHERE ID = 3"), Variant("Išlikęs"));
    EXPECT_EQ(FirstValue(*db, "SELECT COUNT(*) FROM reference_books"), Variant(6));
    db->Exec("UPDATE banks SET Name = 'Vėl išlikęs' WHERE ID = 3");
  }
  auto db = ReferenceDatabase::Open(file.Path());
  EXPECT_EQ(FirstValue(*db, "SELECT COUNT(*) FROM schema_parts"),
            Variant(static_cast<int32_t>(SchemaParts().size())));
  EXPECT_EQ(FirstValue(*db, "SELECT Name FROM banks WHERE ID = 3"), Variant("Vėl išlikęs"));
}

TEST(ReferenceDatabase, AReaderIsNotBlockedByAnOpenWrite) {
  TempDatabase file;
  auto writer = ReferenceDatabase::Open(file.Path());
  SqliteDatabase reader(file.Path());
  Transaction transaction(*writer);
  writer->Exec("UPDATE banks SET Name = 'Pervadintas' WHERE ID = 1");
  EXPECT_EQ(FirstValue(reader, "SELECT Name FROM banks WHERE ID = 1"), Variant("AB SEB bankas"));
  transaction.Commit();
  EXPECT_EQ(FirstValue(reader, "SELECT Name FROM banks WHERE ID = 1"), Variant("Pervadintas"));
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
