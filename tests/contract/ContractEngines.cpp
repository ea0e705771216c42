#include <map>
#include <set>
#include <sstream>
#include <memory>
#include <stdexcept>
#include <string>

#include "ContractFixture.h"
#include "bizlayer/BusinessLayer.h"
#include "bizlayer/PgDialect.h"
#include "bizlayer/ScratchDatabase.h"
#include "bizlayer/CatalogueTable.h"
#include "bizlayer/ReferenceDatabase.h"
#include "bizlayer/SqliteDatabase.h"
#include "bizlayer/TableBusinessObject.h"
#include "host/Convert.h"
#include "support/Sql.h"
#include "testhost/CallLog.h"
#include "testhost/MemoryBusinessObject.h"

namespace orvel::contract {

namespace {

const CatalogueTable& CatalogueFor(const std::string& oid) {
  const CatalogueTable* catalogue = CatalogueOf(oid);
  if (!catalogue) throw std::invalid_argument("no catalogue " + oid);
  return *catalogue;
}

// The reference business layer over an empty SQLite database in memory or PostgreSQL schema.
class LayerEngine : public ContractEngine {
 public:
  // `copied`: the sample office is made on SQLite and copied over, as a desk's office to a server.
  explicit LayerEngine(std::shared_ptr<Database> db, bool copied = false)
      : db_(std::move(db)), copied_(copied) {
    ReferenceDatabase::CreateSchema(*db_);
    Open();
  }

  OrvelObjectBO& Object(const std::string& oid) override { return Of(*layer_, oid); }

  OrvelObjectBO& OtherSession(const std::string& oid) override {
    if (!other_) {
      other_ = std::make_unique<BusinessLayer>(db_);
      other_->SetUserName("jonas");
    }
    return Of(*other_, oid);
  }

  void Given(const std::string& oid, const std::vector<Row>& rows) override {
    const std::string& table = CatalogueFor(oid).name;
    for (const auto& row : rows) {
      std::string columns;
      std::string marks;
      for (const auto& [name, value] : row) {
        columns += (columns.empty() ? "" : ", ") + name;
        marks += marks.empty() ? "?" : ", ?";
      }
      auto stmt =
          db_->Prepare("INSERT INTO " + table + " (" + columns + ") VALUES (" + marks + ")");
      int index = 1;
      for (const auto& [name, value] : row) stmt.Bind(index++, value);
      stmt.Run();
    }
    if (db_->Kind() == Database::Engine::Postgres) db_->Prepare(PgFollowIds(table)).Run();
  }

  // A new database as a workstation makes it on its first start.
  void GivenSampleOffice() override {
    other_.reset();
    layer_.reset();
    if (db_->Kind() == Database::Engine::Sqlite) {
      db_ = ReferenceDatabase::Open(":memory:");
    } else {
      db_ = std::make_shared<ScratchPgDatabase>();
      if (copied_) {
        ReferenceDatabase::CopyOffice(*ReferenceDatabase::Open(":memory:"), *db_);
      } else {
        ReferenceDatabase::MakeOffice(*db_);
      }
    }
    Open();
  }

  std::string Digest() override {
    std::string out;
    auto tables = db_->Prepare(
        db_->Kind() == Database::Engine::Postgres
            ? "SELECT table_name FROM information_schema.tables WHERE table_schema ="
              " current_schema() AND table_type = 'BASE TABLE' ORDER BY 1"
            : "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%'"
              " ORDER BY name");
    while (tables.Step()) {
      const std::string table = ConcatText(tables.Column(0));
      out += table + ":\n";
      // Sorted here: an engine may hand back rows of equal keys in any order.
      std::istringstream rows(RowsText(*db_, "SELECT * FROM " + table));
      std::multiset<std::string> lines;
      for (std::string line; std::getline(rows, line);) lines.insert(line);
      for (const auto& line : lines) out += line + "\n";
    }
    return out;
  }

  void GivenOtherUsersRights(const std::vector<std::pair<std::string, bool>>& rights) override {
    db_->Exec("DELETE FROM user_rights WHERE UserID = (SELECT ID FROM users WHERE Name = 'jonas')");
    for (const auto& [component, held] : rights) {
      auto grant = db_->Prepare(
          "INSERT INTO user_rights (UserID, Component, CanRead, CanInsert, CanUpdate, CanDelete,"
          " Allowed) SELECT ID, ?2, 1, ?1, ?1, ?1, ?1 FROM users WHERE Name = 'jonas'");
      grant.BindAll(held ? 1 : 0, component).Run();
    }
  }

 private:
  void Open() {
    ReferenceDatabase::GrantEverything(*db_, "rūta");
    ReferenceDatabase::GrantEverything(*db_, "jonas");
    layer_ = std::make_unique<BusinessLayer>(db_);
    layer_->SetUserName("rūta");
  }

  static OrvelObjectBO& Of(BusinessLayer& layer, const std::string& oid) {
    auto object = layer.BusinessObject(oid);
    if (!object) throw std::invalid_argument("the layer keeps no " + oid);
    return *object;
  }

  std::shared_ptr<Database> db_;
  std::unique_ptr<BusinessLayer> layer_;
  std::unique_ptr<BusinessLayer> other_;
  bool copied_;
};

// The in-memory host's business objects, each table with its catalogue's fields and defaults.
class MemoryEngine : public ContractEngine {
 public:
  OrvelObjectBO& Object(const std::string& oid) override { return Memory(oid); }

  OrvelObjectBO& OtherSession(const std::string& oid) override {
    auto& other = others_[oid];
    if (!other) other = std::make_unique<MemoryBusinessObject>(Memory(oid).SharedTable(), log_);
    return *other;
  }

  void Given(const std::string& oid, const std::vector<Row>& rows) override {
    Memory(oid).Table().Seed(rows);
  }

  std::string Digest() override {
    std::string out;
    for (const auto& [oid, object] : objects_) {
      const MemoryTable& table = object->Table();
      out += oid + ":\n";
      for (int32_t id : table.Ids()) {
        for (const auto& field : table.FieldNames()) {
          out += ConcatText(table.Value(id, field)) + "|";
        }
        out += "\n";
      }
    }
    return out;
  }

 private:
  MemoryBusinessObject& Memory(const std::string& oid) {
    auto& object = objects_[oid];
    if (!object) {
      object = std::make_unique<MemoryBusinessObject>(oid, log_);
      std::vector<std::string> names{"ID"};
      for (const auto& field : CatalogueFor(oid).fields) names.push_back(field.name);
      object->Table().SetFields(names);
      for (const auto& field : CatalogueFor(oid).fields) {
        const Variant& value = field.defaultValue;
        object->Table().SetDefault(field.name, value.IsEmpty() ? Variant::Null() : value);
      }
    }
    return *object;
  }

  std::shared_ptr<CallLog> log_ = std::make_shared<CallLog>();
  std::map<std::string, std::unique_ptr<MemoryBusinessObject>> objects_;
  std::map<std::string, std::unique_ptr<MemoryBusinessObject>> others_;
};

std::unique_ptr<ContractEngine> Layer(std::shared_ptr<Database> db, bool copied = false) {
  return std::make_unique<LayerEngine>(std::move(db), copied);
}

}  // namespace

const std::vector<EngineKind>& Engines() {
  static const std::vector<EngineKind> engines{
      {"InMemory", false, [] { return std::unique_ptr<ContractEngine>(new MemoryEngine); }},
      {"Sqlite", true, [] { return Layer(std::make_shared<SqliteDatabase>(":memory:")); }},
      {"Postgres", true, [] { return Layer(std::make_shared<ScratchPgDatabase>()); }},
      {"PostgresCopied", true, [] { return Layer(std::make_shared<ScratchPgDatabase>(), true); }},
  };
  return engines;
}

}  // namespace orvel::contract
