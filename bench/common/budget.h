// SPDX-FileCopyrightText: 2026 The SORAN developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <benchmark/benchmark.h>

/// Benchmarks that are held to a budget. Each says so inside its function; the table tells which missed it.
namespace soran::bench {

/// Holds the benchmark to so many milliseconds for one iteration.
inline void holdTo(benchmark::State& state, double milliseconds) {
  state.counters["budget_ms"] = milliseconds;
}

/// Tells a process's memory in MB (1024 kB) and holds it to a limit.
inline void holdMemory(benchmark::State& state, double megabytes, double limit) {
  state.counters["memory_mb"] = megabytes;
  state.counters["memory_budget_mb"] = limit;
}

/// The benchmark runs over `size` units here, and its cost has to grow in line with the size: those of one
/// name are compared with each other.
inline void growsInLine(benchmark::State& state, double size) {
  state.counters["size"] = size;
}

/// Runs the benchmarks that the arguments ask for and prints them as a Markdown table: the least and the
/// median of the repetitions, and the budgets. Processor time counts, where a benchmark measures by itself
/// that time. 1 where a budget is missed, a cost grows faster than its text, or a benchmark fails.
int runBenchmarks(int argc, char** argv);

} // namespace soran::bench
