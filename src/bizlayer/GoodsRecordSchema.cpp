// A good's detail records as catalogues of their own: prices (O0000600),
// minimum amounts (O0000700) and template rows (O0000800), opened and saved
// by the goods card through the standard object calls.
//
// A new file gets their tables from the catalogues. A file made before has
// them in the shape the detail lists alone needed (prices as a call table,
// the others from the goods-details part): they gain the catalogues'
// columns, every row kept with its ID, and their cards are described. The
// database then keeps what a card does not write: each record's preview in
// Name and a price's type both by ID and by name.
#include <strings.h>

#include <string>
#include <vector>

#include "bizlayer/CatalogueTable.h"
#include "bizlayer/SchemaParts.h"
#include "bizlayer/SqliteDatabase.h"
#include "bizlayer/SqliteStatement.h"

namespace orvel {

namespace {

constexpr const char* kRecordTypes[] = {"O0000600", "O0000700", "O0000800"};

std::vector<std::string> ColumnsOf(SqliteDatabase& db, const std::string& table) {
  auto stmt = db.Prepare("SELECT name FROM pragma_table_info(?) ORDER BY cid");
  stmt.Bind(1, Variant(table));
  std::vector<std::string> columns;
  while (stmt.Step()) columns.push_back(stmt.Column(0).String());
  return columns;
}

bool Holds(const std::vector<std::string>& columns, const std::string& name) {
  for (const auto& column : columns) {
    if (strcasecmp(column.c_str(), name.c_str()) == 0) return true;
  }
  return false;
}

}  // namespace

// Adds the columns of the catalogue that the table lacks. The table keeps
// its rows, IDs and constraints: the columns the previous version made NOT
// NULL are the ones the goods card's dialog will not write without.
void AddMissingColumns(SqliteDatabase& db, const CatalogueTable& catalogue) {
  const auto old = ColumnsOf(db, catalogue.name);
  if (old.empty()) {
    std::string sql = "CREATE TABLE " + catalogue.name + " (ID INTEGER PRIMARY KEY AUTOINCREMENT";
    for (const auto& field : catalogue.fields) {
      sql += ", " + field.name + " " + SqlTypeName(field.type);
    }
    db.Exec(sql + ")");
    return;
  }
  for (const auto& field : catalogue.fields) {
    if (Holds(old, field.name)) continue;
    db.Exec("ALTER TABLE " + catalogue.name + " ADD COLUMN " + field.name + " " +
            SqlTypeName(field.type));
  }
}

// The card's fields, written again: a file whose table existed before its
// catalogue has no description of them.
void DescribeAgain(SqliteDatabase& db, const CatalogueTable& catalogue) {
  auto clear = db.Prepare("DELETE FROM field_descriptions WHERE StructureName = ?");
  clear.Bind(1, Variant(catalogue.structureName));
  clear.Run();
  DescribeCatalogue(db, catalogue);
}

namespace {

void CreateGoodsRecordTables(SqliteDatabase& db) {
  for (const char* oid : kRecordTypes) {
    const CatalogueTable* catalogue = CatalogueOf(oid);
    if (!catalogue) continue;
    AddMissingColumns(db, *catalogue);
    DescribeAgain(db, *catalogue);
  }
  // The price types a price names by GoodPriceTypeID; the names the prices
  // already carry become types of their own.
  db.Exec(
      "CREATE TABLE IF NOT EXISTS goods_price_types (ID INTEGER PRIMARY KEY AUTOINCREMENT,"
      " Name TEXT NOT NULL UNIQUE);"
      "INSERT OR IGNORE INTO goods_price_types (Name) VALUES ('Mažmeninė'), ('Didmeninė'),"
      " ('Sutartinė');"
      "INSERT OR IGNORE INTO goods_price_types (Name) SELECT DISTINCT PriceType FROM goods_prices"
      " WHERE PriceType IS NOT NULL AND PriceType <> '' ORDER BY PriceType;"
      "UPDATE goods_prices SET GoodPriceTypeID = (SELECT t.ID FROM goods_price_types t"
      " WHERE t.Name = goods_prices.PriceType) WHERE GoodPriceTypeID IS NULL;"
      "UPDATE goods_prices SET Name = PriceType;"
      "UPDATE goods_min_amounts SET Name = (SELECT l.Name FROM book_locations l"
      " WHERE l.ID = goods_min_amounts.LocationID);"
      "UPDATE goods_templates SET Name = (SELECT t.Name FROM br_template_types t"
      " WHERE t.ID = goods_templates.GoodBRTemplateTypeID);"
      "CREATE INDEX IF NOT EXISTS goods_prices_good ON goods_prices (GoodID);"
      "CREATE INDEX IF NOT EXISTS goods_min_amounts_good ON goods_min_amounts (GoodID);"
      "CREATE INDEX IF NOT EXISTS goods_templates_good ON goods_templates (GoodID);");

  // A record names a good and, by ID, a type, warehouse or template that
  // exists; anything else is refused with its reason and nothing is written.
  const char* checks[][3] = {
      {"goods_prices", "GoodID", "NOT EXISTS (SELECT 1 FROM goods WHERE ID = NEW.GoodID)"},
      {"goods_prices", "GoodPriceTypeID",
       "NEW.GoodPriceTypeID IS NOT NULL AND NOT EXISTS (SELECT 1 FROM goods_price_types"
       " WHERE ID = NEW.GoodPriceTypeID)"},
      {"goods_min_amounts", "GoodID", "NOT EXISTS (SELECT 1 FROM goods WHERE ID = NEW.GoodID)"},
      {"goods_min_amounts", "LocationID",
       "NEW.LocationID IS NOT NULL AND NOT EXISTS (SELECT 1 FROM book_locations"
       " WHERE ID = NEW.LocationID AND COALESCE(GroupFlag, 0) = 0)"},
      {"goods_templates", "GoodID", "NOT EXISTS (SELECT 1 FROM goods WHERE ID = NEW.GoodID)"},
      {"goods_templates", "GoodBRTemplateTypeID",
       "NEW.GoodBRTemplateTypeID IS NOT NULL AND NOT EXISTS (SELECT 1 FROM br_template_types"
       " WHERE ID = NEW.GoodBRTemplateTypeID)"},
      {"goods_templates", "BRTemplateID",
       "NEW.BRTemplateID IS NOT NULL AND NOT EXISTS (SELECT 1 FROM br_templates"
       " WHERE ID = NEW.BRTemplateID)"},
  };
  const std::pair<const char*, const char*> reasons[] = {
      {"GoodID", "Nenurodyta prekė"},         {"GoodPriceTypeID", "Nėra tokio kainos tipo"},
      {"LocationID", "Nėra tokio sandėlio"},  {"GoodBRTemplateTypeID", "Nėra tokio šablono tipo"},
      {"BRTemplateID", "Nėra tokio šablono"},
  };
  for (const auto& [table, column, refused] : checks) {
    std::string reason;
    for (const auto& [name, text] : reasons) {
      if (std::string(name) == column) reason = text;
    }
    for (const char* event : {"INSERT", "UPDATE"}) {
      const std::string name = std::string(table) + "_" + column + "_" + event;
      db.Exec("CREATE TRIGGER IF NOT EXISTS " + name + " BEFORE " + event +
              (std::string(event) == "UPDATE" ? std::string(" OF ") + column : "") + " ON " +
              table + " WHEN " + refused + " BEGIN SELECT RAISE(ABORT, '" + reason + "'); END");
    }
  }

  // The previews, and a price's type by ID and by name: the card writes the
  // ID, the copy of a good the name; the ID, when it names a type, wins.
  const char* priceNamed =
      " BEGIN UPDATE goods_prices SET GoodPriceTypeID = COALESCE(NEW.GoodPriceTypeID,"
      " (SELECT ID FROM goods_price_types WHERE Name = NEW.PriceType)),"
      " PriceType = COALESCE((SELECT Name FROM goods_price_types WHERE ID = NEW.GoodPriceTypeID),"
      " NEW.PriceType), Name = COALESCE((SELECT Name FROM goods_price_types"
      " WHERE ID = NEW.GoodPriceTypeID), NEW.PriceType) WHERE ID = NEW.ID; END";
  const char* amountNamed =
      " BEGIN UPDATE goods_min_amounts SET Name = (SELECT Name FROM book_locations"
      " WHERE ID = NEW.LocationID) WHERE ID = NEW.ID; END";
  const char* templateNamed =
      " BEGIN UPDATE goods_templates SET Name = (SELECT Name FROM br_template_types"
      " WHERE ID = NEW.GoodBRTemplateTypeID) WHERE ID = NEW.ID; END";
  db.Exec(std::string("CREATE TRIGGER IF NOT EXISTS goods_prices_named_insert AFTER INSERT ON"
                      " goods_prices") +
          priceNamed +
          ";CREATE TRIGGER IF NOT EXISTS goods_prices_named_update AFTER UPDATE OF"
          " GoodPriceTypeID, PriceType ON goods_prices" +
          priceNamed +
          ";CREATE TRIGGER IF NOT EXISTS goods_min_amounts_named_insert AFTER INSERT ON"
          " goods_min_amounts" +
          amountNamed +
          ";CREATE TRIGGER IF NOT EXISTS goods_min_amounts_named_update AFTER UPDATE OF"
          " LocationID ON goods_min_amounts" +
          amountNamed +
          ";CREATE TRIGGER IF NOT EXISTS goods_templates_named_insert AFTER INSERT ON"
          " goods_templates" +
          templateNamed +
          ";CREATE TRIGGER IF NOT EXISTS goods_templates_named_update AFTER UPDATE OF"
          " GoodBRTemplateTypeID ON goods_templates" +
          templateNamed + ";");
}

// A new file makes the records' tables from their catalogues, which name no
// foreign keys, so the cascade of the older tables is not there: a trigger
// removes a deleted good's records in every file, and the records of goods
// deleted before it are removed once.
void CascadeGoodsRecords(SqliteDatabase& db) {
  std::string removeRecords;
  std::string removeOrphans;
  for (const char* table : {"goods_prices", "goods_min_amounts", "goods_templates"}) {
    removeRecords += std::string(" DELETE FROM ") + table + " WHERE GoodID = OLD.ID;";
    removeOrphans += std::string("DELETE FROM ") + table +
                     " WHERE NOT EXISTS (SELECT 1 FROM goods WHERE goods.ID = " + table +
                     ".GoodID);";
  }
  db.Exec("CREATE TRIGGER IF NOT EXISTS goods_records_follow_good AFTER DELETE ON goods BEGIN" +
          removeRecords + " END;" + removeOrphans);
}

}  // namespace

SchemaPart GoodsRecordSchema() {
  return {"goods-detail-records", CreateGoodsRecordTables, nullptr};
}

SchemaPart GoodsRecordCascadeSchema() {
  return {"goods-records-follow-their-good", CascadeGoodsRecords, nullptr};
}

}  // namespace orvel
