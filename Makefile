# The one front door. Every target installs what it needs first; that does nothing when all is there.

PRESET ?= release
PROGRAM = build/release/bin/varmodel
PREFIX ?= /usr/local
export DESTDIR

.PHONY: demo test build setup install uninstall package package-check bench accuracy determinism windows lint sanitize clean

build: setup
	@cmake --preset $(PRESET) -Wno-dev >build-$(PRESET).log 2>&1 || { cat build-$(PRESET).log; exit 1; }
	@rm -f build-$(PRESET).log
	@cmake --build build/$(PRESET)

demo: build
	$(PROGRAM) run examples/us_macro.toml --html examples/us_macro.html

test: build
	scripts/check_includes.py
	ctest --test-dir build/$(PRESET) --output-on-failure --parallel 2
	@scripts/setup.sh browser
	for test in report chart; do \
	  VARMODEL_PROGRAM=build/$(PRESET)/bin/varmodel VARMODEL_REPORT_PAGE=build/$(PRESET)/tests/report_page \
	    node tests/browser/$${test}_test.mjs || exit 1; done

setup:
	@scripts/setup.sh

install: build
	@scripts/install.sh install "$(PREFIX)" build/$(PRESET)

uninstall:
	@scripts/install.sh uninstall "$(PREFIX)"

# An archive and a Debian package in build/release/packages/.
package: build
	@cmake --build build/$(PRESET) --target package

# Installs, runs and removes both in a Debian that has nothing else.
package-check: package
	@scripts/setup.sh package
	scripts/package_check.sh build/$(PRESET)/packages

# The program and its procedures for 64-bit Windows, compared under Wine with those of Linux.
windows: build
	@scripts/setup.sh windows
	$(MAKE) build PRESET=windows
	scripts/windows_check.sh build/windows build/$(PRESET)

sanitize:
	$(MAKE) test PRESET=sanitize

lint:
	@scripts/setup.sh lint
	scripts/lint.sh

bench:
	@scripts/setup.sh bench
	$(MAKE) build PRESET=bench
	bench/run.sh

# The least digits of the engine over data that are hard on least squares.
accuracy:
	@scripts/setup.sh bench
	$(MAKE) build PRESET=bench
	build/bench/bin/accuracy 2>/dev/null

# One SHA-256 of the examples' documents over compilers, optimisation levels and kernels.
determinism: build
	@scripts/setup.sh determinism
	bench/determinism.sh

clean:
	rm -rf build
