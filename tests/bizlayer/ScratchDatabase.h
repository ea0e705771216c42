#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

#include "bizlayer/Database.h"
#include "bizlayer/PgDatabase.h"
#include "bizlayer/PgDialect.h"
#include "bizlayer/SqliteDatabase.h"

namespace orvel {

// The URL of the PostgreSQL server CTest starts (ORVEL_PG_STATE names its file); fails without one.
inline std::string TestServerUrl() {
  const char* state = std::getenv("ORVEL_PG_STATE");
  std::ifstream file(state ? state : "");
  std::string url;
  if (!std::getline(file, url) || url.empty()) {
    ADD_FAILURE() << "no PostgreSQL server for the tests: run them through ctest, which starts"
                     " one (tests/pg/pg-server.sh), or set ORVEL_PG_STATE";
  }
  return url;
}

// A connection to the tests' server in a schema of its own, dropped with it, as a new SQLite file.
class ScratchPgDatabase : public PgDatabase {
 public:
  ScratchPgDatabase() : PgDatabase(TestServerUrl()) {
    static int made = 0;
    schema_ = "t" + std::to_string(getpid()) + "_" + std::to_string(++made);
    Exec("DROP SCHEMA IF EXISTS " + schema_ + " CASCADE; CREATE SCHEMA " + schema_ +
         "; SET search_path TO " + schema_);
    Exec(PgPrelude());
  }
  ~ScratchPgDatabase() override {
    try {
      Exec("DROP SCHEMA IF EXISTS " + schema_ + " CASCADE");
    } catch (...) {
      // The server went first; its folder goes with it.
    }
  }

 private:
  std::string schema_;
};

// The engines a database test runs on: SQLite in memory, and a new schema on the tests' server.
struct EngineMaker {
  const char* name;
  std::function<std::shared_ptr<Database>()> make;
};

inline const std::vector<EngineMaker>& DatabaseEngines() {
  static const std::vector<EngineMaker> engines{
      {"Sqlite", [] { return std::make_shared<SqliteDatabase>(":memory:"); }},
      {"Postgres", [] { return std::make_shared<ScratchPgDatabase>(); }},
  };
  return engines;
}

}  // namespace orvel
