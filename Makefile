# Entry points for developers and CI. See README.md.
JOBS ?= $(shell nproc)
NATIVE := build/linux
ASAN := build/asan
WINDOWS := build/windows
CMAKE_FLAGS := -DCMAKE_BUILD_TYPE=RelWithDebInfo

.PHONY: all deps native asan windows test test-native test-asan test-windows test-automation demo bench format clean

all: native windows

# Installs what is missing, then checks that everything the build and tests call comes
# from a listed package.
deps:
	@scripts/install-deps.sh
	@scripts/check-deps.sh

native: deps
	@cmake -S . -B $(NATIVE) $(CMAKE_FLAGS) >/dev/null
	@cmake --build $(NATIVE) -j $(JOBS)

asan: deps
	@cmake -S . -B $(ASAN) -DCMAKE_BUILD_TYPE=Debug -DCORVID_SANITIZE=ON >/dev/null
	@cmake --build $(ASAN) -j $(JOBS)

windows: deps
	@cmake -S . -B $(WINDOWS) $(CMAKE_FLAGS) -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64-x86_64.cmake >/dev/null
	@cmake --build $(WINDOWS) -j $(JOBS)

test-native: native
	@echo "== native unit and end-to-end tests"
	@cd $(NATIVE) && ctest --output-on-failure
	@cat $(NATIVE)/tests/fault-matrix.txt

test-asan: asan
	@echo "== unit tests under AddressSanitizer + UndefinedBehaviorSanitizer"
	@cd $(ASAN) && ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 ctest --output-on-failure

test-windows: windows
	@echo "== cross-built unit tests under Wine"
	@scripts/wine-env.sh $(WINDOWS) ctest --test-dir $(WINDOWS) --output-on-failure

test-automation: windows native
	@echo "== automation tests: VBScript against the registered CorvidAPI.dll"
	@scripts/run-automation-tests.sh $(WINDOWS) $(NATIVE)/sim/corvid-sim

test: test-native test-asan test-windows test-automation

demo: native
	@$(NATIVE)/tools/corvid/corvid demo

bench: native windows
	@$(NATIVE)/bench/corvid-bench
	@scripts/bench-wine.sh $(WINDOWS) $(NATIVE)/sim/corvid-sim

format:
	@clang-format -i $$(git ls-files '*.cpp' '*.h')

clean:
	rm -rf build
