# The README's commands. Each one first runs scripts/bootstrap, which installs whatever Debian
# packages are missing (as root) or says exactly what to install.
.PHONY: all setup build test test-native test-asan test-fuzz demo bench clean

all: build

setup:
	@scripts/bootstrap

build: setup
	cmake --preset default
	cmake --build --preset default

# Every suite through ctest, then the same suites under ASan + UBSan, then short fuzz runs.
test: build
	ctest --preset default
	$(MAKE) test-asan
	$(MAKE) test-fuzz

test-asan: setup
	cmake --preset asan
	cmake --build --preset asan
	ctest --preset asan

test-fuzz: setup
	cmake --preset fuzz
	cmake --build --preset fuzz
	scripts/run-fuzzers build-fuzz

demo: build
	@scripts/demo build

bench: build
	@scripts/run-benchmarks build

clean:
	rm -rf build build-asan build-fuzz
