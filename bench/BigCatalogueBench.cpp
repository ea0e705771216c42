// Big catalogues: the reference business layer over a database made by
// orvel-bigdb's generator in a temporary folder, each call against the
// SELECTs it runs, captured from the layer's own connection and stepped
// directly through SQLite, every column of every row read into strings:
//   - a group of 200,000 goods listed ("Orvel_GetObjectList" as the goods
//     window sends it), through the layer and through the loaded module;
//   - the documents of a firm with 100,000 of them ("GetTraffic" of firms,
//     the firm card's documents tab) and the traffic of a good with 100,000
//     movements ("GetTraffic" of goods, the goods card's traffic tab);
//   - a search over the goods by the start of the name, against the same rows
//     read through an index on the name (made in this database only: the
//     schema has none);
//   - with the window host built, the group's node opened in its tree and
//     its first screen drawn (offscreen), against the group's SELECT;
//   - orvel-host started on the database to its first prompt, on the big
//     database and on a fresh sample database it makes, and the sample
//     database made in process, in milliseconds.
// Each list also counts the bytes the C++ side holds per row of the answer
// (what operator new gave out and not yet back, SQLite's own cache aside):
// "bytes/row" once the answer is in hand, "peak/row" at the highest point.
//
// By default the database holds 230,000 goods, 10,000 firms and 120,000
// documents; ORVEL_BIGDB=full makes it a million goods, 100,000 firms and
// 300,000 documents (about twenty seconds more to make).
//
//   orvel_bench_big [benchmark flags]

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <sqlite3.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "BigDatabase.h"
#include "ChildProcess.h"
#include "RatioReporter.h"
#include "bizlayer/BusinessLayer.h"
#include "bizlayer/ReferenceDatabase.h"
#include "bizlayer/SqliteDatabase.h"
#include "bizlayer/TableBusinessObject.h"
#include "host/Convert.h"
#include "orvel/OrvelBoResult.h"
#include "orvel/OrvelObjectBO.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/Recordset.h"
#include "refhost/Prompter.h"
#include "refhost/ReferenceHost.h"
#include "refhost/ReferenceObjectManager.h"

#ifdef ORVEL_BENCH_WINDOWS
#include <QApplication>
#include <QScrollBar>
#include <QTreeWidget>

#include "qthost/MainWindow.h"
#include "qthost/QtPrompter.h"
#include "qthost/QtUi.h"
#endif

// ---- the bytes the program holds ----

namespace {
std::atomic<int64_t> g_live{0};
std::atomic<int64_t> g_peak{0};

void* Counted(void* p) {
  if (p == nullptr) throw std::bad_alloc();
  const int64_t live = g_live += static_cast<int64_t>(malloc_usable_size(p));
  int64_t peak = g_peak.load(std::memory_order_relaxed);
  while (live > peak && !g_peak.compare_exchange_weak(peak, live)) {
  }
  return p;
}

void Uncounted(void* p) {
  if (p == nullptr) return;
  g_live -= static_cast<int64_t>(malloc_usable_size(p));
  std::free(p);
}
}  // namespace

void* operator new(size_t size) { return Counted(std::malloc(size == 0 ? 1 : size)); }
void* operator new[](size_t size) { return Counted(std::malloc(size == 0 ? 1 : size)); }
void operator delete(void* p) noexcept { Uncounted(p); }
void operator delete[](void* p) noexcept { Uncounted(p); }
void operator delete(void* p, size_t) noexcept { Uncounted(p); }
void operator delete[](void* p, size_t) noexcept { Uncounted(p); }

namespace {

using namespace orvel;
namespace fs = std::filesystem;

// Holds the answer of a call for its lifetime and tells the bytes it took.
class Held {
 public:
  Held() : before_(g_live.load()) { g_peak = before_; }
  int64_t Bytes() const { return g_live.load() - before_; }
  int64_t Peak() const { return g_peak.load() - before_; }

 private:
  int64_t before_;
};

class SilentPrompter : public Prompter {
 public:
  void Say(const std::string&) override {}
  int Choose(const std::string&, const std::vector<std::string>&) override { return -1; }
  std::string AskText(const std::string&) override { return ""; }
};

constexpr const char* kSearch = "Šaldytuvas, Rasos";

// The database, the running host, and the SELECTs behind each call.
struct Fixture {
  Fixture() {
    char name[] = "/tmp/orvel-big-bench-XXXXXX";
    folder = mkdtemp(name);
    path = folder + "/big.db";
    bigdb::Size size;
    const char* full = std::getenv("ORVEL_BIGDB");
    if (full == nullptr || std::string(full) != "full") {
      size.goods = 230000;
      size.firms = 10000;
      size.documents = 120000;
    }
    std::fprintf(stderr, "making %lld goods, %lld firms, %lld documents...\n",
                 static_cast<long long>(size.goods), static_cast<long long>(size.firms),
                 static_cast<long long>(size.documents));
    const auto start = std::chrono::steady_clock::now();
    made = bigdb::Make(path, size);
    std::fprintf(stderr, "made in %.1f s\n",
                 std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    {
      // Only the search's baseline reads by it.
      SqliteDatabase db(path);
      db.Exec("CREATE INDEX bench_goods_name ON goods (Name)");
    }

    std::string error;
    if (!host.Start({path, ORVEL_MODULE_PATH, "admin", folder}, error)) {
      std::fprintf(stderr, "orvel_bench_big: %s\n", error.c_str());
      std::exit(1);
    }
    goodsUi = host.Objects().GetOrvelObjectUI("O0000200");
    goods = host.Layer().BusinessObject("O0000200");
    firms = host.Layer().BusinessObject("O0000100");
    groupOidr = "O0000200" + std::to_string(made.bigGroupId);
    groupParam = "'" + groupOidr + "','',1,0,0,'',0,0,0";
    searchParam = std::string("'','") + kSearch + "',0,1,0,'',0,0,0";
    firmParam = "'O0000100" + std::to_string(made.busyFirmId) + "','2000-01-01','2099-12-31'";
    trafficParam = "'O0000200" + std::to_string(made.busyGoodId) + "','2000-01-01','2099-12-31'";
    groupSql = Captured(*goods, "Orvel_GetObjectList", groupParam);
    firmSql = Captured(*firms, "GetTraffic", firmParam);
    trafficSql = Captured(*goods, "GetTraffic", trafficParam);
    searchSql = Captured(*goods, "Orvel_GetObjectList", searchParam);
    sqlite3_open_v2(path.c_str(), &direct, SQLITE_OPEN_READONLY, nullptr);
  }
  ~Fixture() {
    sqlite3_close(direct);
    std::error_code ignored;
    fs::remove_all(folder, ignored);
  }

  // The statements the layer runs for a call, as they ran (values in place).
  std::vector<std::string> Captured(OrvelObjectBO& object, const std::string& name,
                                    const std::string& param) {
    std::vector<std::string> sql;
    sqlite3* db = dynamic_cast<SqliteDatabase&>(host.Layer().Database()).Handle();
    sqlite3_trace_v2(
        db, SQLITE_TRACE_STMT,
        [](unsigned, void* context, void* statement, void*) {
          char* text = sqlite3_expanded_sql(static_cast<sqlite3_stmt*>(statement));
          if (text != nullptr) static_cast<std::vector<std::string>*>(context)->push_back(text);
          sqlite3_free(text);
          return 0;
        },
        &sql);
    const OrvelBoResult result = object.GetCall(name, param, 0);
    sqlite3_trace_v2(db, 0, nullptr, nullptr);
    if (result.Number != 0) {
      std::fprintf(stderr, "orvel_bench_big: %s %s: %s\n", name.c_str(), param.c_str(),
                   result.Text.c_str());
      std::exit(1);
    }
    for (const std::string& s : sql) {
      std::fprintf(stderr, "  %s: %.160s%s\n", name.c_str(), s.c_str(), s.size() > 160 ? "..." : "");
    }
    return sql;
  }

  std::string folder;
  std::string path;
  bigdb::Made made;
  SilentPrompter prompter;
  ReferenceHost host{prompter};
  std::shared_ptr<OrvelObjectUI> goodsUi;
  std::shared_ptr<OrvelObjectBO> goods;
  std::shared_ptr<OrvelObjectBO> firms;
  std::string groupOidr, groupParam, searchParam, firmParam, trafficParam;
  std::vector<std::string> groupSql, firmSql, trafficSql, searchSql;
  sqlite3* direct = nullptr;
};

Fixture* g_fixture = nullptr;

void Rows(benchmark::State& state, size_t rows, const Held& held) {
  state.counters["rows"] = static_cast<double>(rows);
  if (rows == 0) return;
  state.counters["bytes/row"] = static_cast<double>(held.Bytes()) / static_cast<double>(rows);
  state.counters["peak/row"] = static_cast<double>(held.Peak()) / static_cast<double>(rows);
}

// The baseline: each statement stepped, every column of every row kept as
// text; the rows counted are those of the first statement.
void Stepped(benchmark::State& state, const std::vector<std::string>& statements) {
  for (auto _ : state) {
    Held held;
    std::vector<std::vector<std::string>> table;
    size_t rows = 0;
    for (size_t k = 0; k < statements.size(); ++k) {
      sqlite3_stmt* stmt = nullptr;
      sqlite3_prepare_v2(g_fixture->direct, statements[k].c_str(), -1, &stmt, nullptr);
      const int columns = sqlite3_column_count(stmt);
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
      if (k == 0) rows = table.size();
    }
    benchmark::DoNotOptimize(table.data());
    Rows(state, rows, held);
  }
}

// Every row of an answer, one field of each read.
void Read(benchmark::State& state, Recordset& rs, const char* field, const Held& held) {
  size_t rows = 0;
  for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext()) {
    benchmark::DoNotOptimize(rs.Fields(field).Value());
    ++rows;
  }
  Rows(state, rows, held);
}

// A call of the layer, every row's OIDR read.
void Called(benchmark::State& state, OrvelObjectBO& object, const std::string& name,
            const std::string& param) {
  for (auto _ : state) {
    Held held;
    const OrvelBoResult result = object.GetCall(name, param, 0);
    auto rs = std::dynamic_pointer_cast<Recordset>(result.Object);
    if (result.Number != 0 || !rs) {
      state.SkipWithError(result.Text.c_str());
      return;
    }
    Read(state, *rs, "OIDR", held);
  }
}

void BM_GroupSelect(benchmark::State& state) { Stepped(state, g_fixture->groupSql); }
void BM_GroupList(benchmark::State& state) {
  Called(state, *g_fixture->goods, "Orvel_GetObjectList", g_fixture->groupParam);
}
void BM_GroupListModule(benchmark::State& state) {
  for (auto _ : state) {
    Held held;
    auto rs = g_fixture->goodsUi->GetOrvelObjectList(g_fixture->groupOidr, "", "");
    Read(state, *rs, "Name", held);
  }
}
void BM_FirmDocumentsSelect(benchmark::State& state) { Stepped(state, g_fixture->firmSql); }
void BM_FirmDocuments(benchmark::State& state) {
  Called(state, *g_fixture->firms, "GetTraffic", g_fixture->firmParam);
}
void BM_GoodTrafficSelect(benchmark::State& state) { Stepped(state, g_fixture->trafficSql); }
void BM_GoodTraffic(benchmark::State& state) {
  Called(state, *g_fixture->goods, "GetTraffic", g_fixture->trafficParam);
}

// The rows of the search read by the index: the same columns, names from
// the text up to the next text.
std::vector<std::string> IndexedSearch() {
  // The outer WHERE is the last before the last ORDER BY: the columns
  // have subqueries of their own.
  std::string sql = g_fixture->searchSql.at(0);
  const size_t order = sql.rfind(" ORDER BY ");
  const size_t where = order == std::string::npos ? order : sql.rfind(" WHERE ", order);
  if (where == std::string::npos || order == std::string::npos) return {};
  std::string upper = kSearch;
  ++upper.back();
  sql = sql.substr(0, where) + " INDEXED BY bench_goods_name WHERE Name >= '" + kSearch +
        "' AND Name < '" + upper + "'" + sql.substr(order);
  std::fprintf(stderr, "  indexed search: ...%s\n", sql.substr(where).c_str());
  return {sql};
}

void BM_SearchIndexed(benchmark::State& state) {
  static const std::vector<std::string> sql = IndexedSearch();
  if (sql.empty()) {
    state.SkipWithError("the search's SELECT has no WHERE and ORDER BY to keep");
    return;
  }
  Stepped(state, sql);
}
void BM_Search(benchmark::State& state) {
  Called(state, *g_fixture->goods, "Orvel_GetObjectList", g_fixture->searchParam);
}

#ifdef ORVEL_BENCH_WINDOWS
// The window host over the big database, its tree opened down to the big
// group's parent.
struct Windows {
  Windows() {
    std::string error;
    if (!host.Start({g_fixture->path, ORVEL_MODULE_PATH, "admin", g_fixture->folder}, error)) {
      std::fprintf(stderr, "orvel_bench_big: %s\n", error.c_str());
      return;
    }
    window = std::make_unique<MainWindow>(host, *ui, prompter, g_fixture->path, "admin");
    window->resize(1280, 800);
    window->show();
    // The groups above the big one, top first.
    std::vector<std::string> way{"O0000200"};
    auto up = host.Database().Prepare(
        "WITH RECURSIVE up(id, depth) AS (SELECT ParentID, 1 FROM goods WHERE ID = ?"
        " UNION ALL SELECT g.ParentID, up.depth + 1 FROM goods g JOIN up ON g.ID = up.id"
        " WHERE g.ParentID IS NOT NULL AND g.ParentID <> 0) SELECT id FROM up ORDER BY depth DESC");
    up.Bind(1, Variant(g_fixture->made.bigGroupId));
    while (up.Step()) way.push_back("O0000200" + ConcatText(up.Column(0)));
    for (const std::string& oidr : way) {
      QTreeWidgetItem* node = window->NodeOf(oidr);
      if (!node) {
        std::fprintf(stderr, "orvel_bench_big: no node %s in the tree\n", oidr.c_str());
        return;
      }
      node->setExpanded(true);
    }
    group = window->NodeOf(g_fixture->groupOidr);
  }
  QtPrompter prompter;
  std::shared_ptr<QtUi> ui = std::make_shared<QtUi>();
  ReferenceHost host{prompter, ui};
  std::unique_ptr<MainWindow> window;
  QTreeWidgetItem* group = nullptr;
};
Windows* g_windows = nullptr;

void BM_TreeFirstScreen(benchmark::State& state) {
  if (!g_windows || !g_windows->group) {
    state.SkipWithError("the big group's node is not in the tree");
    return;
  }
  MainWindow& window = *g_windows->window;
  for (auto _ : state) {
    window.LoadMembers(g_windows->group);
    g_windows->group->setExpanded(true);
    window.Tree()->scrollToItem(g_windows->group);
    window.Tree()->viewport()->repaint();
    state.counters["shown"] = g_windows->group->childCount();
  }
}
BENCHMARK(BM_TreeFirstScreen)->Unit(benchmark::kMillisecond)->MinTime(1.0);

// The group read afresh and scrolled to its last member: the tree shows a
// page at a time as the scroll bar reaches the end, until every member is in.
void BM_TreeScrollToEnd(benchmark::State& state) {
  if (!g_windows || !g_windows->group) {
    state.SkipWithError("the big group's node is not in the tree");
    return;
  }
  MainWindow& window = *g_windows->window;
  QTreeWidgetItem* group = g_windows->group;
  QScrollBar* bar = window.Tree()->verticalScrollBar();
  for (auto _ : state) {
    window.LoadMembers(group);
    group->setExpanded(true);
    window.Tree()->scrollToItem(group);
    state.counters["first"] = group->childCount();
    int pages = 0;
    for (int before = -1; group->childCount() != before; ++pages) {
      before = group->childCount();
      bar->setValue(bar->maximum());
    }
    window.Tree()->viewport()->repaint();
    state.counters["shown"] = group->childCount();
    state.counters["scrolls"] = pages;
  }
}
BENCHMARK(BM_TreeScrollToEnd)->Unit(benchmark::kMillisecond)->Iterations(3);
#endif

// Whole runs of orvel-host to its first prompt, in milliseconds of wall time.
void HostToPrompt(benchmark::State& state, const std::string& database, bool fresh) {
  for (auto _ : state) {
    if (fresh) {
      for (const char* suffix : {"", "-wal", "-shm"}) fs::remove(database + suffix);
    }
    // Over a pipe the host echoes each command after its prompt; what it
    // puts out before it waits for the first is its greeting.
    const ChildRun run = RunToPrompt({ORVEL_HOST_PATH, "--db", database}, "naudotojas admin\n");
    if (run.status != 0) {
      state.SkipWithError("orvel-host did not come to its prompt");
      return;
    }
    state.SetIterationTime(run.wallSeconds);
  }
}
void BM_HostStartBig(benchmark::State& state) { HostToPrompt(state, g_fixture->path, false); }
void BM_HostStartFresh(benchmark::State& state) {
  HostToPrompt(state, g_fixture->folder + "/fresh.db", true);
}
void BM_SampleDatabase(benchmark::State& state) {
  const std::string path = g_fixture->folder + "/sample.db";
  for (auto _ : state) {
    state.PauseTiming();
    for (const char* suffix : {"", "-wal", "-shm"}) fs::remove(path + suffix);
    state.ResumeTiming();
    benchmark::DoNotOptimize(ReferenceDatabase::Open(path));
  }
}

BENCHMARK(BM_GroupSelect)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_GroupList)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_GroupListModule)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_FirmDocumentsSelect)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_FirmDocuments)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_GoodTrafficSelect)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_GoodTraffic)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_SearchIndexed)->Unit(benchmark::kMillisecond)->MinTime(0.5);
BENCHMARK(BM_Search)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_HostStartBig)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);
BENCHMARK(BM_HostStartFresh)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(3);
BENCHMARK(BM_SampleDatabase)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  Fixture fixture;
  g_fixture = &fixture;
#ifdef ORVEL_BENCH_WINDOWS
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  Windows windows;
  g_windows = &windows;
#endif
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  const struct {
    const char* ours;
    const char* baseline;
    const char* what;
    double target;
  } ratios[] = {
      {"BM_GroupList", "BM_GroupSelect", "group list (layer) / SELECT", 1.5},
      {"BM_GroupListModule", "BM_GroupSelect", "group list (module) / SELECT", 1.5},
      {"BM_TreeFirstScreen", "BM_GroupSelect", "group's first screen in the tree / SELECT", 1.5},
      {"BM_TreeScrollToEnd", "BM_GroupSelect", "group scrolled to its end in the tree / SELECT", 3},
      {"BM_FirmDocuments", "BM_FirmDocumentsSelect", "firm's documents / SELECT", 2},
      {"BM_GoodTraffic", "BM_GoodTrafficSelect", "good's traffic / SELECTs", 2},
      {"BM_Search", "BM_SearchIndexed", "search / indexed SELECT", 2},
  };
  for (const auto& r : ratios) {
    const double ratio = reporter.Ratio(r.ours, r.baseline);
    if (ratio >= 0) std::printf("%s: %.2f (target <= %.1f)\n", r.what, ratio, r.target);
  }
  benchmark::Shutdown();
  return 0;
}
