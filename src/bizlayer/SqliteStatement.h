#pragma once

#include <string>
#include <string_view>

#include "host/Variant.h"

struct sqlite3;
struct sqlite3_stmt;

namespace orvel {

// One prepared statement. Values are always bound, never spliced into the
// SQL text, so user text of any shape ("O'Brien", "x'; DROP TABLE firms; --")
// is stored and read back as it stands.
//
// Conversions between Variant and SQLite: Empty and Null are NULL; a Boolean
// is 1 or 0; an Integer and a Double keep their kind; a Date is ISO text
// ("2026-11-23" or "2026-11-23 14:05:00"); a String is text. A column read
// back follows its declared type: BOOLEAN gives a Boolean, DATE a Date,
// INTEGER an Integer (a Double when it exceeds 32 bits), REAL a Double, TEXT a
// String; a column without one (an expression) follows its stored value.
class SqliteStatement {
 public:
  SqliteStatement(sqlite3* db, std::string_view sql);
  ~SqliteStatement();
  SqliteStatement(SqliteStatement&& other) noexcept;
  SqliteStatement& operator=(SqliteStatement&&) = delete;
  SqliteStatement(const SqliteStatement&) = delete;
  SqliteStatement& operator=(const SqliteStatement&) = delete;

  // Binds parameter `index` (1-based). An object or array is SqliteError.
  SqliteStatement& Bind(int index, const Variant& value);
  // Binds the values to parameters 1, 2, ... in order.
  template <class... Values>
  SqliteStatement& BindAll(const Values&... values) {
    int index = 0;
    (Bind(++index, Variant(values)), ...);
    return *this;
  }

  // Runs to the next row: true while there is one.
  bool Step();
  // Runs a statement that returns no rows.
  void Run();
  // Back to the start with the bindings kept.
  void Reset();

  int ColumnCount() const;
  std::string ColumnName(int column) const;
  Variant Column(int column) const;

 private:
  sqlite3* db_;
  sqlite3_stmt* stmt_ = nullptr;
};

}  // namespace orvel
