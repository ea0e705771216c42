#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "orvel/Variant.h"

namespace orvel {

// A failure of the database under the business layer: the engine's own code
// and message, and whether a constraint refused the change. It never leaves
// the layer: each business call catches it and answers with a non-zero
// Number and the message.
class DatabaseError : public std::runtime_error {
 public:
  DatabaseError(int code, const std::string& message, bool constraint = false)
      : std::runtime_error(message), code_(code), constraint_(constraint) {}
  int Code() const { return code_; }
  // A key, a reference or a check of the schema refused the change.
  bool IsConstraint() const { return constraint_; }

 private:
  int code_;
  bool constraint_;
};

// What an engine does with one prepared statement.
class StatementEngine {
 public:
  virtual ~StatementEngine() = default;
  virtual void Bind(int index, const Variant& value) = 0;
  virtual bool Step() = 0;
  virtual void Reset() = 0;
  virtual int ColumnCount() const = 0;
  virtual std::string ColumnName(int column) const = 0;
  virtual Variant Column(int column) const = 0;
};

// One prepared statement. Values are always bound, never spliced into the
// SQL text, so user text of any shape ("O'Brien", "x'; DROP TABLE firms; --")
// is stored and read back as it stands.
//
// Conversions between Variant and the database: Empty and Null are NULL; a
// Boolean is 1 or 0; an Integer and a Double keep their kind; a Date is a
// day with its time; a String is text. A column read back follows its
// declared type: BOOLEAN gives a Boolean, DATE a Date, INTEGER an Integer (a
// Double when it exceeds 32 bits), REAL a Double, TEXT a String; an
// expression follows its value.
class Statement {
 public:
  explicit Statement(std::unique_ptr<StatementEngine> engine) : engine_(std::move(engine)) {}

  // Binds parameter `index` (1-based). An object or array is DatabaseError.
  Statement& Bind(int index, const Variant& value) {
    engine_->Bind(index, value);
    return *this;
  }
  // Binds the values to parameters 1, 2, ... in order.
  template <class... Values>
  Statement& BindAll(const Values&... values) {
    int index = 0;
    (Bind(++index, Variant(values)), ...);
    return *this;
  }
  // Runs to the next row: true while there is one.
  bool Step() { return engine_->Step(); }
  // Runs a statement that returns no rows.
  void Run() {
    while (Step()) {
    }
  }
  // Back to the start with the bindings kept.
  void Reset() { engine_->Reset(); }
  int ColumnCount() const { return engine_->ColumnCount(); }
  std::string ColumnName(int column) const { return engine_->ColumnName(column); }
  Variant Column(int column) const { return engine_->Column(column); }

 private:
  std::unique_ptr<StatementEngine> engine_;
};

// A connection to the reference business layer's database: a SQLite file
// on one desk, or an office's PostgreSQL server. The layer writes its SQL
// once, as SQLite reads it; an engine that reads it otherwise translates it
// in one place. Failures are DatabaseError.
class Database {
 public:
  enum class Engine { Sqlite, Postgres };

  virtual ~Database() = default;

  virtual Engine Kind() const = 0;
  // Runs one or more statements that take no parameters.
  virtual void Exec(std::string_view sql) = 0;
  virtual Statement Prepare(std::string_view sql) = 0;
  // The ID the last INSERT gave its row.
  virtual int64_t LastInsertRowId() = 0;
  // Rows changed by the last INSERT, UPDATE or DELETE.
  virtual int Changes() const = 0;
  // Starts a write transaction; Transaction ends it.
  virtual void Begin() = 0;
  // Where the database is: a file path, or the server's address.
  virtual const std::string& Path() const = 0;
};

// A write transaction: begun at construction, rolled back on destruction
// unless Commit ran. A business call that fails half way thus leaves the
// database as it was.
class Transaction {
 public:
  explicit Transaction(Database& db) : db_(db) { db_.Begin(); }
  ~Transaction() {
    if (done_) return;
    try {
      db_.Exec("ROLLBACK");
    } catch (...) {
      // The connection rolled back by itself (a failed COMMIT or a closed one).
    }
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  void Commit() {
    db_.Exec("COMMIT");
    done_ = true;
  }

 private:
  Database& db_;
  bool done_ = false;
};

}  // namespace orvel
