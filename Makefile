# Zenithor: a thin front door to the CMake presets. Every target installs what it needs and the machine
# lacks (tools/setup/install.sh).

SHELL := /bin/bash
ALL_PRESETS := linux win32 win32-unit win64 win64-unit arm64 wasm asan tsan fuzz

.DEFAULT_GOAL := help
.NOTPARALLEL:
.PHONY: help run test dll native data python web screenshots bench fuzz soak dist deb clean data-files npm-packages \
  setup-native setup-dll setup-run setup-test setup-bench setup-dist setup-deb setup-python setup-web

help:
	@echo "make run      today's places of Sun, Moon and planets, from the 32-bit DLL under Wine"
	@echo "make test     builds everything and runs every test"
	@echo "make dll      out/win32, out/win64: zenithor.dll, zenithor_values.dll, their import libraries"
	@echo "make native   out/linux: libzenithor.so, libzenithor_values.so, almanac, karvo"
	@echo "make data     out/data/archive: the index and the data file"
	@echo "make python   out/dist: the wheels of the package for Python"
	@echo "make web      out/dist: the almanac page, the npm package for JavaScript"
	@echo "make bench    timings, each beside its baseline"
	@echo "make fuzz     every fuzz target, ten minutes in all"
	@echo "make soak     a chart host for MINUTES=60, natively and in the 32-bit DLL"
	@echo "make dist     the SDK archive and the installer, in out/dist"
	@echo "make deb      out/dist: the Debian packages"
	@echo "make screenshots   docs/images: pictures of the page"
	@echo "make clean    removes build/ and out/"

run: setup-run data-files
	@preset=$$(tools/setup/presets.sh win32 linux | cut -d' ' -f1) && \
	echo "Building the almanac for $$preset" && tools/run/build.sh $$preset zenithor almanac
	@tools/run/run_almanac.sh

test: setup-test npm-packages
	@tools/run/test.sh $(ALL_PRESETS)

dll: setup-dll data-files
	@echo "Building the DLL" && tools/run/build_dll.sh

native: setup-native data-files
	@echo "Building the native library and programs" && tools/run/build.sh linux zenithor zenithor_values almanac karvo

data: setup-native data-files

data-files:
	@echo "Building the data files" && tools/run/build.sh linux data

python: setup-python data-files
	@echo "Building the libraries for Python" && tools/run/python_wheels.sh

web: setup-web npm-packages data-files
	@echo "Building the library for JavaScript and the page" && tools/run/web.sh

screenshots: setup-test web
	@tools/run/screenshots.sh

npm-packages:
	@tools/setup/npm_packages.sh

bench: setup-bench data-files
	@tools/run/bench.sh

fuzz: setup-test
	@tools/run/fuzz.sh 600

soak: setup-run data-files
	@tools/run/soak.sh $(or $(MINUTES),60)

dist: setup-dist data-files
	@tools/run/build_dll.sh && tools/run/build.sh win32 almanac && \
	tools/run/build.sh linux zenithor zenithor_values almanac karvo
	@for preset in $$(tools/setup/presets.sh arm64); do \
	  tools/run/build.sh $$preset zenithor zenithor_values || exit 1; done
	@tools/run/dist.sh

deb: setup-deb
	@echo "Building the Debian packages" && tools/run/deb.sh

clean:
	@rm -rf build out && echo "Removed build/ and out/"

setup-native setup-dll setup-run setup-test setup-bench setup-dist setup-deb setup-python setup-web: setup-%:
	@tools/setup/install.sh $*
