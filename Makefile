# The ways to use this tree. Each does its own set-up first, which is nothing once all is installed.

BUILD := build
JOBS := $(shell nproc)
# Two more: the end-to-end tests mostly wait.
TEST_JOBS := $(shell expr $(JOBS) + 2)

.PHONY: all release show test bench fuzz format lint clean configure

# The product and the inspection tool.
all:
	tools/setup build
	$(MAKE) --no-print-directory configure
	cmake --build $(BUILD) --parallel $(JOBS) --target product

# What users are given: the screen saver and its manual, in build/Tessellarium-VERSION.zip.
release: all
	cpack --config $(BUILD)/CPackConfig.cmake -B $(BUILD)

show: all
	tools/setup show
	tools/show $(BUILD)

test:
	tools/setup build test
	$(MAKE) --no-print-directory configure
	cmake --build $(BUILD) --parallel $(JOBS)
	ctest --test-dir $(BUILD) --output-on-failure --no-tests=error --parallel $(TEST_JOBS)

bench:
	tools/setup build test
	$(MAKE) --no-print-directory configure
	cmake --build $(BUILD) --parallel $(JOBS)
	tests/bench/run --product $(BUILD)/Tessellarium.scr --programs $(BUILD)/win32/tests/bench \
		--template $(BUILD)/wine_template

# Ten minutes for each target; what a run finds, the next one begins with.
fuzz:
	tools/setup build test
	$(MAKE) --no-print-directory configure
	cmake --build $(BUILD) --parallel $(JOBS) --target fuzz
	for source in tests/fuzz/*.cpp; do tools/fuzz $(BUILD) $$(basename $$source .cpp) 600 || exit 1; done

format:
	tools/setup lint
	git ls-files -z --cached --others --exclude-standard '*.cpp' '*.h' | xargs -0 -r clang-format -i

lint:
	tools/setup build test lint
	tools/lint $(BUILD)

clean:
	rm -rf $(BUILD)

# Once made, a build folder keeps its generator and brings itself up to date.
configure:
	@test -f $(BUILD)/CMakeCache.txt || cmake -S . -B $(BUILD) -G Ninja
