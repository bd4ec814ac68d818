# Front door for newcomers: `make run` and `make test`. CMake does the real work.
BUILD      ?= build
JOBS       ?= 2
CMAKE_ARGS ?=

DEPS       = cmake make g++ libgtest-dev libgmock-dev qt6-base-dev fonts-dejavu-core xvfb openbox xdotool
DEPS      += desktop-file-utils appstream libhunspell-dev hunspell-en-us pkg-config
DEPS      += poppler-utils
BENCH_DEPS = libbenchmark-dev python3 vim-nox time lua5.4 tcc ripgrep hunspell
FUZZ_DEPS  = clang libclang-rt-14-dev
# `make soak`: commands of the command soak under the sanitizers, and its seed.
SOAK_COMMANDS ?= 1000000
SOAK_SEED     ?= 1
SOAK_DOCS     ?= 3
# `make fuzz`: seconds for each target, and optionally a number of runs that ends a
# target sooner; FUZZ_TARGETS picks some targets by name. A campaign is
# `make fuzz FUZZ_SECONDS=3600 FUZZ_RUNS=10000000`.
FUZZ_SECONDS  ?= 10
FUZZ_RUNS     ?=
FUZZ_TARGETS  ?=

.PHONY: all deps build run test asan soak bench fuzz clean

all: build

# Installs what is missing when run as root, else names it and stops.
define ensure_pkgs
	@missing=""; for p in $(1); do dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q 'install ok installed' || missing="$$missing $$p"; done; \
	if [ -n "$$missing" ]; then \
	  if [ "$$(id -u)" = 0 ]; then \
	    echo "Installing:$$missing"; \
	    apt-get update -qq && DEBIAN_FRONTEND=noninteractive apt-get install -y -qq $$missing >/dev/null || exit 1; \
	  else \
	    echo "Missing Debian packages:$$missing"; echo "Install them with: sudo apt-get install$$missing"; exit 1; \
	  fi; \
	fi
endef

deps:
	$(call ensure_pkgs,$(DEPS))

build: deps
	cmake -S . -B $(BUILD) $(CMAKE_ARGS) >/dev/null
	cmake --build $(BUILD) -j$(JOBS)

run: build
	$(BUILD)/zolder --home $(BUILD)/runhome data/samples/hello.c

test: build
	cd $(BUILD) && ctest --output-on-failure -j$(JOBS)

asan: deps
	$(MAKE) test BUILD=build-asan CMAKE_ARGS="-DZOLDER_SANITIZE=ON -DCMAKE_BUILD_TYPE=Debug"

soak: deps
	cmake -S . -B build-asan -DZOLDER_SANITIZE=ON -DCMAKE_BUILD_TYPE=Debug >/dev/null
	cmake --build build-asan -j$(JOBS) --target soak
	build-asan/tests/soak/soak --seed $(SOAK_SEED) --commands $(SOAK_COMMANDS) --docs $(SOAK_DOCS)

bench: deps
	$(call ensure_pkgs,$(BENCH_DEPS))
	cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release -DZOLDER_BENCH=ON >/dev/null
	cmake --build build-bench -j$(JOBS)
	bench/run.sh build-bench

fuzz: deps
	$(call ensure_pkgs,$(FUZZ_DEPS))
	CC=clang CXX=clang++ cmake -S . -B build-fuzz -DZOLDER_FUZZ=ON -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
	cmake --build build-fuzz -j$(JOBS) --target fuzz_targets
	FUZZ_RUNS=$(FUZZ_RUNS) FUZZ_TARGETS="$(FUZZ_TARGETS)" fuzz/run.sh build-fuzz $(FUZZ_SECONDS)

clean:
	rm -rf build build-asan build-bench build-fuzz
