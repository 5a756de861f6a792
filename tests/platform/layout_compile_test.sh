#!/usr/bin/env bash
# usage: layout_compile_test.sh COMPILER [FLAG...]
# A record whose fields cannot lie where they are said to lie must not compile, and the compiler must
# name the reason. Each faulty record has a sound twin that differs in one number only.
set -u

failures=0

compile() {
  printf '#include "platform/record.hpp"
struct Sample : platform::Record<64> {
  static constexpr platform::%s first{"first", %s};
  static constexpr platform::%s second{"second", %s};
  static constexpr auto fields = layout(first, second);
};\n' "${@:1:4}" | "${@:5}" -x c++ -fsyntax-only - 2>&1
}

# expect REASON KIND OFFSET KIND OFFSET_OF_SOUND OFFSET_OF_FAULTY; REASON is what the compiler reports.
expect() {
  local output
  if ! output=$(compile "${@:2:3}" "$5" "${compiler[@]}"); then
    echo "FAIL: $4 at $5 after $2 at $3 should compile:"
    echo "$output"
    failures=1
  fi
  if output=$(compile "${@:2:3}" "$6" "${compiler[@]}"); then
    echo "FAIL: $4 at $6 after $2 at $3 should not compile"
    failures=1
  elif ! grep -q "$1" <<<"$output"; then
    echo "FAIL: $4 at $6 after $2 at $3 fails for another reason than $1:"
    echo "$output"
    failures=1
  fi
}

compiler=("$@")

expect fieldsOverlap        'Word'          28 'Word'          60 56  # the mark lies in the first field
expect fieldsOverlap        'PlainWord'      0 'PlainByte'      4  3
expect fieldsOverlap        'PlainText<32>'  0 'Word'          60 56  # the slot begins in the text
expect fieldLeavesItsRecord 'PlainWord'      0 'PlainWord'     60 64
expect fieldLeavesItsRecord 'PlainWord'      0 'PlainText<32>' 32 36
expect fieldLeavesItsRecord 'PlainWord'     60 'Word'          28 24  # no room for the mark
expect fieldIsNotAligned    'PlainWord'      0 'PlainWord'      8  6
expect fieldIsNotAligned    'PlainWord'      0 'Text<8>'       40 42  # nor is its validity word

exit $failures
