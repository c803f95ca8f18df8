# The commands for people. CMake builds (CMakePresets.json), and the scripts in scripts/ do the rest.

PREFIX ?= /usr/local
DESTDIR ?=
export PREFIX DESTDIR

.PHONY: help run run-screen run-browser run-driver test layouts fuzz install uninstall package format coverage bench test-arm test-asan test-valgrind soak lint clean keyboard installable

help: ## This list
	@sed -n 's/^\([a-z-]*\):.*## /\1 - /p' Makefile | while IFS= read -r line; do \
		printf '  make %-12s %s\n' "$${line%% - *}" "$${line#* - }"; done

run: keyboard ## Try the keyboard in the terminal; without one it plays, pictures in build/run/
	@scripts/run terminal

run-screen: keyboard ## A page and its keyboard in a window; without a display it plays as well
	@scripts/run screen

run-browser: ## Web pages with the keyboard; without a display, a played session in build/run/
	@scripts/run browser

run-driver: keyboard ## The test driver's loop, on a screen of 1920 by 1080
	@scripts/run driver

test: ## Build everything and run all tests; ONLY=NAME: those whose names match
	@scripts/install-packages build run tools hosts browser input_methods test
	@scripts/build default
	@scripts/test default $(if $(ONLY),-R '$(ONLY)')

layouts: ## Build the layouts command, which makes and checks keyboard layouts
	@scripts/install-packages build run tools hosts browser input_methods test
	@scripts/build default layouts

fuzz: ## Fuzz the reader and the check of layout files, ten minutes each
	@scripts/install-packages build run tools test fuzz
	@scripts/build fuzz fuzz_reader fuzz_checker

install: installable ## Install to PREFIX (/usr/local) below DESTDIR; layouts to their fixed path
	@scripts/install

uninstall: ## Take away what was installed to PREFIX below DESTDIR
	@scripts/install --undo

package: ## Make the Debian packages, in build/package/
	@scripts/install-packages build hosts tools input_methods package
	@scripts/package

format: ## Format the C++ sources
	@scripts/install-packages test
	@scripts/format

coverage: ## Which lines of src/os_keyboard the tests run; fails below all
	@scripts/install-packages build run test
	@scripts/build coverage
	@find build/coverage -name '*.gcda' -delete
	@scripts/test coverage
	@gcovr --root . --filter src/os_keyboard/ --print-summary --fail-under-line 100 build/coverage/src build/coverage/tests

bench: ## Speed, memory and size, each beside its target
	@scripts/install-packages build run hosts browser input_methods test arm bench
	@bench/run

test-arm: ## Build for 32-bit ARM and run the tests under qemu
	@scripts/install-packages build run test arm
	@scripts/arm-sysroot
	@scripts/build armhf
	@scripts/test armhf

test-asan: ## The tests with address, undefined behaviour and leak checks
	@scripts/install-packages build run tools hosts input_methods test
	@scripts/build asan
	@scripts/test asan
	@scripts/test asan-soak

test-valgrind: ## The tests under valgrind; takes long
	@scripts/install-packages build run tools hosts input_methods test bench
	@scripts/build valgrind
	@scripts/test valgrind

soak: ## A million random keys and host calls against the model
	@scripts/install-packages build run tools hosts browser input_methods test
	@scripts/build default soak_tests input_methods_tests
	@VKB_SOAK_STEPS=1000000 scripts/test default -R '^Soak'

lint: ## clang-tidy and cppcheck on all C++, headers alone, shellcheck; minutes
	@scripts/install-packages build run tools hosts browser input_methods test bench lint
	@scripts/lint

clean: ## Delete everything that was built
	rm -rf build

keyboard:
	@scripts/install-packages build run hosts
	@scripts/build keyboard

installable:
	@scripts/install-packages build hosts tools input_methods install
	@scripts/build install
