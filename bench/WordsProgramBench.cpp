// orvel-words as a filter over a million amounts (standard input to standard
// output, one a line) against the JavaScript library n2words 4.0.0 turning
// the same amounts into Lithuanian words under Node.js, both whole programs
// timed by their CPU time in the same run. The setup installs n2words with
// npm into a temporary folder; without node or npm, or when the install
// fails, the comparison is skipped with a message and orvel-words is timed
// alone. The target is n2words / orvel-words of 10 or more.
//
// n2words 4.0.0 exports its Lithuanian words as toCardinal of
// "n2words/lt-LT"; the runner calls that per amount (or toWords(n, {lang:
// 'lt'}) where a version of the package still has it).
//
//   orvel_bench_words_program [--amounts=N] [benchmark flags]

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "ChildProcess.h"
#include "RatioReporter.h"
#include "WordsAmounts.h"

namespace {

namespace fs = std::filesystem;

size_t g_amounts = 1000000;

constexpr const char* kRunner = R"(// Every line of standard input through n2words, the words one a line.
import { readFileSync, writeSync } from 'node:fs'
let words
try {
  const lt = await import('n2words/lt-LT')
  words = n => lt.toCardinal(n)
} catch {
  const all = await import('n2words')
  words = n => all.toWords(n, { lang: 'lt' })
}
const lines = readFileSync(0, 'utf8').split('\n')
if (lines[lines.length - 1] === '') lines.pop()
let out = []
for (const line of lines) {
  out.push(words(Number(line)))
  if (out.length === 65536) { writeSync(1, out.join('\n') + '\n'); out = [] }
}
if (out.length > 0) writeSync(1, out.join('\n') + '\n')
)";

// The folder with the amounts, and n2words where it could be installed.
struct Setup {
  Setup() {
    char name[] = "/tmp/orvel-words-bench-XXXXXX";
    folder = mkdtemp(name);
    amounts = folder + "/amounts.txt";
    WriteAmounts();
    InstallN2words();
  }
  ~Setup() {
    std::error_code ignored;
    fs::remove_all(folder, ignored);
  }

  // The amounts of orvel_bench_words, written with two decimals; one in
  // eight is negative.
  void WriteAmounts() const {
    std::mt19937_64 gen(orvel::words_bench::kSeed);
    std::string text;
    for (size_t i = 0; i < g_amounts; ++i) {
      const orvel::words_bench::Amount a = orvel::words_bench::NextAmount(gen);
      char line[40];
      std::snprintf(line, sizeof line, "%s%llu.%02llu\n", i % 8 == 3 ? "-" : "",
                    static_cast<unsigned long long>(a.whole),
                    static_cast<unsigned long long>(a.cents));
      text += line;
    }
    std::ofstream(amounts, std::ios::binary) << text;
  }

  void InstallN2words() {
    if (!orvel::OnPath("node") || !orvel::OnPath("npm")) {
      skipped = "node or npm is not installed: n2words is not compared";
      return;
    }
    const orvel::ChildRun install = orvel::RunChild(
        {"npm", "install", "--prefix", folder, "--no-save", "--no-audit", "--no-fund",
         "--loglevel=error", "n2words@4.0.0"},
        "/dev/null", "/dev/null");
    if (install.status != 0) {
      skipped = "npm could not install n2words@4.0.0: n2words is not compared";
      return;
    }
    runner = folder + "/words.mjs";
    std::ofstream(runner) << kRunner;
  }

  std::string folder;
  std::string amounts;
  std::string runner;   // empty when n2words is not there
  std::string skipped;  // why, then
};

Setup* g_setup = nullptr;

// One whole run of a program per iteration; its CPU time is the iteration's.
void TimeProgram(benchmark::State& state, const std::vector<std::string>& argv) {
  for (auto _ : state) {
    const orvel::ChildRun run = orvel::RunChild(argv, g_setup->amounts, "/dev/null");
    if (run.status != 0) {
      state.SkipWithError((argv[0] + " failed").c_str());
      return;
    }
    state.SetIterationTime(run.cpuSeconds);
    state.counters["wall_ms"] = run.wallSeconds * 1000;
  }
}

void BM_OrvelWords(benchmark::State& state) { TimeProgram(state, {ORVEL_WORDS_PATH}); }

void BM_N2words(benchmark::State& state) {
  if (g_setup->runner.empty()) {
    state.SkipWithError(g_setup->skipped.c_str());
    return;
  }
  TimeProgram(state, {"node", g_setup->runner});
}

BENCHMARK(BM_OrvelWords)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);
BENCHMARK(BM_N2words)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1);

// Both programs answer every amount: as many lines out as in.
bool Answered(const std::vector<std::string>& argv) {
  const std::string out = g_setup->folder + "/answer.txt";
  if (orvel::RunChild(argv, g_setup->amounts, out).status != 0) return false;
  std::ifstream in(out);
  size_t lines = 0;
  for (std::string line; std::getline(in, line);) ++lines;
  return lines == g_amounts;
}

}  // namespace

int main(int argc, char** argv) {
  // As in orvel_bench_words: three repetitions each, interleaved, so that a
  // change of load falls on both sides of the ratio.
  static char repetitions[] = "--benchmark_repetitions=3";
  static char interleaving[] = "--benchmark_enable_random_interleaving=true";
  if (!orvel::words_bench::Initialize(argc, argv, {repetitions, interleaving}, g_amounts)) {
    return 1;
  }

  Setup setup;
  g_setup = &setup;
  std::printf("amounts: %zu\n", g_amounts);
  if (!setup.skipped.empty()) std::printf("%s\n", setup.skipped.c_str());
  if (!Answered({ORVEL_WORDS_PATH})) {
    std::fprintf(stderr, "orvel-words did not answer every amount\n");
    return 1;
  }
  if (!setup.runner.empty() && !Answered({"node", setup.runner})) {
    std::fprintf(stderr, "n2words did not answer every amount\n");
    return 1;
  }

  orvel::RatioReporter reporter;
  reporter.CountManualTime("BM_OrvelWords");
  reporter.CountManualTime("BM_N2words");
  benchmark::RunSpecifiedBenchmarks(&reporter);
  const double ratio = reporter.Ratio("BM_N2words", "BM_OrvelWords");
  if (ratio >= 0) {
    std::printf("n2words / orvel-words: %.1f (target >= 10)\n", ratio);
  } else if (!setup.skipped.empty()) {
    std::printf("n2words / orvel-words: not measured (%s)\n", setup.skipped.c_str());
  }
  benchmark::Shutdown();
  return 0;
}
