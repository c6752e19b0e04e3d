# Entry points for developers and CI. See README.md.
JOBS ?= $(shell nproc)
NATIVE := build/linux
ASAN := build/asan
WINDOWS := build/windows
WINDOWS32 := build/windows32
FUZZ := build/fuzz
DIST := build/dist
CMAKE_FLAGS := -DCMAKE_BUILD_TYPE=RelWithDebInfo

.PHONY: all deps native asan windows windows32 test test-native test-asan test-windows \
	test-automation test-service-windows test-window test-windows32 test-installer test-fuzz demo bench fuzz soak mutants format clean \
	package test-package

all: native windows windows32

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

# The DLL for 32-bit hosts (VB6, 32-bit Office).
windows32: deps
	@cmake -S . -B $(WINDOWS32) $(CMAKE_FLAGS) -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64-i686.cmake >/dev/null
	@cmake --build $(WINDOWS32) -j $(JOBS)

test-native: native
	@echo "== native unit and end-to-end tests"
	@cd $(NATIVE) && ctest --output-on-failure
	@cat $(NATIVE)/tests/fault-matrix.txt
	@cat $(NATIVE)/tests/chaos-matrix.txt

test-asan: asan
	@echo "== unit tests under AddressSanitizer + UndefinedBehaviorSanitizer"
	@cd $(ASAN) && ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 ctest --output-on-failure

test-windows: windows native
	@echo "== cross-built unit tests under Wine"
	@CORVID_SIM=$(abspath $(NATIVE)/sim/corvid-sim) \
		scripts/wine-env.sh $(WINDOWS) ctest --test-dir $(WINDOWS) --output-on-failure

# `corvid.exe serve` under Wine on COM5 of the prefix, linked to the simulator: a sale
# posted twice with one key prints one invoice.
test-service-windows: windows native
	@echo "== print service under Wine: a sale on COM5"
	@scripts/run-service-wine-test.sh $(WINDOWS) $(NATIVE)/sim/corvid-sim

# The preview window under Xvfb, driven from outside, with screenshots in
# build/windows/screenshots; and a VBScript host receiving a click.
test-window: windows
	@echo "== preview window under Xvfb"
	@scripts/run-window-tests.sh $(WINDOWS)

test-automation: windows native
	@echo "== automation tests: VBScript against the registered CorvidAPI.dll"
	@scripts/run-automation-tests.sh $(WINDOWS) $(NATIVE)/sim/corvid-sim

# The 32-bit DLL: checked as a file always; its unit and automation tests run under the
# 32-bit Wine of an i386 Debian root (build/i386-root, made once), or one line says why
# that root cannot be made here.
test-windows32: windows32 windows native
	@echo "== 32-bit CorvidAPI.dll"
	@scripts/i386-root.sh run scripts/check-dll32.sh $(WINDOWS32) $(NATIVE)/sim/corvid-sim $(WINDOWS)

# The Windows release files from the builds above, then the installer under Wine in a fresh
# prefix: silent install, the installed DLL on the simulated printer, the service, a clean
# uninstall, an upgrade that keeps the data folder.
test-installer: package
	@echo "== Windows installer under Wine"
	@scripts/run-installer-test.sh $(DIST) $(RELEASE_VERSION) $(NATIVE)/sim/corvid-sim

# Every fuzz program for a few seconds from its corpus (make fuzz: 10^7 inputs each).
test-fuzz: deps
	@echo "== fuzz programs, a few seconds each"
	@FUZZ_SMOKE_SECONDS=$${FUZZ_SMOKE_SECONDS:-5} scripts/fuzz.sh smoke $(FUZZ)

test: test-native test-asan test-windows test-automation test-service-windows test-window test-windows32 test-installer test-fuzz \
	test-package

# The release files in build/dist from the builds above (nothing is compiled again): the
# .deb, the CMake package, the Windows installer and zip, debug files under debug/, and
# SHA256SUMS of them all.
RELEASE_VERSION = $(shell sed -n 's/^CORVID_VERSION:STRING=//p' $(NATIVE)/CMakeCache.txt)
package: native windows windows32
	@rm -rf $(DIST)
	@scripts/package-debian.sh $(NATIVE) $(DIST) $(RELEASE_VERSION)
	@scripts/package-windows.sh $(WINDOWS) $(WINDOWS32) $(DIST) $(RELEASE_VERSION)
	@cd $(DIST) && find . -type f ! -name SHA256SUMS -printf '%P\n' | LC_ALL=C sort | \
		xargs sha256sum >SHA256SUMS
	@echo "package: $(DIST)/SHA256SUMS lists $$(wc -l <$(DIST)/SHA256SUMS) files"

# The .deb in a throwaway root, lintian, the unit, the installed programs, and a CMake
# project of a user's built against the installed package.
test-package: package
	@scripts/test-package.sh $(DIST) build/package-test $(RELEASE_VERSION)

fuzz: deps
	@FUZZ_MAX_SECONDS=$${FUZZ_MAX_SECONDS:-0} scripts/fuzz.sh full $(FUZZ)

# 10 000 create/use/release cycles of every class, memory and descriptors before and after.
soak: windows windows32 native
	@scripts/soak.sh $(WINDOWS) $(NATIVE)/sim/corvid-sim
	@scripts/i386-root.sh run scripts/soak.sh $(WINDOWS32) $(NATIVE)/sim/corvid-sim

# The mutation sample (tests/mutants/*.list): each one-line bug built and tested in turn.
mutants: native windows
	@scripts/mutants.sh

# Ends with the print service: the sample sale posted twice with one key, one receipt.
demo: native
	@$(NATIVE)/tools/corvid/corvid demo
	@scripts/demo-service.sh $(NATIVE)

bench: native windows
	@$(NATIVE)/bench/corvid-bench
	@$(NATIVE)/bench/corvid-service-bench
	@scripts/bench-wine.sh $(WINDOWS) $(NATIVE)/sim/corvid-sim

format:
	@clang-format -i $$(git ls-files '*.cpp' '*.h')

clean:
	rm -rf build
