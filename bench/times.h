// Times by Google Benchmark.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace zentaline::bench {

// Shows the runs as usual and keeps their times.
class Times : public benchmark::ConsoleReporter {
 public:
  // Runs all benchmarks of the program.
  Times(int argc, char** argv) : benchmark::ConsoleReporter(OO_None) {
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks(this);
  }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (!run.error_occurred) times_[run.benchmark_name()] = run.GetAdjustedCPUTime();
    }
    benchmark::ConsoleReporter::ReportRuns(runs);
  }

  // Processor time of one round of a benchmark in its unit, nanoseconds if it has set none; 0 when it did not run.
  double operator[](const std::string& name) const {
    const auto found = times_.find(name);
    return found == times_.end() ? 0 : found->second;
  }

 private:
  std::map<std::string, double> times_;
};

}  // namespace zentaline::bench
