// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/budget.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <map>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace soran::bench {

namespace {

/// How much more than in line with its size a cost may grow: caches and noise, but no square.
constexpr double growthAllowed = 1.6;

struct Row {
  std::string name;
  std::string family;
  std::vector<double> times; ///< milliseconds
  std::map<std::string, double> counters;
  std::string error;

  double best() const { return *std::min_element(times.begin(), times.end()); }
  double median() const {
    std::vector<double> sorted = times;
    std::sort(sorted.begin(), sorted.end());
    return sorted[sorted.size() / 2];
  }
};

std::string timeText(double milliseconds) {
  struct Unit {
    double size;
    const char* name;
  };
  constexpr Unit units[] = {{1000, "s"}, {1, "ms"}, {1e-3, "µs"}, {0, "ns"}};
  const Unit* unit =
      std::find_if(std::begin(units), std::end(units), [=](const Unit& u) { return milliseconds >= u.size; });
  char text[64];
  std::snprintf(text, sizeof text, "%.3g %s", milliseconds / (unit->size > 0 ? unit->size : 1e-6),
                unit->name);
  return text;
}

/// Newer releases of the library name it otherwise.
template <class Run>
std::optional<std::string> failureOf(const Run& run) {
  if constexpr (requires { run.error_occurred; })
    return run.error_occurred ? std::optional(run.error_message) : std::nullopt;
  else
    return run.skipped ? std::optional(run.skip_message) : std::nullopt;
}

class Table final : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type == Run::RT_Aggregate || run.report_big_o || run.report_rms)
        continue;
      Row& row = rowOf(run);
      if (const std::optional<std::string> failure = failureOf(run)) {
        row.error = *failure;
        continue;
      }
      const bool manual = run.run_name.time_type == "manual_time";
      const double seconds = (manual ? run.real_accumulated_time : run.cpu_accumulated_time) /
                             static_cast<double>(run.iterations);
      row.times.push_back(seconds * 1e3);
      for (const auto& [name, counter] : run.counters)
        row.counters[name] = counter.value;
    }
    std::fputc('.', stderr);
  }

  void Finalize() override {
    const std::time_t now = std::time(nullptr);
    char day[32] = "";
    std::strftime(day, sizeof day, "%Y-%m-%d %H:%M", std::localtime(&now));
    double load = 0;
    if (getloadavg(&load, 1) != 1)
      load = 0;
    std::printf("%s, %u processors, load %.1f\n", day, std::thread::hardware_concurrency(), load);
    std::printf("\n| Benchmark | Best | Median | A second | Budget | |\n|---|--:|--:|--:|--:|---|\n");
    for (const Row& row : rows_)
      printRow(row);
    printGrowth();
    std::printf("\n%s\n", missed_ == 0 ? "All budgets are kept." : "Missed.");
  }

  int missed() const { return missed_; }

 private:
  Row& rowOf(const Run& run) {
    const std::string name =
        run.run_name.function_name + (run.run_name.args.empty() ? "" : "/") + run.run_name.args;
    const auto known = std::find_if(rows_.begin(), rows_.end(), [&](const Row& r) { return r.name == name; });
    if (known != rows_.end())
      return *known;
    return rows_.emplace_back(Row{name, run.run_name.function_name, {}, {}, {}});
  }

  const char* verdict(bool kept) {
    missed_ += kept ? 0 : 1;
    return kept ? "kept" : "MISSED";
  }

  void printRow(const Row& row) {
    if (row.times.empty()) {
      std::printf("| %s | | | | | %s: %s |\n", row.name.c_str(), verdict(false), row.error.c_str());
      return;
    }
    const auto budget = row.counters.find("budget_ms");
    const bool held = budget != row.counters.end();
    std::printf("| %s | %s | %s | %.4g | %s | %s |\n", row.name.c_str(), timeText(row.best()).c_str(),
                timeText(row.median()).c_str(), 1e3 / row.best(),
                held ? timeText(budget->second).c_str() : "",
                held ? verdict(row.best() <= budget->second) : "");
    if (const auto memory = row.counters.find("memory_mb"); memory != row.counters.end()) {
      const double limit = row.counters.at("memory_budget_mb");
      std::printf("| %s, memory | %.1f MB | | | %.0f MB | %s |\n", row.name.c_str(), memory->second, limit,
                  verdict(memory->second <= limit));
    }
    // Shares and counts that a benchmark tells besides.
    for (const auto& [name, value] : row.counters) {
      if (name != "budget_ms" && name != "size" && !name.starts_with("memory_") &&
          !name.ends_with("_per_second"))
        std::printf("| %s, %s | %.4g | | | | |\n", row.name.c_str(), name.c_str(), value);
    }
  }

  void printGrowth() {
    std::map<std::string, std::vector<const Row*>> families;
    for (const Row& row : rows_) {
      if (!row.times.empty() && row.counters.contains("size"))
        families[row.family].push_back(&row);
    }
    if (families.empty())
      return;
    std::printf("\n| Growth | Text | Time | |\n|---|--:|--:|---|\n");
    for (const auto& [family, rows] : families) {
      for (size_t i = 1; i < rows.size(); ++i) {
        const double text = rows[i]->counters.at("size") / rows[i - 1]->counters.at("size");
        const double time = rows[i]->best() / rows[i - 1]->best();
        std::printf("| %s | x %.3g | x %.3g | %s |\n", rows[i]->name.c_str(), text, time,
                    verdict(time <= text * growthAllowed));
      }
    }
  }

  std::vector<Row> rows_;
  int missed_ = 0;
};

} // namespace

int runBenchmarks(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv))
    return 2;
  Table table;
  benchmark::RunSpecifiedBenchmarks(&table);
  return table.missed() == 0 ? 0 : 1;
}

} // namespace soran::bench
