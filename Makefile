# The two commands of the README: `make test` and `make demo`.
BUILD ?= build
ASAN_BUILD ?= build-asan
JOBS ?= $(shell nproc)

PREFIX ?= /usr/local

.PHONY: all deps build build-asan test demo bench install clean

all: build

deps:
	@scripts/install-deps.sh

$(BUILD)/build.ninja:
	cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DMIRZKL_WERROR=ON

$(ASAN_BUILD)/build.ninja:
	cmake -S . -B $(ASAN_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DMIRZKL_SANITIZE=ON -DMIRZKL_WERROR=ON

build: deps $(BUILD)/build.ninja
	cmake --build $(BUILD) -j $(JOBS)

build-asan: deps $(ASAN_BUILD)/build.ninja
	cmake --build $(ASAN_BUILD) -j $(JOBS)

test: build build-asan
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)
	cd $(ASAN_BUILD) && ASAN_OPTIONS=detect_leaks=1 ctest --output-on-failure -j $(JOBS)

demo: build
	cd examples && ../$(BUILD)/mirzkl demo.zkl
	@echo "The picture is $(CURDIR)/examples/mirval.png"

install: build
	cmake --install $(BUILD) --prefix $(PREFIX)

bench: build
	bench/run.sh $(BUILD)

# The libFuzzer targets (clang), each run for SECONDS.
FUZZ_BUILD ?= build-fuzz
SECONDS ?= 60
.PHONY: fuzz
fuzz:
	fuzz/run.sh $(FUZZ_BUILD) $(SECONDS)

clean:
	rm -rf $(BUILD) $(ASAN_BUILD)
