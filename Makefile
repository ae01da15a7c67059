# The two commands of the README: `make run` and `make test`; `make bench` for the figures.
BUILD ?= build
JOBS ?= 2
CMAKE_FLAGS ?= -DCMAKE_BUILD_TYPE=RelWithDebInfo

.PHONY: deps configure build run test bench fresh-check format clean

deps:
	@tools/install-deps

configure: deps
	@cmake -S . -B $(BUILD) $(CMAKE_FLAGS) >/dev/null

build: configure
	@cmake --build $(BUILD) -j$(JOBS)

run: build
	@tools/run-demo $(BUILD)

test: build
	@cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j$(JOBS)

bench: build
	@cmake --build $(BUILD) -j$(JOBS) --target benchmarks
	@tools/run-benchmarks $(BUILD)

# Installs, builds and runs the committed tree in a minimal Debian root: proves the set-up is complete.
fresh-check:
	@tools/fresh-check

format:
	@git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	@rm -rf $(BUILD)
