#include "bizlayer/SqliteStatement.h"

#include <sqlite3.h>
#include <strings.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>

#include "host/Convert.h"

namespace orvel {

namespace {

std::string IsoText(Date d) {
  int year = 0, month = 0, day = 0;
  SplitDate(d, year, month, day);
  double fraction = d.serial - std::floor(d.serial);
  long seconds = std::lround(fraction * 86400.0);
  char text[48];
  if (seconds == 0 || seconds >= 86400) {
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", year, month, day);
  } else {
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02ld:%02ld:%02ld", year, month, day,
                  seconds / 3600, seconds / 60 % 60, seconds % 60);
  }
  return text;
}

// "yyyy-mm-dd" with an optional " hh:mm:ss"; anything else stays text.
Variant DateFromText(const std::string& text) {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  int read = std::sscanf(text.c_str(), "%4d-%2d-%2d %2d:%2d:%2d", &year, &month, &day, &hour,
                         &minute, &second);
  if (read != 3 && read != 6) return Variant(text);
  if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31) {
    return Variant(text);
  }
  Date date = DateSerial(year, month, day);
  date.serial += (hour * 3600 + minute * 60 + second) / 86400.0;
  return Variant(date);
}

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
      std::string text = IsoText(value.DateValue());
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
