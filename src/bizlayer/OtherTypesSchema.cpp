// The types of the suite's other modules that this module's windows open by
// OIDR, as catalogues of the reference layer: stock templates (O0201600) and
// document groups (O1000200) over the tables the destinations' templates
// already name, a firm's discounts (O1000600) over the table its discounts
// list reads. (The documents and contracts are views, made with their
// catalogues.)
//
// A new file gets the tables of the first three from their catalogues, an
// older one has them from earlier parts: either way the catalogues' columns
// are added where missing, the cards described, and the database keeps a
// discount's preview and refuses what a discount cannot be.
#include <string>

#include "bizlayer/CatalogueTable.h"
#include "bizlayer/SchemaParts.h"
#include "bizlayer/Database.h"

namespace orvel {

namespace {

constexpr const char* kTableTypes[] = {"O0201600", "O1000200", "O1000600"};

// What a discount cannot be, each refused with its reason before anything is
// written.
constexpr const char* kDiscountChecks[][2] = {
    {"COALESCE(TRIM(NEW.DiscountTypeName), '') = ''", "Nenurodytas nuolaidos tipas"},
    {"NOT EXISTS (SELECT 1 FROM firms WHERE ID = CAST(NEW.FirmID AS INTEGER))",
     "Nenurodyta įmonė"},
    {"NEW.Percent IS NULL OR NEW.Percent < 0 OR NEW.Percent > 100",
     "Nuolaidos procentas turi būti nuo 0 iki 100"},
    {"COALESCE(NEW.SumTo, 0) > 0 AND NEW.SumTo < COALESCE(NEW.SumFrom, 0)",
     "Suma iki mažesnė už sumą nuo"},
};

void CreateOtherTypes(Database& db) {
  for (const char* oid : kTableTypes) {
    const CatalogueTable* catalogue = CatalogueOf(oid);
    AddMissingColumns(db, *catalogue);
    DescribeAgain(db, *catalogue);
  }
  db.Exec(
      "UPDATE br_templates SET ParentID = COALESCE(ParentID, 0), GroupFlag = COALESCE(GroupFlag,"
      " 0);"
      "UPDATE document_groups SET ParentID = COALESCE(ParentID, 0), GroupFlag ="
      " COALESCE(GroupFlag, 1);"
      // A purchase invoice of an earlier file carried the document groups'
      // type; it is a document like the others.
      "UPDATE documents SET OType = 'O1000100' WHERE OType = 'O1000200';"
      "CREATE TRIGGER IF NOT EXISTS firm_discounts_follow_firm AFTER DELETE ON firms BEGIN"
      " DELETE FROM firm_discounts WHERE FirmID = OLD.ID; END;");

  int n = 0;
  for (const auto& [refused, reason] : kDiscountChecks) {
    ++n;
    for (const char* event : {"INSERT", "UPDATE"}) {
      db.Exec("CREATE TRIGGER IF NOT EXISTS firm_discounts_check" + std::to_string(n) + "_" +
              event + " BEFORE " + event + " ON firm_discounts WHEN " + refused +
              " BEGIN SELECT RAISE(ABORT, '" + reason + "'); END");
    }
  }
  // The preview: the type and the percent, as a bookkeeper writes it.
  const std::string named =
      " BEGIN UPDATE firm_discounts SET Name = NEW.DiscountTypeName || ' ' ||"
      " REPLACE(printf('%g', NEW.Percent), '.', ',') || '%' WHERE ID = NEW.ID; END";
  db.Exec(
      "CREATE TRIGGER IF NOT EXISTS firm_discounts_named_insert AFTER INSERT ON firm_discounts" +
      named +
      ";CREATE TRIGGER IF NOT EXISTS firm_discounts_named_update AFTER UPDATE OF"
      " DiscountTypeName, Percent ON firm_discounts" +
      named + ";");
  db.Exec(
      "UPDATE firm_discounts SET Name = DiscountTypeName || ' ' || REPLACE(printf('%g',"
      " Percent), '.', ',') || '%'");
}

// A group of stock templates with one template in it: a group is not a
// template a good's row can name. The first goods group that has goods gets
// a sales template, which its goods inherit.
void SeedOtherTypes(Database& db) {
  db.Exec(
      "INSERT INTO goods_templates (GoodID, GoodBRTemplateTypeID, BRTemplateID) SELECT g.ID, 1,"
      " 1 FROM goods g WHERE g.GroupFlag = 1 AND EXISTS (SELECT 1 FROM goods m WHERE"
      " m.ParentID = g.ID AND m.GroupFlag = 0) AND NOT EXISTS (SELECT 1 FROM goods_templates)"
      " ORDER BY g.ID LIMIT 1;"
      "INSERT INTO br_templates (Name, ParentID, GroupFlag) SELECT 'Archyviniai šablonai', 0, 1"
      " WHERE NOT EXISTS (SELECT 1 FROM br_templates WHERE GroupFlag = 1);"
      "INSERT INTO br_templates (Name, ParentID, GroupFlag) SELECT 'Senas pardavimo šablonas',"
      " g.ID, 0 FROM br_templates g WHERE g.GroupFlag = 1 AND NOT EXISTS (SELECT 1"
      " FROM br_templates t WHERE t.ParentID = g.ID) ORDER BY g.ID LIMIT 1;");
}

}  // namespace

SchemaPart OtherTypesSchema() {
  return {"other-module-types", CreateOtherTypes, SeedOtherTypes};
}

}  // namespace orvel
