# SPDX-FileCopyrightText: 2026 The SORAN developers
# SPDX-License-Identifier: GPL-3.0-or-later

BUILD := build/release

.DEFAULT_GOAL := build
.PHONY: demo test run bench format build package setup clean

# The main job on the embedded endpoint: the window where there is a display, else the command line.
demo: build
	@if [ -n "$$DISPLAY$$WAYLAND_DISPLAY" ]; then \
	  $(BUILD)/bin/soran --demo --home $(BUILD)/demo-home; \
	else \
	  $(BUILD)/bin/soran-cli --demo --home $(BUILD)/demo-home run "RJTT RJAA"; \
	fi

run: build
	@$(BUILD)/bin/soran

test: build
	ctest --test-dir $(BUILD) --output-on-failure --no-tests=error -j 2

bench: build
	cmake --build $(BUILD) --target soran-bench
	$(BUILD)/bench/soran-bench --benchmark_counters_tabular=true

build: setup $(BUILD)/build.ninja
	cmake --build $(BUILD)

# The Debian package and the archive, in $(BUILD)/packages.
package: build
	cd $(BUILD) && cpack

$(BUILD)/build.ninja:
	cmake --preset release

setup:
	@tools/setup

format: setup
	tools/format

clean:
	rm -rf build
