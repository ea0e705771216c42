// AmountToWords on a million varied amounts, against baselines that only
// write the same amounts with two decimals into strings, run in the same
// process on the same generated data:
//   - BM_FormatPlain:   std::to_chars, fixed, two decimals (what a hand-written
//                       program would do; rounds the binary value);
//   - BM_FormatDecimal: DecimalText(x, 2), the money rounding on the decimal
//                       value a person reads, which AmountToWords itself runs
//                       first.
// The program prints the ratios (words / baseline, by CPU time) after Google
// Benchmark's own table, each from the fastest of the repetitions; the target
// is 4 or less against the plain baseline.
//
//   orvel_bench_words [--amounts=N] [benchmark flags]

#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdio>
#include <cstring>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "RatioReporter.h"
#include "WordsAmounts.h"
#include "common/AmountInWords.h"
#include "host/Convert.h"

namespace {

size_t g_amounts = 1000000;

// One amount in eight is negative and one in sixteen sits on a half cent, so
// that rounding carries now and then.
const std::vector<double>& Amounts() {
  static const std::vector<double> amounts = [] {
    std::mt19937_64 gen(orvel::words_bench::kSeed);
    std::vector<double> out;
    out.reserve(g_amounts);
    for (size_t i = 0; i < g_amounts; ++i) {
      const orvel::words_bench::Amount a = orvel::words_bench::NextAmount(gen);
      double amount = static_cast<double>(a.whole * 100 + a.cents) / 100.0;
      if (i % 16 == 5) amount += 0.005;
      if (i % 8 == 3) amount = -amount;
      out.push_back(amount);
    }
    return out;
  }();
  return amounts;
}

void BM_FormatPlain(benchmark::State& state) {
  const auto& amounts = Amounts();
  for (auto _ : state) {
    size_t bytes = 0;
    for (double x : amounts) {
      char buf[64];
      const auto r = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::fixed, 2);
      std::string text(buf, r.ptr);
      bytes += text.size();
      benchmark::DoNotOptimize(text.data());
    }
    state.counters["bytes/amount"] =
        static_cast<double>(bytes) / static_cast<double>(amounts.size());
  }
}

void BM_FormatDecimal(benchmark::State& state) {
  const auto& amounts = Amounts();
  for (auto _ : state) {
    size_t bytes = 0;
    for (double x : amounts) {
      std::string text = orvel::DecimalText(x, 2);
      bytes += text.size();
      benchmark::DoNotOptimize(text.data());
    }
    state.counters["bytes/amount"] =
        static_cast<double>(bytes) / static_cast<double>(amounts.size());
  }
}

void BM_Words(benchmark::State& state) {
  const auto& amounts = Amounts();
  for (auto _ : state) {
    size_t bytes = 0;
    size_t failures = 0;
    for (double x : amounts) {
      orvel::AmountInWords words = orvel::AmountToWords(x, false, true);
      bytes += words.words.size();
      failures += words.ok() ? 0 : 1;
      benchmark::DoNotOptimize(words.words.data());
    }
    if (failures != 0) state.SkipWithError("an amount had no words");
    state.counters["bytes/amount"] =
        static_cast<double>(bytes) / static_cast<double>(amounts.size());
  }
}

BENCHMARK(BM_FormatPlain)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FormatDecimal)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Words)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  // By default each benchmark runs five times, the three interleaved at
  // random, so that a change of load on the shared machine falls on both
  // sides of a ratio.
  static char repetitions[] = "--benchmark_repetitions=5";
  static char interleaving[] = "--benchmark_enable_random_interleaving=true";
  static char onlyAggregates[] = "--benchmark_report_aggregates_only=false";
  if (!orvel::words_bench::Initialize(argc, argv, {repetitions, interleaving, onlyAggregates},
                                      g_amounts)) {
    return 1;
  }

  std::printf("amounts: %zu\n", g_amounts);
  Amounts();  // build the data before any timing
  orvel::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  const double plain = reporter.Ratio("BM_Words", "BM_FormatPlain");
  const double decimal = reporter.Ratio("BM_Words", "BM_FormatDecimal");
  if (plain >= 0) std::printf("words / to_chars ratio: %.2f\n", plain);
  if (decimal >= 0) std::printf("words / DecimalText ratio: %.2f\n", decimal);
  benchmark::Shutdown();
  return 0;
}
