// Listing a group of 100,000 goods through the module (the goods adapter of
// the loaded library, its business object over the reference database)
// against the same SELECT stepped directly through SQLite. Both sides read
// every column the SELECT gives, of every row, as text: the direct side into
// a table of strings, the module side from its record set's fields. The
// program prints the ratio (module / direct, by CPU time) after Google
// Benchmark's table; the target is 3 or less.
//
//   orvel_bench_bizlayer [benchmark flags]

#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "RatioReporter.h"
#include "bizlayer/ReferenceDatabase.h"
#include "bizlayer/SqliteDatabase.h"
#include "host/Convert.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/Recordset.h"
#include "refhost/Prompter.h"
#include "refhost/ReferenceHost.h"
#include "refhost/ReferenceObjectManager.h"

namespace {

using namespace orvel;

constexpr int kGoods = 100000;

class SilentPrompter : public Prompter {
 public:
  void Say(const std::string&) override {}
  int Choose(const std::string&, const std::vector<std::string>&) override { return -1; }
  std::string AskText(const std::string&) override { return ""; }
};

// One database and one running host for the whole program.
struct Fixture {
  Fixture() {
    char folder[] = "/tmp/orvel-bench-XXXXXX";
    path = std::string(mkdtemp(folder)) + "/bench.db";
    {
      auto db = ReferenceDatabase::Open(path);
      Transaction transaction(*db);
      auto group = db->Prepare(
          "INSERT INTO goods (Name, Code, GroupFlag, Active) VALUES ('Didmena', '99', 1, 1)");
      group.Run();
      groupId = db->LastInsertRowId();
      auto good = db->Prepare(
          "INSERT INTO goods (Name, Code, BarCode, ParentID, GroupFlag, GoodType, MeasureID, Price,"
          " VatRate, Active) VALUES (?, ?, ?, ?, 0, 0, 1, ?, 21.0, 1)");
      for (int i = 0; i < kGoods; ++i) {
        good.Reset();
        good.BindAll("Prekė Nr. " + std::to_string(kGoods - i), "99" + std::to_string(100000 + i),
                     "477" + std::to_string(1000000000 + i), groupId, 0.5 + (i % 1000) / 10.0)
            .Run();
      }
      transaction.Commit();
    }
    std::string error;
    if (!host.Start({path, ORVEL_MODULE_PATH, "admin", "/tmp"}, error)) {
      std::fprintf(stderr, "orvel_bench_bizlayer: %s\n", error.c_str());
      std::exit(1);
    }
    goods = host.Objects().GetOrvelObjectUI("O0000200");
  }
  ~Fixture() {
    for (const char* suffix : {"", "-wal", "-shm"}) std::remove((path + suffix).c_str());
  }

  std::string path;
  int64_t groupId = 0;
  SilentPrompter prompter;
  ReferenceHost host{prompter};
  std::shared_ptr<OrvelObjectUI> goods;
};

Fixture& Shared() {
  static Fixture fixture;
  return fixture;
}

void BM_DirectSelect(benchmark::State& state) {
  Fixture& f = Shared();
  sqlite3* db = nullptr;
  sqlite3_open(f.path.c_str(), &db);
  // The statement the business layer runs for a group's goods list, column
  // for column: the record's fields, what is left in its open lots, its place
  // in the tree and the node kind the tree draws it as.
  const char* sql =
      "SELECT 'O0000200' || ID AS OIDR, Name AS Preview, ID, Name, Code, BarCode, ParentID,"
      " GroupFlag, GoodType, MeasureID, AmountPrecision, Price, VatRate, VAT, PriceWithVAT, Active,"
      " WithRest, WithItems, Garanty, CreatedByUser, CreationDate, UpdatedByUser, UpdateDate,"
      " (SELECT SUM(l.Rest) FROM document_lines l WHERE l.GoodID = goods.ID) AS Rest,"
      " (WITH RECURSIVE own(pid, path, depth) AS (SELECT goods.ParentID, goods.ID || '/', 0"
      " UNION ALL SELECT g.ParentID, g.ID || '/' || own.path, own.depth + 1 FROM goods g"
      " JOIN own ON g.ID = own.pid WHERE own.depth < 64) SELECT '/' || path FROM own"
      " ORDER BY depth DESC LIMIT 1) AS OwnCode,"
      " CASE WHEN GroupFlag = 1 THEN CASE WHEN COALESCE(Active, 1) <> 0 THEN 'Group' ELSE 'GroupNA'"
      " END WHEN GoodType = 1 THEN CASE WHEN COALESCE(Active, 1) <> 0 THEN 'Service'"
      " ELSE 'ServiceNA' END WHEN COALESCE(Active, 1) <> 0 THEN 'GEXIST' ELSE 'GoodNA' END AS Otype"
      " FROM goods WHERE 1 = 1 AND ParentID = ? ORDER BY GroupFlag DESC, Name, ID";
  size_t rows = 0;
  int columns = 0;
  for (auto _ : state) {
    sqlite3_stmt* stmt = nullptr;
    sqlite3_prepare_v2(db, sql, -1, &stmt, nullptr);
    sqlite3_bind_int64(stmt, 1, f.groupId);
    columns = sqlite3_column_count(stmt);
    std::vector<std::vector<std::string>> table;
    while (sqlite3_step(stmt) == SQLITE_ROW) {
      std::vector<std::string> row;
      row.reserve(static_cast<size_t>(columns));
      for (int c = 0; c < columns; ++c) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(stmt, c));
        row.emplace_back(text ? text : "");
      }
      table.push_back(std::move(row));
    }
    sqlite3_finalize(stmt);
    rows = table.size();
    benchmark::DoNotOptimize(table.data());
  }
  sqlite3_close(db);
  state.counters["rows"] = static_cast<double>(rows);
  state.counters["columns"] = columns;
}

void BM_ThroughModule(benchmark::State& state) {
  Fixture& f = Shared();
  const std::string group = "O0000200" + std::to_string(f.groupId);
  int rows = 0;
  int columns = 0;
  for (auto _ : state) {
    auto rs = f.goods->GetOrvelObjectList(group, "", "");
    auto& fields = rs->Fields();
    columns = fields.Count();
    std::vector<std::vector<std::string>> table;
    for (rs->MoveFirst(); !rs->IsEOF(); rs->MoveNext()) {
      std::vector<std::string> row;
      row.reserve(static_cast<size_t>(columns));
      for (int c = 0; c < columns; ++c) {
        const Variant value = fields.Item(c).Value();
        row.emplace_back(value.IsNull() ? std::string() : CStr(value));
      }
      table.push_back(std::move(row));
    }
    rows = static_cast<int>(table.size());
    benchmark::DoNotOptimize(table.data());
  }
  state.counters["rows"] = rows;
  state.counters["columns"] = columns;
}

BENCHMARK(BM_DirectSelect)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_ThroughModule)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  orvel::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  double ratio = reporter.Ratio("BM_ThroughModule", "BM_DirectSelect");
  if (ratio >= 0) std::printf("module list / direct SELECT: %.2f (target <= 3)\n", ratio);
  benchmark::Shutdown();
  return 0;
}
