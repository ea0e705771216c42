#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "bizlayer/Database.h"

struct pg_conn;

namespace orvel {

// A connection to an office's PostgreSQL server, by a URL such as
// "postgresql://ruta@server:5432/office". The password, when the server asks
// for one, comes from where libpq looks for it (~/.pgpass, PGPASSFILE, the
// environment), never from the URL: a URL that carries one is refused, so
// that no password stands on a command line. The layer's SQL is translated
// into PostgreSQL's as each statement is prepared (PgDialect.h). Failures
// are DatabaseError.
class PgDatabase : public Database {
 public:
  explicit PgDatabase(const std::string& url);
  ~PgDatabase() override;
  PgDatabase(const PgDatabase&) = delete;
  PgDatabase& operator=(const PgDatabase&) = delete;

  // Whether a --db argument names a server rather than a file.
  static bool IsUrl(std::string_view text);

  Engine Kind() const override { return Engine::Postgres; }
  const std::string& Path() const override { return url_; }
  void Exec(std::string_view sql) override;
  Statement Prepare(std::string_view sql) override;
  int64_t LastInsertRowId() override;
  int Changes() const override { return changes_; }
  void Begin() override;
  // The login the server knows this connection by: the bookkeeper.
  std::string User() const;

  pg_conn* Handle() const { return conn_; }
  void SetChanges(int changes) { changes_ = changes; }

 private:
  std::string url_;
  pg_conn* conn_ = nullptr;
  int changes_ = 0;
};

}  // namespace orvel
