#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <random>
#include <vector>

// What the two words benchmarks share: the amounts they turn into words and
// how they read their command line.
namespace orvel::words_bench {

// One amount: the integer part has 1 to 12 digits, evenly, so that short and
// long words weigh alike; cents are uniform. The same seed gives the same
// amounts in every run.
struct Amount {
  uint64_t whole = 0;
  uint64_t cents = 0;
};

inline Amount NextAmount(std::mt19937_64& gen) {
  const uint64_t r = gen();
  const int digits = 1 + static_cast<int>(r % 12);
  uint64_t low = 1;
  for (int d = 1; d < digits; ++d) low *= 10;
  return {digits == 1 ? (r >> 8) % 10 : low + (r >> 8) % (9 * low), (r >> 48) % 100};
}

constexpr uint64_t kSeed = 20240602;

// Takes our own flag --amounts=N off the command line and hands the rest to
// Google Benchmark after `defaults`, so that flags given on the command line
// come later and win. False (after a message) for a flag neither knows.
inline bool Initialize(int argc, char** argv, std::vector<char*> defaults, size_t& amounts) {
  std::vector<char*> rest{argv[0]};
  rest.insert(rest.end(), defaults.begin(), defaults.end());
  for (int i = 1; i < argc; ++i) {
    if (std::strncmp(argv[i], "--amounts=", 10) == 0) {
      amounts = std::strtoull(argv[i] + 10, nullptr, 10);
      if (amounts == 0) amounts = 1;
    } else {
      rest.push_back(argv[i]);
    }
  }
  int restCount = static_cast<int>(rest.size());
  benchmark::Initialize(&restCount, rest.data());
  return !benchmark::ReportUnrecognizedArguments(restCount, rest.data());
}

}  // namespace orvel::words_bench
