#include "bizlayer/PgDatabase.h"

#include <libpq-fe.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <memory>
#include <vector>

#include "bizlayer/DateText.h"
#include "bizlayer/PgDialect.h"
#include "host/Convert.h"

namespace orvel {

namespace {

// Type OIDs of the server's catalogue (pg_type), fixed since ever.
constexpr Oid kInt2 = 21;
constexpr Oid kInt4 = 23;
constexpr Oid kInt8 = 20;
constexpr Oid kFloat4 = 700;
constexpr Oid kFloat8 = 701;
constexpr Oid kNumeric = 1700;
constexpr Oid kDate = 1082;
constexpr Oid kTimestamp = 1114;
constexpr Oid kTimestampTz = 1184;
constexpr Oid kBool = 16;

struct ResultDeleter {
  void operator()(PGresult* result) const { PQclear(result); }
};
using Result = std::unique_ptr<PGresult, ResultDeleter>;

DatabaseError Failure(const PGresult* result, pg_conn* conn, const std::string& sql) {
  const char* state = result ? PQresultErrorField(result, PG_DIAG_SQLSTATE) : nullptr;
  const char* primary = result ? PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY) : nullptr;
  std::string message = primary ? primary : PQerrorMessage(conn);
  while (!message.empty() && (message.back() == '\n' || message.back() == ' ')) message.pop_back();
  // Class 23 is an integrity constraint; P0001 a trigger's refusal, which
  // the schema raises for what a record cannot be.
  const bool constraint =
      state && (std::string(state).rfind("23", 0) == 0 || std::string(state) == "P0001");
  if (!constraint && !sql.empty()) message += " [" + sql + "]";
  return DatabaseError(state ? static_cast<int>(std::strtol(state, nullptr, 36)) : -1, message,
                       constraint);
}

// Checks a result: anything but success is a DatabaseError.
Result Checked(PGresult* raw, pg_conn* conn, const std::string& sql) {
  Result result(raw);
  const ExecStatusType status = result ? PQresultStatus(result.get()) : PGRES_FATAL_ERROR;
  if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK) {
    throw Failure(result.get(), conn, sql);
  }
  return result;
}

class PgStatement : public StatementEngine {
 public:
  PgStatement(PgDatabase& db, std::string_view sql)
      : db_(db), original_(sql), text_(ToPostgres(sql)) {
    values_.resize(static_cast<size_t>(text_.parameters));
    types_.resize(static_cast<size_t>(text_.parameters), 0);
    nulls_.resize(static_cast<size_t>(text_.parameters), true);
  }

  void Bind(int index, const Variant& value) override {
    if (index < 1 || index > text_.parameters) {
      throw DatabaseError(-1, "Nėra parametro " + std::to_string(index) + " [" + original_ + "]");
    }
    const auto at = static_cast<size_t>(index - 1);
    nulls_[at] = false;
    types_[at] = 0;
    switch (value.Type()) {
      case VarType::Empty:
      case VarType::Null:
        nulls_[at] = true;
        break;
      case VarType::Boolean:
        values_[at] = value.Boolean() ? "1" : "0";
        types_[at] = kInt2;
        break;
      case VarType::Integer:
        values_[at] = std::to_string(value.Integer());
        types_[at] = kInt8;
        break;
      case VarType::Double: {
        char text[40];
        std::snprintf(text, sizeof text, "%.17g", value.Double());
        values_[at] = text;
        types_[at] = kFloat8;
        break;
      }
      case VarType::Date:
        values_[at] = DateText(value.DateValue());
        types_[at] = kTimestamp;
        break;
      case VarType::String:
        values_[at] = value.String();
        break;
      case VarType::Object:
      case VarType::Array:
        throw DatabaseError(-1, "Objekto ar masyvo į lauką įrašyti negalima");
    }
    result_.reset();
  }

  bool Step() override {
    if (!result_) Execute();
    return ++row_ < PQntuples(result_.get());
  }

  void Reset() override {
    result_.reset();
    row_ = -1;
  }

  int ColumnCount() const override {
    if (!result_) const_cast<PgStatement*>(this)->Execute();
    return PQnfields(result_.get());
  }

  std::string ColumnName(int column) const override {
    if (!result_) const_cast<PgStatement*>(this)->Execute();
    const std::string name = PQfname(result_.get(), column);
    auto spelled = text_.spellings.find(name);
    return spelled == text_.spellings.end() ? name : spelled->second;
  }

  Variant Column(int column) const override {
    if (!result_ || row_ < 0 || row_ >= PQntuples(result_.get())) return Variant();
    if (PQgetisnull(result_.get(), row_, column)) return Variant::Null();
    const char* text = PQgetvalue(result_.get(), row_, column);
    switch (PQftype(result_.get(), column)) {
      case kBool:
        return Variant(text[0] == 't');
      case kInt2:  // the layer's BOOLEAN columns
        return Variant(std::atoi(text) != 0);
      case kInt4:
      case kInt8: {
        const long long n = std::strtoll(text, nullptr, 10);
        if (n >= std::numeric_limits<int32_t>::min() && n <= std::numeric_limits<int32_t>::max()) {
          return Variant(static_cast<int32_t>(n));
        }
        return Variant(static_cast<double>(n));
      }
      case kFloat4:
      case kFloat8:
      case kNumeric:
        return Variant(std::strtod(text, nullptr));
      case kDate:
      case kTimestamp:
      case kTimestampTz:
        return DateFromText(text);
      default:
        return Variant(std::string(text));
    }
  }

 private:
  void Execute() {
    std::vector<const char*> values(values_.size());
    for (size_t i = 0; i < values_.size(); ++i) values[i] = nulls_[i] ? nullptr : values_[i].c_str();
    result_ = Checked(PQexecParams(db_.Handle(), text_.sql.c_str(), text_.parameters,
                                   types_.data(), values.data(), nullptr, nullptr, 0),
                      db_.Handle(), original_);
    const char* changed = PQcmdTuples(result_.get());
    db_.SetChanges(changed && *changed ? std::atoi(changed) : 0);
    row_ = -1;
  }

  PgDatabase& db_;
  std::string original_;
  PgStatementText text_;
  std::vector<std::string> values_;
  std::vector<Oid> types_;
  std::vector<bool> nulls_;
  Result result_;
  int row_ = -1;
};

}  // namespace

bool PgDatabase::IsUrl(std::string_view text) {
  return text.rfind("postgresql://", 0) == 0 || text.rfind("postgres://", 0) == 0;
}

PgDatabase::PgDatabase(const std::string& url) : url_(url) {
  // user:password@ before the host: a password on a command line.
  const size_t start = url.find("://") + 3;
  const size_t at = url.find('@', start);
  if (at != std::string::npos && url.substr(start, at - start).find(':') != std::string::npos) {
    throw DatabaseError(-1, "Slaptažodis adrese nenurodomas: jį saugo ~/.pgpass arba PGPASSFILE");
  }
  conn_ = PQconnectdb(url.c_str());
  if (PQstatus(conn_) != CONNECTION_OK) {
    std::string message = PQerrorMessage(conn_);
    while (!message.empty() && message.back() == '\n') message.pop_back();
    PQfinish(conn_);
    conn_ = nullptr;
    throw DatabaseError(-1, "Nepavyko prisijungti prie " + url + ": " + message);
  }
  Exec("SET client_min_messages = warning; SET TIME ZONE 'UTC'");
}

PgDatabase::~PgDatabase() { PQfinish(conn_); }

void PgDatabase::Exec(std::string_view sql) {
  const std::string script = ScriptToPostgres(sql);
  Result result = Checked(PQexec(conn_, script.c_str()), conn_, std::string(sql));
  const char* changed = PQcmdTuples(result.get());
  changes_ = changed && *changed ? std::atoi(changed) : 0;
}

Statement PgDatabase::Prepare(std::string_view sql) {
  return Statement(std::make_unique<PgStatement>(*this, sql));
}

int64_t PgDatabase::LastInsertRowId() {
  Result result(PQexec(conn_, "SELECT lastval()"));
  if (PQresultStatus(result.get()) != PGRES_TUPLES_OK || PQntuples(result.get()) != 1) return 0;
  return std::strtoll(PQgetvalue(result.get(), 0, 0), nullptr, 10);
}

void PgDatabase::Begin() { Exec("BEGIN"); }

std::string PgDatabase::User() const { return PQuser(conn_); }

}  // namespace orvel
