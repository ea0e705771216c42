// Every record of a catalogue carries a Version, which each change of its
// row moves on, whoever makes it: a card's write, a group change of prices, a
// trigger of another part. A business object hands the version out with the
// record and refuses a write or a delete of a record whose version has moved
// since (kChangedMeanwhile), so that two bookkeepers on one database never
// overwrite each other's edits unseen.
#include <string>

#include "bizlayer/CatalogueTable.h"
#include "bizlayer/PgDialect.h"
#include "bizlayer/SchemaParts.h"
#include "bizlayer/Database.h"

namespace orvel {

bool HasColumn(Database& db, const std::string& table, const std::string& column) {
  // Read and let go: an open statement would keep the table from changing.
  auto found = db.Prepare(db.Kind() == Database::Engine::Postgres
                              ? PgColumnExistsQuery()
                              : "SELECT COUNT(*) FROM pragma_table_info(?1) WHERE name = ?2"
                                " COLLATE NOCASE");
  found.BindAll(table, column);
  found.Step();
  return found.Column(0).NumberValue() != 0;
}

void KeepRecordVersions(Database& db, const CatalogueTable& catalogue) {
  if (!catalogue.view.empty()) return;
  const bool postgres = db.Kind() == Database::Engine::Postgres;
  if (!HasColumn(db, catalogue.name, "Version")) {
    db.Exec("ALTER TABLE " + catalogue.name + " ADD COLUMN Version INTEGER NOT NULL DEFAULT 1");
  }
  if (postgres) {
    db.Exec(PgVersionTrigger(catalogue.name));
    return;
  }
  // An update that does not move the version itself moves it by one; the
  // trigger's own update moves it, so it does not fire again.
  db.Exec("CREATE TRIGGER IF NOT EXISTS " + catalogue.name + "_version AFTER UPDATE ON " +
          catalogue.name + " WHEN NEW.Version IS OLD.Version BEGIN UPDATE " + catalogue.name +
          " SET Version = OLD.Version + 1 WHERE ID = OLD.ID; END");
}

SchemaPart SearchKeySchema() {
  return {"search-keys", [](Database& db) {
            for (const auto& catalogue : Catalogues()) {
              if (!catalogue.view.empty()) continue;
              for (const char* column : {"Name", "Code"}) {
                if (!catalogue.Field(column)) continue;
                db.Exec("CREATE INDEX IF NOT EXISTS " + catalogue.name + "_" + column + "_key ON " +
                        catalogue.name + " (orvel_fold(" + column + ") COLLATE BINARY)");
              }
            }
          }};
}

SchemaPart RecordVersionSchema() {
  return {"record-versions", [](Database& db) {
            for (const auto& catalogue : Catalogues()) KeepRecordVersions(db, catalogue);
          }};
}

}  // namespace orvel
