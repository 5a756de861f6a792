.PHONY: run test check format coverage fuzz bench budgets setup clean

run: setup
	@scripts/build.sh host
	@scripts/tour.sh

test: setup
	@scripts/test.sh

check: setup
	@scripts/check.sh

format: setup
	@git ls-files '*.c' '*.h' '*.cpp' '*.hpp' | xargs clang-format -i

coverage: setup
	@scripts/coverage.sh

fuzz: setup
	@scripts/fuzz.sh

bench: setup
	@scripts/bench.sh

budgets: setup
	@scripts/budgets.sh

setup:
	@scripts/setup.sh

clean:
	rm -rf build
