.PHONY: run test check format coverage fuzz bench bench-renew budgets abi abi-renew documents setup clean

run: setup
	@scripts/build.sh host pmapi_command
	@scripts/tour.sh

test: setup
	@scripts/test.sh

check: setup
	@scripts/check.sh

format: setup
	@git ls-files '*.[ch]' '*.[ch]pp' | xargs clang-format -i

coverage: setup
	@scripts/coverage.sh

fuzz: setup
	@scripts/fuzz.sh

bench: setup
	@scripts/bench.sh

# Keeps today's figures as those to compare with.
bench-renew: setup
	@scripts/bench.sh --renew

budgets: setup
	@scripts/budgets.sh

abi: setup
	@scripts/build.sh arm pmapi
	@scripts/abi.sh check build/arm/lib/libpmapi.so

abi-renew: setup
	@scripts/build.sh arm pmapi
	@scripts/abi.sh renew build/arm/lib/libpmapi.so

# Renews what the documents show of the command, and the reference.
documents: setup
	@scripts/build.sh host pmapi_command
	@scripts/documents.py
	@scripts/reference.py

setup:
	@scripts/setup.sh

clean:
	rm -rf build
