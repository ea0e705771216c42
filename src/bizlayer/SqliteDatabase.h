#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "bizlayer/SqliteStatement.h"

struct sqlite3;

namespace orvel {

// A connection to one database file of the reference business layer.
// Opened in WAL mode with foreign keys enforced and a busy timeout, so that a
// reader never blocks on a writer and a write interrupted by a kill leaves
// the last committed state. Failures are SqliteError.
class SqliteDatabase {
 public:
  // Opens (and creates when missing) the file; ":memory:" for a private one.
  explicit SqliteDatabase(const std::string& path);
  ~SqliteDatabase();
  SqliteDatabase(const SqliteDatabase&) = delete;
  SqliteDatabase& operator=(const SqliteDatabase&) = delete;

  const std::string& Path() const { return path_; }

  // Runs one or more statements that take no parameters.
  void Exec(std::string_view sql);
  SqliteStatement Prepare(std::string_view sql);
  int64_t LastInsertRowId() const;
  // Rows changed by the last INSERT, UPDATE or DELETE.
  int Changes() const;

  sqlite3* Handle() const { return db_; }

 private:
  std::string path_;
  sqlite3* db_ = nullptr;
};

// A write transaction: BEGIN IMMEDIATE at construction, ROLLBACK on
// destruction unless Commit ran. A business call that fails half way thus
// leaves the database as it was.
class SqliteTransaction {
 public:
  explicit SqliteTransaction(SqliteDatabase& db);
  ~SqliteTransaction();
  SqliteTransaction(const SqliteTransaction&) = delete;
  SqliteTransaction& operator=(const SqliteTransaction&) = delete;

  void Commit();

 private:
  SqliteDatabase& db_;
  bool done_ = false;
};

}  // namespace orvel
