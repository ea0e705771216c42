#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "refhost/FillProgress.h"

namespace orvel {
namespace {

using namespace std::chrono_literals;

// A read of 250,000 rows taking 2.5 s, reported every 50,000 rows after the
// first 0.6 s, then a short read: only the long one is shown, on a terminal
// over one line.
TEST(FillProgressTest, ShowsAReadThatRunsOverASecond) {
  for (const auto& [terminal, shown] : std::vector<std::pair<bool, std::string>>{
           {true,
            "\rSkaitomas sąrašas: 100000 eil.\rSkaitomas sąrašas: 150000 eil."
            "\rSkaitomas sąrašas: 200000 eil.\rSkaitomas sąrašas: 250000 eil."
            "\rSkaitomas sąrašas: 250000 eil., 2,5 s\n"},
           {false,
            "Skaitomas sąrašas: 100000 eil.\nSkaitomas sąrašas: 200000 eil.\n"
            "Skaitomas sąrašas: 250000 eil., 2,5 s\n"}}) {
    std::chrono::steady_clock::time_point now{};
    std::ostringstream out;
    FillProgress progress(out, terminal, [&now] { return now; });
    progress(0, false);
    for (int64_t rows = 50000; rows <= 250000; rows += 50000) {
      now += 600ms;
      progress(rows, false);
    }
    now -= 500ms;
    progress(250000, true);
    progress(0, false);
    now += 900ms;
    progress(4096, false);
    progress(5000, true);
    EXPECT_EQ(out.str(), shown);
  }
}

}  // namespace
}  // namespace orvel
