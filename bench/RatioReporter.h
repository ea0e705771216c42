#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <set>
#include <string>
#include <vector>

namespace orvel {

// The console report, plus the CPU time of each benchmark, so that a program
// can print ours / baseline ratios measured in the same run. With
// repetitions, the fastest one counts: it is the one least disturbed by the
// rest of the machine. CPU time, because the machine is shared and waiting for
// a core is no part of either side's work.
//
// A benchmark whose work is done by another program measures that program's
// CPU time itself and hands it over as manual time (UseManualTime and
// SetIterationTime); naming it with CountManualTime makes that the time its
// ratios use.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void CountManualTime(const std::string& function_name) { manual_.insert(function_name); }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type == Run::RT_Iteration && run.iterations > 0) {
        const double time = manual_.count(run.run_name.function_name) != 0
                                ? run.real_accumulated_time
                                : run.cpu_accumulated_time;
        const double seconds = time / static_cast<double>(run.iterations);
        auto [it, fresh] = seconds_.emplace(run.run_name.function_name, seconds);
        if (!fresh && seconds < it->second) it->second = seconds;
      }
    }
    ConsoleReporter::ReportRuns(runs);
  }

  // ours / baseline by benchmark function name; -1 when either is missing.
  double Ratio(const std::string& ours, const std::string& baseline) const {
    auto a = seconds_.find(ours);
    auto b = seconds_.find(baseline);
    if (a == seconds_.end() || b == seconds_.end() || b->second <= 0) return -1;
    return a->second / b->second;
  }

 private:
  std::map<std::string, double> seconds_;
  std::set<std::string> manual_;
};

}  // namespace orvel
