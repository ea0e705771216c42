// The tables of a good's detail lists: its measures with their ratios, its
// minimum amounts by warehouse, its stock templates and its discounts, with
// sample rows for the first goods kept in rests.
#include "bizlayer/SchemaParts.h"
#include "bizlayer/Database.h"

namespace orvel {

namespace {

void CreateGoodsDetailTables(Database& db) {
  db.Exec(
      "CREATE TABLE IF NOT EXISTS goods_measures (ID INTEGER PRIMARY KEY AUTOINCREMENT,"
      " GoodID INTEGER NOT NULL REFERENCES goods(ID) ON DELETE CASCADE,"
      " MeasureID INTEGER NOT NULL REFERENCES measures(ID), Price REAL,"
      " Scale REAL NOT NULL DEFAULT 1, Scale2 REAL NOT NULL DEFAULT 1);"
      "CREATE INDEX IF NOT EXISTS goods_measures_good ON goods_measures (GoodID);"
      "CREATE TABLE IF NOT EXISTS goods_min_amounts (ID INTEGER PRIMARY KEY AUTOINCREMENT,"
      " GoodID INTEGER NOT NULL REFERENCES goods(ID) ON DELETE CASCADE,"
      " LocationID INTEGER NOT NULL, MinAmount REAL NOT NULL);"
      "CREATE INDEX IF NOT EXISTS goods_min_amounts_good ON goods_min_amounts (GoodID);"
      "CREATE TABLE IF NOT EXISTS goods_templates (ID INTEGER PRIMARY KEY AUTOINCREMENT,"
      " GoodID INTEGER NOT NULL REFERENCES goods(ID) ON DELETE CASCADE,"
      " GoodBRTemplateTypeID INTEGER NOT NULL, BRTemplateID INTEGER NOT NULL);"
      "CREATE TABLE IF NOT EXISTS goods_discounts (ID INTEGER PRIMARY KEY AUTOINCREMENT,"
      " GoodID INTEGER NOT NULL REFERENCES goods(ID) ON DELETE CASCADE,"
      " DiscountTypeName TEXT NOT NULL, VariantName TEXT, SumFrom REAL, SumTo REAL,"
      " Percent REAL NOT NULL, FirmID INTEGER, Valid BOOLEAN NOT NULL DEFAULT 1);");
}

// The first two goods kept in rests get a second measure (a pack of 10), a
// minimum amount in the first warehouse and a discount; their groups a
// discount their goods inherit.
void SeedGoodsDetailRows(Database& db) {
  {
    // Made again over a file that has them: the rows there stay as they are.
    auto made = db.Prepare("SELECT COUNT(*) FROM goods_measures");
    if (made.Step() && made.Column(0).NumberValue() != 0) return;
  }
  db.Exec(
      "INSERT INTO goods_measures (GoodID, MeasureID, Price, Scale, Scale2)"
      " SELECT d.ID, (SELECT m.ID FROM measures m WHERE m.ID IS NOT d.MeasureID"
      " ORDER BY m.Code = 'pak.' DESC, m.ID LIMIT 1), NULL, 10, 0.1 FROM "
      " (SELECT ID, MeasureID FROM goods WHERE GroupFlag = 0 AND WithRest = 1 ORDER BY ID"
      " LIMIT 2) d;"
      "INSERT INTO goods_min_amounts (GoodID, LocationID, MinAmount)"
      " SELECT d.ID, l.ID, 5 FROM "
      " (SELECT ID, ParentID FROM goods WHERE GroupFlag = 0 AND WithRest = 1 ORDER BY ID LIMIT 2)"
      " d"
      " CROSS JOIN (SELECT ID FROM book_locations WHERE GroupFlag = 0 ORDER BY ID LIMIT 1) l;"
      "INSERT INTO goods_discounts (GoodID, DiscountTypeName, VariantName, SumFrom, SumTo,"
      " Percent) SELECT ID, 'Didmena', 'Nuo kiekio', 100, 0, 5 FROM "
      " (SELECT ID, ParentID FROM goods WHERE GroupFlag = 0 AND WithRest = 1 ORDER BY ID LIMIT 2)"
      " d;"
      "INSERT INTO goods_discounts (GoodID, DiscountTypeName, Percent, Valid)"
      " SELECT DISTINCT ParentID, 'Akcija', 3, 0 FROM "
      " (SELECT ID, ParentID FROM goods WHERE GroupFlag = 0 AND WithRest = 1 ORDER BY ID LIMIT 2)"
      " d WHERE ParentID IS NOT NULL;"
      "");
}

}  // namespace

SchemaPart GoodsDetailSchema() {
  return {"goods-details", CreateGoodsDetailTables, SeedGoodsDetailRows};
}

}  // namespace orvel
