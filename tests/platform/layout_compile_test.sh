#!/usr/bin/env bash
# usage: layout_compile_test.sh COMPILER [FLAG...]
# A record whose fields cannot lie where they are said to lie must not compile, and the compiler must
# name the reason. Each faulty record has a sound twin that differs in one number only.
set -u
compiler=("$@")
failures=0

# compile KIND OFFSET KIND OFFSET
compile() {
  printf '#include "records/collect.hpp"
struct Sample : platform::Record<64> {
  FIELD(platform::%s, first, %s);
  FIELD(platform::%s, second, %s);
};
LAYOUTS(Samples, Sample);
constexpr auto described = records::describeAll(Samples{});\n' "$@" | "${compiler[@]}" -x c++ -fsyntax-only - 2>&1
}

# expect REASON KIND OFFSET KIND OFFSET_OF_SOUND OFFSET_OF_FAULTY; REASON is what the compiler reports.
expect() {
  local output
  output=$(compile "${@:2:4}") || { echo "FAIL: ${*:2:4} should compile: $output"; failures=1; }
  if output=$(compile "${@:2:3}" "$6") || ! grep -q "$1" <<<"$output"; then
    echo "FAIL: ${*:2:3} $6 should not compile, for the reason $1: $output"
    failures=1
  fi
}

expect fieldsOverlap        'Word'          28 'Word'          60 56  # the mark lies in the first field
expect fieldsOverlap        'PlainWord'      0 'PlainByte'      4  3
expect fieldsOverlap        'PlainText<32>'  0 'Word'          60 56  # the slot begins in the text
expect fieldLeavesItsRecord 'PlainWord'      0 'PlainWord'     60 64
expect fieldLeavesItsRecord 'PlainWord'      0 'PlainText<32>' 32 36
expect fieldLeavesItsRecord 'PlainWord'     60 'Word'          28 24  # no room for the mark
expect fieldIsNotAligned    'PlainWord'      0 'PlainWord'      8  6
expect fieldIsNotAligned    'PlainWord'      0 'Text<8>'       40 42  # nor is its validity word

exit $failures
