#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarnlog::bench {

/// A bound on a measured number.
struct Bound {
  double value;
  bool upper;
  bool holds(double measured) const { return upper ? measured <= value : measured >= value; }
};
inline Bound atMost(double value) { return {value, true}; }
inline Bound atLeast(double value) { return {value, false}; }

/// What the benchmarks of a program are to show. `run` runs all benchmarks of the program, several times and
/// in random order so that what disturbs the machine disturbs both sides of a pair, and then prints one line
/// for each goal from the medians of that run:
///
///   GOAL <name> <measured> <bound> ok|missed
///
///   BENCHMARK(ours);
///   BENCHMARK(floor);
///   int main(int argc, char** argv) {
///     Goals goals;
///     goals.ratio("row_time", "ours", "floor", atMost(1.5));
///     return goals.run(argc, argv);
///   }
class Goals {
 public:
  /// Processor time of one benchmark divided by that of another; with a counter, that user counter instead.
  void ratio(std::string name, std::string dividend, std::string divisor, Bound bound,
             std::string counter = {}) {
    goals_.push_back({std::move(name), std::move(dividend), std::move(divisor), bound, std::move(counter)});
  }
  /// Processor time of one benchmark in nanoseconds, or its user counter.
  void absolute(std::string name, std::string benchmark, Bound bound, std::string counter = {}) {
    ratio(std::move(name), std::move(benchmark), {}, bound, std::move(counter));
  }

  /// 0 when every goal is met; goals whose benchmarks were filtered out are left out.
  int run(int argc, char** argv) {
    std::vector<std::string> defaults = {argv[0], "--benchmark_repetitions=9", "--benchmark_min_time=0.05",
                                         "--benchmark_enable_random_interleaving=true",
                                         "--benchmark_report_aggregates_only=true"};
    std::vector<char*> arguments;
    for (std::string& text : defaults) arguments.push_back(text.data());
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;
    Medians medians;
    benchmark::RunSpecifiedBenchmarks(&medians);
    bool allMet = true;
    for (const Goal& goal : goals_) allMet &= report(goal, medians);
    return allMet ? 0 : 1;
  }

 private:
  struct Goal {
    std::string name;
    std::string dividend;
    std::string divisor;  ///< empty: the number itself
    Bound bound;
    std::string counter;  ///< empty: the time
  };

  /// Shows the runs as usual and keeps their medians.
  class Medians : public benchmark::ConsoleReporter {
   public:
    Medians() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override {
      for (const Run& run : runs) {
        if (run.run_type != Run::RT_Aggregate || run.aggregate_name != "median") continue;
        auto& values = values_[run.run_name.str()];
        values[""] = run.GetAdjustedCPUTime() * 1e9 / benchmark::GetTimeUnitMultiplier(run.time_unit);
        for (const auto& [name, counter] : run.counters) values[name] = counter.value;
      }
      ConsoleReporter::ReportRuns(runs);
    }

    std::optional<double> of(const std::string& benchmark, const std::string& counter) const {
      const auto found = values_.find(benchmark);
      if (found == values_.end()) return std::nullopt;
      const auto value = found->second.find(counter);
      return value == found->second.end() ? std::nullopt : std::optional(value->second);
    }

   private:
    std::map<std::string, std::map<std::string, double>> values_;
  };

  static bool report(const Goal& goal, const Medians& medians) {
    const auto dividend = medians.of(goal.dividend, goal.counter);
    const auto divisor = goal.divisor.empty() ? 1.0 : medians.of(goal.divisor, goal.counter);
    if (!dividend || !divisor) return true;
    const double measured = *dividend / *divisor;
    const bool met = goal.bound.holds(measured);
    std::printf("GOAL %s %.4g %s%.4g %s\n", goal.name.c_str(), measured,
                goal.bound.upper ? "<=" : ">=", goal.bound.value, met ? "ok" : "missed");
    return met;
  }

  std::vector<Goal> goals_;
};

}  // namespace tarnlog::bench
