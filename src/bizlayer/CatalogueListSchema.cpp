// What the catalogue lists read beyond the first catalogues: whether a good
// is kept by serial numbers, and document debts that carry their direction
// in Sign alone.
#include <string>

#include "bizlayer/CatalogueTable.h"
#include "bizlayer/SchemaParts.h"
#include "bizlayer/Database.h"

namespace orvel {

namespace {

// A new file has the column from the goods catalogue; an older one gets it,
// and the goods card is described again with it.
void AddWithItems(Database& db) {
  if (HasColumn(db, "goods", "WithItems")) return;
  db.Exec(
      "ALTER TABLE goods ADD COLUMN WithItems BOOLEAN;"
      "DELETE FROM field_descriptions WHERE StructureName = 'Goods';");
  if (const CatalogueTable* goods = CatalogueOf("O0000200")) DescribeCatalogue(db, *goods);
}

// The goods whose lots carry serial numbers are kept by them; every other
// good and group is not.
void MarkGoodsWithItems(Database& db) {
  db.Exec(
      "UPDATE goods SET WithItems = CASE WHEN GroupFlag = 0 AND ID IN (SELECT GoodID FROM"
      " document_lines WHERE SerialNo IS NOT NULL) THEN 1 ELSE 0 END WHERE WithItems IS NULL;");
}

// A debt is the open part of a document, never below zero; Sign says who
// owes whom (-1 for what we owe and the firm's advances). Files made before
// held those debts negative as well, which counted them twice over.
void DebtsBySign(Database& db) {
  db.Exec("UPDATE documents SET Debt = -Debt WHERE Sign < 0 AND Debt < 0;");
}

}  // namespace

SchemaPart GoodsWithItemsSchema() { return {"goods-with-items", AddWithItems, MarkGoodsWithItems}; }

SchemaPart DocumentDebtSignSchema() { return {"document-debts-by-sign", nullptr, DebtsBySign}; }

}  // namespace orvel
