#include "bizlayer/SqliteDatabase.h"

#include <sqlite3.h>

#include "bizlayer/SqliteStatement.h"
#include "host/Text.h"

namespace orvel {

namespace {

constexpr int kBusyTimeoutMs = 5000;

// orvel_contains(text, part): whether `part` occurs in `text`, letters
// compared as the module compares them (Lithuanian case folding included),
// which LIKE does only for ASCII.
std::string_view TextOf(sqlite3_value* value) {
  const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return std::string_view(bytes ? bytes : "", static_cast<size_t>(sqlite3_value_bytes(value)));
}

void Contains(sqlite3_context* context, int, sqlite3_value** args) {
  sqlite3_result_int(context, InStr(TextOf(args[0]), TextOf(args[1]), Compare::Text) > 0);
}

// orvel_starts(text, part): whether `text` begins with `part`, compared so.
void Starts(sqlite3_context* context, int, sqlite3_value** args) {
  sqlite3_result_int(context, InStr(TextOf(args[0]), TextOf(args[1]), Compare::Text) == 1);
}

// orvel_fold(text): the text folded as comparisons fold it, the key of the
// catalogues' name and code indexes.
void Fold(sqlite3_context* context, int, sqlite3_value** args) {
  if (sqlite3_value_type(args[0]) == SQLITE_NULL) return sqlite3_result_null(context);
  const std::string folded = FoldText(TextOf(args[0]));
  sqlite3_result_text(context, folded.data(), static_cast<int>(folded.size()), SQLITE_TRANSIENT);
}

}  // namespace

SqliteDatabase::SqliteDatabase(const std::string& path) : path_(path) {
  int rc =
      sqlite3_open_v2(path.c_str(), &db_,
                      SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_FULLMUTEX, nullptr);
  if (rc != SQLITE_OK) {
    std::string message = db_ ? sqlite3_errmsg(db_) : sqlite3_errstr(rc);
    sqlite3_close(db_);
    db_ = nullptr;
    throw SqliteFailure(rc, "Nepavyko atidaryti " + path + ": " + message);
  }
  sqlite3_busy_timeout(db_, kBusyTimeoutMs);
  sqlite3_create_function(db_, "orvel_contains", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                          Contains, nullptr, nullptr);
  sqlite3_create_function(db_, "orvel_starts", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                          Starts, nullptr, nullptr);
  sqlite3_create_function(db_, "orvel_fold", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, Fold,
                          nullptr, nullptr);
  try {
    Exec("PRAGMA journal_mode=WAL; PRAGMA foreign_keys=ON; PRAGMA synchronous=NORMAL;");
  } catch (...) {
    sqlite3_close(db_);
    throw;
  }
}

SqliteDatabase::~SqliteDatabase() { sqlite3_close(db_); }

void SqliteDatabase::Exec(std::string_view sql) {
  std::string text(sql);
  char* error = nullptr;
  int rc = sqlite3_exec(db_, text.c_str(), nullptr, nullptr, &error);
  if (rc != SQLITE_OK) {
    std::string message = error ? error : sqlite3_errmsg(db_);
    sqlite3_free(error);
    throw SqliteFailure(rc, message);
  }
}

Statement SqliteDatabase::Prepare(std::string_view sql) {
  return Statement(std::make_unique<SqliteStatement>(db_, sql));
}

int64_t SqliteDatabase::LastInsertRowId() { return sqlite3_last_insert_rowid(db_); }

int SqliteDatabase::Changes() const { return sqlite3_changes(db_); }

void SqliteDatabase::Begin() { Exec("BEGIN IMMEDIATE"); }

}  // namespace orvel
