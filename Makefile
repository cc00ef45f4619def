# The one front door. Every target installs what it needs first; that does nothing when all is there.

PRESET ?= release
PROGRAM = build/release/bin/varmodel

.PHONY: demo test build setup bench lint sanitize clean

build: setup
	@cmake --preset $(PRESET) -Wno-dev >build-$(PRESET).log 2>&1 || { cat build-$(PRESET).log; exit 1; }
	@rm -f build-$(PRESET).log
	@cmake --build build/$(PRESET)

demo: build
	$(PROGRAM) run examples/us_macro.toml

test: build
	scripts/check_includes.py
	ctest --test-dir build/$(PRESET) --output-on-failure --parallel 2

setup:
	@scripts/setup.sh

sanitize:
	$(MAKE) test PRESET=sanitize

lint:
	@scripts/setup.sh lint
	scripts/lint.sh

bench:
	@scripts/setup.sh bench
	$(MAKE) build PRESET=bench
	bench/run.sh

clean:
	rm -rf build
