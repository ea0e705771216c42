// MemoryRecordset's Filter and Sort on a million rows, each against a
// hand-written loop over plain structs doing the same work, run in the same
// process on the same generated data. The program prints the ratios
// (ours / baseline, by CPU time) after Google Benchmark's own table; the
// target is 2 or less for both. It also prints what the record set costs in memory per row
// against the plain structs, before and after editing a slice of it.
//
//   orvel_bench_recordset [--rows=N] [benchmark flags]

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "RatioReporter.h"
#include "host/MemoryRecordset.h"

namespace {

using orvel::MemoryRecordset;
using orvel::Variant;

size_t g_rows = 1000000;

// The plain form of one row: what a hand-written program would keep.
struct PlainRow {
  int32_t id;
  std::string code;
  double amount;
  double date;
};

// Currency-like codes in mixed case; "X" and "x" are one row in about thirty.
const char* const kCodes[] = {"EUR", "USD", "GBP", "PLN", "SEK", "NOK", "DKK", "CHF", "JPY", "CNY",
                              "eur", "usd", "Lt",  "LVL", "EEK", "X",   "x",   "CAD", "AUD", "NZD",
                              "CZK", "HUF", "RON", "BGN", "HRK", "RUB", "UAH", "BYN", "TRY", "ISK"};

struct Data {
  std::vector<PlainRow> plain;
  std::unique_ptr<MemoryRecordset> set;
};

// Deterministic: the same seed gives the same rows in every run.
Data& SharedData() {
  static Data data = [] {
    Data d;
    std::mt19937_64 gen(20240331);
    d.plain.reserve(g_rows);
    for (size_t i = 0; i < g_rows; ++i) {
      uint64_t r = gen();
      PlainRow row;
      row.id = static_cast<int32_t>(i + 1);
      row.code = kCodes[r % (sizeof kCodes / sizeof kCodes[0])];
      row.amount = static_cast<double>((r >> 8) % 20000) / 4.0;  // ties on purpose
      row.date = 45000.0 + static_cast<double>((r >> 32) % 730);
      d.plain.push_back(std::move(row));
    }
    d.set =
        std::make_unique<MemoryRecordset>(std::vector<std::string>{"ID", "Code", "Amount", "Date"});
    d.set->Reserve(g_rows);
    for (const PlainRow& row : d.plain) {
      d.set->AddRow({row.id, row.code, row.amount, orvel::Date{row.date}});
    }
    return d;
  }();
  return data;
}

// ---- filter: Code = 'X' ----

bool AsciiEqualsIgnoringCase(const std::string& a, const char* b, size_t bSize) {
  if (a.size() != bSize) return false;
  for (size_t i = 0; i < bSize; ++i) {
    unsigned char x = static_cast<unsigned char>(a[i]);
    unsigned char y = static_cast<unsigned char>(b[i]);
    if (x >= 'A' && x <= 'Z') x = static_cast<unsigned char>(x + 32);
    if (y >= 'A' && y <= 'Z') y = static_cast<unsigned char>(y + 32);
    if (x != y) return false;
  }
  return true;
}

void BM_FilterBaseline(benchmark::State& state) {
  const auto& rows = SharedData().plain;
  for (auto _ : state) {
    std::vector<uint32_t> picked;
    for (size_t i = 0; i < rows.size(); ++i) {
      if (AsciiEqualsIgnoringCase(rows[i].code, "X", 1)) picked.push_back(static_cast<uint32_t>(i));
    }
    benchmark::DoNotOptimize(picked.data());
    state.counters["rows"] = static_cast<double>(picked.size());
  }
}

void BM_FilterOurs(benchmark::State& state) {
  MemoryRecordset& rs = *SharedData().set;
  for (auto _ : state) {
    rs.SetFilter("Code = 'X'");
    state.counters["rows"] = rs.RecordCount();
  }
  rs.SetFilter("");
}

// ---- sort: Code, Amount DESC, ID ----

int AsciiCompareIgnoringCase(const std::string& a, const std::string& b) {
  size_t n = std::min(a.size(), b.size());
  for (size_t i = 0; i < n; ++i) {
    unsigned char x = static_cast<unsigned char>(a[i]);
    unsigned char y = static_cast<unsigned char>(b[i]);
    if (x >= 'A' && x <= 'Z') x = static_cast<unsigned char>(x + 32);
    if (y >= 'A' && y <= 'Z') y = static_cast<unsigned char>(y + 32);
    if (x != y) return x < y ? -1 : 1;
  }
  return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

void BM_SortBaseline(benchmark::State& state) {
  const auto& rows = SharedData().plain;
  for (auto _ : state) {
    std::vector<uint32_t> order(rows.size());
    std::iota(order.begin(), order.end(), 0u);
    std::stable_sort(order.begin(), order.end(), [&rows](uint32_t a, uint32_t b) {
      const PlainRow& x = rows[a];
      const PlainRow& y = rows[b];
      int c = AsciiCompareIgnoringCase(x.code, y.code);
      if (c != 0) return c < 0;
      if (x.amount != y.amount) return x.amount > y.amount;
      return x.id < y.id;
    });
    benchmark::DoNotOptimize(order.data());
  }
}

void BM_SortOurs(benchmark::State& state) {
  MemoryRecordset& rs = *SharedData().set;
  for (auto _ : state) {
    rs.SetSort("Code, Amount DESC, ID");
    benchmark::DoNotOptimize(rs.CurrentStoredRow());
  }
  rs.SetSort("");
}

BENCHMARK(BM_FilterBaseline)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FilterOurs)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SortBaseline)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_SortOurs)->Unit(benchmark::kMillisecond)->Iterations(3);

// Heap in use, counting the large blocks malloc maps on their own.
size_t HeapInUse() {
  struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

// Bytes per row of the record set and of the plain structs, and of the set
// again after every hundredth row has had two fields edited.
void ReportMemory() {
  size_t before = HeapInUse();
  std::vector<PlainRow> plain;
  {
    const auto& source = SharedData().plain;
    plain = source;
  }
  size_t plainBytes = HeapInUse() - before;
  plain.clear();
  plain.shrink_to_fit();

  before = HeapInUse();
  auto copy = SharedData().set->Clone();
  size_t setBytes = HeapInUse() - before;
  for (copy->MoveFirst(); !copy->IsEOF();) {
    copy->Fields("Code").SetValue("ZZZ");
    copy->Fields("Amount").SetValue(1.0);
    for (int k = 0; k < 100 && !copy->IsEOF(); ++k) copy->MoveNext();
  }
  size_t editedBytes = HeapInUse() - before;
  double rows = static_cast<double>(g_rows);
  std::printf("memory per row: record set %.1f bytes, plain structs %.1f bytes (ratio %.2f)\n",
              static_cast<double>(setBytes) / rows, static_cast<double>(plainBytes) / rows,
              static_cast<double>(setBytes) / static_cast<double>(plainBytes));
  std::printf("memory per row after editing 1%% of rows: %.1f bytes (growth %.1f%%)\n",
              static_cast<double>(editedBytes) / rows,
              100.0 * (static_cast<double>(editedBytes) / static_cast<double>(setBytes) - 1.0));
}

}  // namespace

int main(int argc, char** argv) {
  // Our own flag first; the rest go to Google Benchmark.
  std::vector<char*> rest;
  for (int i = 0; i < argc; ++i) {
    if (std::strncmp(argv[i], "--rows=", 7) == 0) {
      g_rows = std::strtoull(argv[i] + 7, nullptr, 10);
      if (g_rows == 0) g_rows = 1;
    } else {
      rest.push_back(argv[i]);
    }
  }
  int restCount = static_cast<int>(rest.size());
  benchmark::Initialize(&restCount, rest.data());
  if (benchmark::ReportUnrecognizedArguments(restCount, rest.data())) return 1;

  std::printf("rows: %zu\n", g_rows);
  SharedData();  // build the data before any timing
  orvel::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  double filter = reporter.Ratio("BM_FilterOurs", "BM_FilterBaseline");
  double sort = reporter.Ratio("BM_SortOurs", "BM_SortBaseline");
  if (filter >= 0) std::printf("filter ratio: %.2f\n", filter);
  if (sort >= 0) std::printf("sort ratio: %.2f\n", sort);
  ReportMemory();
  benchmark::Shutdown();
  return 0;
}
