# SPDX-FileCopyrightText: 2026 The SORAN developers
# SPDX-License-Identifier: GPL-3.0-or-later

BUILD := build/release

.DEFAULT_GOAL := build
.PHONY: demo test run bench bench-peers load check-all format build programs tests package setup clean

# The main job on the embedded endpoint: the window where there is a display, else the command line.
demo: programs
	@if [ -n "$$DISPLAY$$WAYLAND_DISPLAY" ]; then \
	  $(BUILD)/bin/soran --demo --home $(BUILD)/demo-home; \
	else \
	  $(BUILD)/bin/soran-cli --demo --home $(BUILD)/demo-home run "RJTT RJAA"; \
	fi

run: programs
	@$(BUILD)/bin/soran

test: tests
	ctest --test-dir $(BUILD) --output-on-failure --no-tests=error -j 2

# The speed of the core, of soran-cli and of the window, held to their budgets.
BENCH := --benchmark_repetitions=3 --benchmark_min_time=0.2
bench:
	@tools/setup bench
	@$(call configure,BENCH)
	cmake --build $(BUILD) --target soran-bench soran-desktop-bench
	@status=0; \
	$(BUILD)/bench/soran-bench $(BENCH) || status=1; \
	xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" $(BUILD)/bench/soran-desktop-bench $(BENCH) || status=1; \
	exit $$status

# soran-cli beside public tools, which are installed for it.
bench-peers: programs
	bench/peers/setup $(BUILD)/peers
	bench/peers/run $(BUILD)

# Large lists, large texts, DAYS of watching, many jobs.
DAYS := 7
load:
	@tools/setup bench
	@$(call configure,BENCH)
	cmake --build $(BUILD) --target soran-load
	$(BUILD)/bench/soran-load $(DAYS)

# Every proof there is, one after the other, with a verdict on each.
check-all:
	tools/check-all

# The programs, and whatever else is configured.
build: setup $(BUILD)/build.ninja
	cmake --build $(BUILD)

programs: setup $(BUILD)/build.ninja
	cmake --build $(BUILD) --target soran-programs

tests:
	@tools/setup test
	@$(call configure,TESTS)
	cmake --build $(BUILD)

# The Debian package and the archive, in $(BUILD)/packages.
package: programs
	@tools/setup package
	cd $(BUILD) && cpack

# Tests and benchmarks need packages of their own, so each is configured when it is asked for; then it stays, and no
# target undoes what another one did.
$(BUILD)/build.ninja:
	cmake --preset release -DSORAN_TESTS=OFF -DSORAN_BENCH=OFF

configure = { test -f $(BUILD)/build.ninja || \
    cmake --preset release -DSORAN_TESTS=OFF -DSORAN_BENCH=OFF -DSORAN_$(1)=ON; } && \
  { grep -q '^SORAN_$(1):BOOL=ON' $(BUILD)/CMakeCache.txt || cmake -DSORAN_$(1)=ON $(BUILD); }

setup:
	@tools/setup build

format:
	tools/format

clean:
	rm -rf build
