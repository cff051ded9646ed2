# Zenithor: a thin front door to the CMake presets.
#
#   make run      today's places of Sun, Moon and planets, from the 32-bit DLL under Wine
#   make test     builds everything and runs every test
#   make dll      out/win32/zenithor.dll and its import libraries
#   make native   out/linux/libzenithor.so
#   make data     out/data/archive: the index and the data file
#   make bench    timings, each beside its baseline
#   make fuzz     every fuzz target, ten minutes in all
#   make dist     the SDK archive and the installer, in out/dist
#   make clean    removes build/ and out/
#
# run, test, bench, fuzz and dist install what the machine lacks (Debian, as root) and say so in one line.

SHELL := /bin/bash
JOBS := $(shell nproc)
ALL_PRESETS := linux win32 win32-unit win64 win64-unit asan tsan fuzz

configure = @echo "Building $(1)" && cmake --preset $(1) > /dev/null
build = $(call configure,$(1)) && cmake --build build/$(1) -j$(JOBS) $(if $(2),--target $(2)) -- --no-print-directory -s

.PHONY: run test bench fuzz dist dll native data clean setup-build setup-test setup-bench

run: setup-build data
	@preset=$$(tools/setup/presets.sh win32 linux | cut -d' ' -f1) && echo "Building the almanac for $$preset" && \
	cmake --preset $$preset -DZENITHOR_UNIT_TESTS=OFF > /dev/null && \
	cmake --build build/$$preset -j$(JOBS) --target zenithor almanac -- --no-print-directory -s
	@tools/run/run_almanac.sh

test: setup-test
	@tools/run/test.sh $(ALL_PRESETS)

bench: setup-bench data
	@tools/run/bench.sh

fuzz: setup-test
	@tools/run/fuzz.sh 600

dll: data
	$(call build,win32,zenithor)

native: data
	$(call build,linux,zenithor)

data:
	@echo "Building the data files" && cmake --preset linux -DZENITHOR_UNIT_TESTS=OFF > /dev/null
	@cmake --build build/linux -j$(JOBS) --target data -- --no-print-directory -s

dist: setup-test dll native
	$(call build,win32,almanac)
	$(call build,win64,zenithor)
	@tools/run/dist.sh

clean:
	@rm -rf build out && echo "Removed build/ and out/"

setup-build setup-test setup-bench: setup-%:
	@tools/setup/install.sh $*
