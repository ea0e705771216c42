#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "bizlayer/Database.h"

struct sqlite3;

namespace orvel {

// A connection to one database file of the reference business layer.
// Opened in WAL mode with foreign keys enforced and a busy timeout, so that a
// reader never blocks on a writer and a write interrupted by a kill leaves
// the last committed state. Failures are DatabaseError.
class SqliteDatabase : public Database {
 public:
  // Opens (and creates when missing) the file; ":memory:" for a private one.
  explicit SqliteDatabase(const std::string& path);
  ~SqliteDatabase() override;
  SqliteDatabase(const SqliteDatabase&) = delete;
  SqliteDatabase& operator=(const SqliteDatabase&) = delete;

  Engine Kind() const override { return Engine::Sqlite; }
  const std::string& Path() const override { return path_; }
  void Exec(std::string_view sql) override;
  Statement Prepare(std::string_view sql) override;
  int64_t LastInsertRowId() override;
  int Changes() const override;
  // BEGIN IMMEDIATE: the write lock is taken at once, so two workstations'
  // writes queue behind the busy timeout instead of failing half way.
  void Begin() override;
  sqlite3* Handle() const { return db_; }

 private:
  std::string path_;
  sqlite3* db_ = nullptr;
};

}  // namespace orvel
