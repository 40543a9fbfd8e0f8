# The README's commands. Each one first runs scripts/bootstrap, which installs whatever Debian
# packages are missing (as root) or says exactly what to install.
.PHONY: all setup build test test-native test-asan test-fuzz fuzz-long demo bench clean

SHELL := /bin/bash
.SHELLFLAGS := -o pipefail -c

all: build

setup:
	@scripts/bootstrap

build: setup
	cmake --preset default
	cmake --build --preset default

# Every suite through ctest, then the same suites under ASan + UBSan, then short fuzz runs.
test: build
	ctest --preset default | tee build/ctest.log
	$(MAKE) test-asan
	$(MAKE) test-fuzz
	@scripts/test-summary build/ctest.log build-asan/ctest.log build-fuzz/fuzz.log

test-asan: setup
	cmake --preset asan
	cmake --build --preset asan
	ctest --preset asan | tee build-asan/ctest.log

test-fuzz: setup
	cmake --preset fuzz
	cmake --build --preset fuzz
	scripts/run-fuzzers build-fuzz | tee build-fuzz/fuzz.log

# Long fuzzing, not part of test: each target for FUZZ_SECONDS (default an hour) or FUZZ_RUNS
# executions (default 10 million), whichever comes first; FUZZ_TARGETS="inflate vxp" picks some.
fuzz-long: setup
	cmake --preset fuzz
	cmake --build --preset fuzz
	FUZZ_SECONDS=$${FUZZ_SECONDS:-3600} FUZZ_RUNS=$${FUZZ_RUNS:-10000000} scripts/run-fuzzers build-fuzz | tee build-fuzz/fuzz-long.log

# The library and the command only, from their own build folder and bootstrap profile: no
# tests, benchmarks, Windows side, Wine, cross compiler or clang.
demo:
	@scripts/bootstrap demo
	cmake --preset demo
	cmake --build --preset demo
	@scripts/demo build-demo

bench: build
	@scripts/run-benchmarks build

clean:
	rm -rf build build-asan build-fuzz build-win32 build-demo
