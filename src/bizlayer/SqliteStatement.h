#pragma once

#include <string>
#include <string_view>

#include "bizlayer/Database.h"

struct sqlite3;
struct sqlite3_stmt;

namespace orvel {

// A statement prepared by SQLite. A Date is stored as ISO text
// ("2026-11-23" or "2026-11-23 14:05:00") and read back as a Date where the
// column is declared DATE; BOOLEAN and REAL columns likewise give their kind.
class SqliteStatement : public StatementEngine {
 public:
  SqliteStatement(sqlite3* db, std::string_view sql);
  ~SqliteStatement() override;
  SqliteStatement(const SqliteStatement&) = delete;
  SqliteStatement& operator=(const SqliteStatement&) = delete;

  void Bind(int index, const Variant& value) override;
  bool Step() override;
  void Reset() override;
  int ColumnCount() const override;
  std::string ColumnName(int column) const override;
  Variant Column(int column) const override;

 private:
  sqlite3* db_;
  sqlite3_stmt* stmt_ = nullptr;
};

// The DatabaseError of a SQLite result code.
DatabaseError SqliteFailure(int code, const std::string& message);

}  // namespace orvel
