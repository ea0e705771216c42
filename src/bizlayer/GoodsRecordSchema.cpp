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
#include "bizlayer/PgDialect.h"
#include "bizlayer/SchemaParts.h"
#include "bizlayer/Database.h"

namespace orvel {

namespace {

constexpr const char* kRecordTypes[] = {"O0000600", "O0000700", "O0000800"};

std::vector<std::string> ColumnsOf(Database& db, const std::string& table) {
  auto stmt = db.Prepare(db.Kind() == Database::Engine::Postgres
                             ? PgColumnsQuery()
                             : "SELECT name FROM pragma_table_info(?) ORDER BY cid");
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
void AddMissingColumns(Database& db, const CatalogueTable& catalogue) {
  const auto old = ColumnsOf(db, catalogue.name);
  if (old.empty()) {
    std::string sql = "CREATE TABLE " + catalogue.name + " (ID INTEGER PRIMARY KEY AUTOINCREMENT";
    for (const auto& field : catalogue.fields) {
      sql += ", " + field.name + " " + SqlTypeName(field.type);
    }
    db.Exec(sql + ")");
    KeepRecordVersions(db, catalogue);
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
void DescribeAgain(Database& db, const CatalogueTable& catalogue) {
  auto clear = db.Prepare("DELETE FROM field_descriptions WHERE StructureName = ?");
  clear.Bind(1, Variant(catalogue.structureName));
  clear.Run();
  DescribeCatalogue(db, catalogue);
}

namespace {

void CreateGoodsRecordTables(Database& db) {
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
      "INSERT INTO goods_price_types (Name) VALUES ('Mažmeninė'), ('Didmeninė'),"
      " ('Sutartinė') ON CONFLICT DO NOTHING;"
      "INSERT INTO goods_price_types (Name) SELECT DISTINCT PriceType FROM goods_prices"
      " WHERE PriceType IS NOT NULL AND PriceType <> '' ORDER BY PriceType ON CONFLICT DO NOTHING;"
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
void CascadeGoodsRecords(Database& db) {
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

// A BEFORE INSERT and a BEFORE UPDATE OF `columns` trigger on `table` that
// refuse a row WHEN `refused` holds, with `reason`.
void Refuse(Database& db, const std::string& name, const std::string& table,
            const std::string& columns, const std::string& refused, const std::string& reason) {
  for (const char* event : {"INSERT", "UPDATE"}) {
    db.Exec("CREATE TRIGGER IF NOT EXISTS " + name + "_check_" + event + " BEFORE " + event +
            (std::string(event) == "UPDATE" ? " OF " + columns : std::string()) + " ON " + table +
            " WHEN " + refused + " BEGIN SELECT RAISE(ABORT, '" + reason + "'); END");
  }
}

// The units of measure become the reference book O0001606 (their table and
// IDs stay, so a good's unit and its measure rows keep naming them), and a
// good's measure rows the records O0000400 of the goods card's measures tab.
// A row names a good and a unit of the book, each unit at most once per good
// besides the good's own; deleting a row never touches the unit, and a unit
// that a good or a row names is not deleted. The good's rate of VAT is kept
// as the card writes it (VAT, Null for the general rate), and VatRate, the
// rate in force, follows it.
void CreateGoodsMeasureTables(Database& db) {
  for (const char* oid : {"O0001606", "O0000400", "O0000200"}) {
    const CatalogueTable* catalogue = CatalogueOf(oid);
    if (!catalogue) continue;
    AddMissingColumns(db, *catalogue);
    DescribeAgain(db, *catalogue);
  }
  db.Exec(
      "UPDATE measures SET ParentID = 0 WHERE ParentID IS NULL;"
      "UPDATE measures SET GroupFlag = 0 WHERE GroupFlag IS NULL;"
      "UPDATE measures SET MeasureType = CASE WHEN Code IN ('pak.', 'kompl.') THEN 1 ELSE 0 END WHERE MeasureType IS NULL;"
      "CREATE INDEX IF NOT EXISTS measures_parent ON measures (ParentID, Name);"
      "INSERT INTO reference_books (BookOID, Name) SELECT 'O0001606', 'Matavimo vienetai'"
      " WHERE NOT EXISTS (SELECT 1 FROM reference_books WHERE BookOID = 'O0001606');"
      "DELETE FROM goods_measures WHERE NOT EXISTS (SELECT 1 FROM goods"
      " WHERE goods.ID = goods_measures.GoodID);"
      "UPDATE goods_measures SET Name = (SELECT m.Name FROM measures m"
      " WHERE m.ID = goods_measures.MeasureID);"
      "UPDATE goods SET VAT = CAST(VatRate AS INTEGER) WHERE VAT IS NULL AND VatRate IS NOT NULL;"
      "UPDATE goods SET PriceWithVAT = 0 WHERE PriceWithVAT IS NULL;"
      "UPDATE goods SET AmountPrecision = CASE WHEN EXISTS (SELECT 1 FROM measures m"
      " WHERE m.ID = goods.MeasureID AND m.MeasureType = 1) THEN 0 ELSE 2 END"
      " WHERE AmountPrecision IS NULL;"
      "CREATE INDEX IF NOT EXISTS goods_measures_good ON goods_measures (GoodID);");

  const std::string unit =
      "SELECT 1 FROM measures WHERE ID = NEW.MeasureID AND COALESCE(GroupFlag, 0) = 0";
  Refuse(db, "goods_measures_good", "goods_measures", "GoodID",
         "NOT EXISTS (SELECT 1 FROM goods WHERE ID = NEW.GoodID AND COALESCE(GroupFlag, 0) = 0)",
         "Nenurodyta prekė");
  Refuse(db, "goods_measures_unit", "goods_measures", "MeasureID", "NOT EXISTS (" + unit + ")",
         "Nėra tokio matavimo vieneto");
  Refuse(db, "goods_measures_twice", "goods_measures", "GoodID, MeasureID",
         "EXISTS (SELECT 1 FROM goods_measures WHERE GoodID = NEW.GoodID AND MeasureID ="
         " NEW.MeasureID AND ID IS NOT NEW.ID) OR EXISTS (SELECT 1 FROM goods WHERE ID ="
         " NEW.GoodID AND MeasureID = NEW.MeasureID)",
         "Šis matavimo vienetas prekei jau nurodytas");
  Refuse(db, "goods_measures_scale", "goods_measures", "Scale, Scale2",
         "COALESCE(NEW.Scale, 0) < 0 OR COALESCE(NEW.Scale2, 0) < 0 OR"
         " (COALESCE(NEW.Scale, 0) = 0 AND COALESCE(NEW.Scale2, 0) = 0)",
         "Santykis turi būti didesnis už nulį");
  Refuse(db, "goods_unit", "goods", "MeasureID",
         "NEW.MeasureID IS NOT NULL AND NOT EXISTS (" + unit + ")", "Nėra tokio matavimo vieneto");
  Refuse(db, "goods_vat", "goods", "VAT", "NEW.VAT < 0 OR NEW.VAT > 100",
         "Neteisingas PVM tarifas");

  // A row's preview is its unit's name; a ratio left 0 is the other's
  // inverse.
  const char* named =
      " BEGIN UPDATE goods_measures SET Name = (SELECT Name FROM measures"
      " WHERE ID = NEW.MeasureID) WHERE ID = NEW.ID; END;";
  const char* inverse =
      " BEGIN UPDATE goods_measures SET Scale = CASE WHEN COALESCE(Scale, 0) = 0 THEN 1.0 / Scale2"
      " ELSE Scale END, Scale2 = CASE WHEN COALESCE(Scale2, 0) = 0 THEN 1.0 / Scale ELSE Scale2"
      " END WHERE ID = NEW.ID AND (COALESCE(Scale, 0) = 0 OR COALESCE(Scale2, 0) = 0); END;";
  const char* general =
      "(SELECT CAST(Value AS REAL) FROM settings WHERE Name = 'VatFactor')";
  db.Exec(std::string(
              "CREATE TRIGGER IF NOT EXISTS goods_measures_named_insert AFTER INSERT ON"
              " goods_measures") +
          named +
          "CREATE TRIGGER IF NOT EXISTS goods_measures_named_update AFTER UPDATE OF MeasureID"
          " ON goods_measures" +
          named +
          "CREATE TRIGGER IF NOT EXISTS goods_measures_inverse_insert AFTER INSERT ON"
          " goods_measures" +
          inverse +
          "CREATE TRIGGER IF NOT EXISTS goods_measures_inverse_update AFTER UPDATE OF Scale,"
          " Scale2 ON goods_measures" +
          inverse +
          "CREATE TRIGGER IF NOT EXISTS measures_renamed AFTER UPDATE OF Name ON measures BEGIN"
          " UPDATE goods_measures SET Name = NEW.Name WHERE MeasureID = NEW.ID; END;"
          "CREATE TRIGGER IF NOT EXISTS measures_in_use BEFORE DELETE ON measures WHEN EXISTS"
          " (SELECT 1 FROM goods WHERE MeasureID = OLD.ID) OR EXISTS (SELECT 1 FROM"
          " goods_measures WHERE MeasureID = OLD.ID) BEGIN SELECT RAISE(ABORT,"
          " 'Matavimo vienetas naudojamas prekėse'); END;"
          "CREATE TRIGGER IF NOT EXISTS goods_measures_follow_good AFTER DELETE ON goods BEGIN"
          " DELETE FROM goods_measures WHERE GoodID = OLD.ID; END;"
          "CREATE TRIGGER IF NOT EXISTS goods_vat_insert AFTER INSERT ON goods"
          " WHEN NEW.VAT IS NOT NULL BEGIN UPDATE goods SET VatRate = NEW.VAT"
          " WHERE ID = NEW.ID; END;"
          "CREATE TRIGGER IF NOT EXISTS goods_vat_update AFTER UPDATE OF VAT ON goods"
          " WHEN NEW.VAT IS NOT OLD.VAT BEGIN UPDATE goods SET VatRate = COALESCE(NEW.VAT, " +
          general +
          ", 21) WHERE ID = NEW.ID; END;"
          "CREATE TRIGGER IF NOT EXISTS goods_vat_rate_update AFTER UPDATE OF VatRate ON goods"
          " WHEN NEW.VatRate IS NOT OLD.VatRate AND NEW.VAT IS OLD.VAT AND NEW.VatRate IS NOT"
          " COALESCE(NEW.VAT, " +
          general +
          ", 21) BEGIN UPDATE goods SET VAT = CAST(NEW.VatRate AS INTEGER) WHERE ID = NEW.ID;"
          " END;");
}

// Each sale line names the purchase line (lot) it was taken from, which the
// traffic's by-purchase view groups it under.
void CreateSaleLots(Database& db) {
  if (!Holds(ColumnsOf(db, "document_lines"), "PurchaseLineID")) {
    db.Exec("ALTER TABLE document_lines ADD COLUMN PurchaseLineID INTEGER");
  }
  db.Exec("CREATE INDEX IF NOT EXISTS document_lines_lot ON document_lines (PurchaseLineID)");
}

// The sample sales are taken from their good's oldest lot bought by then
// that still holds the amount; a lot's rest is at most what its sales left.
void SeedSaleLots(Database& db) {
  struct Lot {
    int64_t id;
    double left;
  };
  std::vector<std::pair<int64_t, int64_t>> links;  // sale line, lot
  {
    auto lines = db.Prepare(
        "SELECT l.ID, l.GoodID, l.Amount, d.Sign FROM document_lines l"
        " JOIN documents d ON d.ID = l.DocumentID WHERE l.PurchaseLineID IS NULL"
        " ORDER BY l.GoodID, d.DocDate, d.Sign, l.ID");
    int64_t good = -1;
    std::vector<Lot> lots;
    while (lines.Step()) {
      const auto id = static_cast<int64_t>(lines.Column(0).NumberValue());
      const auto lineGood = static_cast<int64_t>(lines.Column(1).NumberValue());
      const double amount = lines.Column(2).NumberValue();
      if (lineGood != good) {
        good = lineGood;
        lots.clear();
      }
      if (lines.Column(3).NumberValue() < 0) {
        lots.push_back(Lot{id, amount});
        continue;
      }
      for (auto& lot : lots) {
        if (lot.left < amount) continue;
        lot.left -= amount;
        links.emplace_back(id, lot.id);
        break;
      }
    }
  }
  auto link = db.Prepare("UPDATE document_lines SET PurchaseLineID = ? WHERE ID = ?");
  for (const auto& [sale, lot] : links) {
    link.Reset();
    link.BindAll(lot, sale).Run();
  }
  db.Exec(
      "UPDATE document_lines SET Rest = MIN(Rest, Amount - (SELECT SUM(s.Amount) FROM"
      " document_lines s WHERE s.PurchaseLineID = document_lines.ID)) WHERE ID IN"
      " (SELECT PurchaseLineID FROM document_lines WHERE PurchaseLineID IS NOT NULL);"
      "UPDATE document_lines SET Reserved = MIN(Reserved, Rest) WHERE Reserved > Rest;");
}

}  // namespace

SchemaPart GoodsMeasureSchema() {
  return {"goods-measure-rows-and-units-book", CreateGoodsMeasureTables, nullptr};
}

SchemaPart GoodsSaleLotSchema() {
  return {"goods-sales-name-their-lots", CreateSaleLots, SeedSaleLots};
}

SchemaPart GoodsRecordSchema() {
  return {"goods-detail-records", CreateGoodsRecordTables, nullptr};
}

SchemaPart GoodsRecordCascadeSchema() {
  return {"goods-records-follow-their-good", CascadeGoodsRecords, nullptr};
}

}  // namespace orvel
