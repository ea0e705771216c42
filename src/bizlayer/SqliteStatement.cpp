#include "bizlayer/SqliteStatement.h"

#include <sqlite3.h>
#include <strings.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>

#include "bizlayer/DateText.h"
#include "host/Convert.h"

namespace orvel {

namespace {

bool DeclaredAs(const char* declared, const char* type) {
  return declared && strcasecmp(declared, type) == 0;
}

}  // namespace

DatabaseError SqliteFailure(int code, const std::string& message) {
  return DatabaseError(code, message, (code & 0xff) == SQLITE_CONSTRAINT);
}

SqliteStatement::SqliteStatement(sqlite3* db, std::string_view sql) : db_(db) {
  int rc = sqlite3_prepare_v2(db, sql.data(), static_cast<int>(sql.size()), &stmt_, nullptr);
  if (rc != SQLITE_OK) {
    std::string message = sqlite3_errmsg(db);
    sqlite3_finalize(stmt_);
    stmt_ = nullptr;
    throw SqliteFailure(rc, message + " [" + std::string(sql) + "]");
  }
}

SqliteStatement::~SqliteStatement() { sqlite3_finalize(stmt_); }

void SqliteStatement::Bind(int index, const Variant& value) {
  int rc = SQLITE_OK;
  switch (value.Type()) {
    case VarType::Empty:
    case VarType::Null:
      rc = sqlite3_bind_null(stmt_, index);
      break;
    case VarType::Boolean:
      rc = sqlite3_bind_int(stmt_, index, value.Boolean() ? 1 : 0);
      break;
    case VarType::Integer:
      rc = sqlite3_bind_int(stmt_, index, value.Integer());
      break;
    case VarType::Double:
      rc = sqlite3_bind_double(stmt_, index, value.Double());
      break;
    case VarType::Date: {
      std::string text = DateText(value.DateValue());
      rc = sqlite3_bind_text(stmt_, index, text.data(), static_cast<int>(text.size()),
                             SQLITE_TRANSIENT);
      break;
    }
    case VarType::String: {
      const std::string& text = value.String();
      rc = sqlite3_bind_text(stmt_, index, text.data(), static_cast<int>(text.size()),
                             SQLITE_TRANSIENT);
      break;
    }
    case VarType::Object:
    case VarType::Array:
      throw SqliteFailure(SQLITE_MISMATCH, "Objekto ar masyvo į lauką įrašyti negalima");
  }
  if (rc != SQLITE_OK) throw SqliteFailure(rc, sqlite3_errmsg(db_));
}

bool SqliteStatement::Step() {
  int rc = sqlite3_step(stmt_);
  if (rc == SQLITE_ROW) return true;
  if (rc == SQLITE_DONE) return false;
  throw SqliteFailure(rc, sqlite3_errmsg(db_));
}

void SqliteStatement::Reset() { sqlite3_reset(stmt_); }

int SqliteStatement::ColumnCount() const { return sqlite3_column_count(stmt_); }

std::string SqliteStatement::ColumnName(int column) const {
  const char* name = sqlite3_column_name(stmt_, column);
  return name ? name : "";
}

Variant SqliteStatement::Column(int column) const {
  const char* declared = sqlite3_column_decltype(stmt_, column);
  switch (sqlite3_column_type(stmt_, column)) {
    case SQLITE_NULL:
      return Variant::Null();
    case SQLITE_INTEGER: {
      sqlite3_int64 n = sqlite3_column_int64(stmt_, column);
      if (DeclaredAs(declared, "BOOLEAN")) return Variant(n != 0);
      if (DeclaredAs(declared, "REAL")) return Variant(static_cast<double>(n));
      if (n >= std::numeric_limits<int32_t>::min() && n <= std::numeric_limits<int32_t>::max()) {
        return Variant(static_cast<int32_t>(n));
      }
      return Variant(static_cast<double>(n));
    }
    case SQLITE_FLOAT:
      return Variant(sqlite3_column_double(stmt_, column));
    default: {
      const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(stmt_, column));
      std::string value(text ? text : "", static_cast<size_t>(sqlite3_column_bytes(stmt_, column)));
      if (DeclaredAs(declared, "DATE")) return DateFromText(value);
      return Variant(std::move(value));
    }
  }
}

}  // namespace orvel
