#!/usr/bin/env bash
# probe_test.sh EXAMPLES OTHER_CJSON PROBE...: the probe's calls, scenarios and refusals on the home router's
# platform, and what it says of the process's cJSON.
set -uo pipefail
examples=$1
other_cjson=$2
shift 2
probe=("$@")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failed=0

# expect NAME STATUS TEXT ARGUMENT...: the exit status, and a text in what is printed.
expect() {
  local name=$1 status=$2 text=$3 output got
  shift 3
  output=$("${probe[@]}" "$@" 2>&1)
  got=$?
  if [ "$got" -ne "$status" ] || ! grep -qF -- "$text" <<<"$output"; then
    printf '%s: exit %d, expected %d with "%s":\n%s\n' "$name" "$got" "$status" "$text" "$output"
    failed=1
  fi
}

expect "a getter" 0 '"deviceModel":"NF-6200AX"' call basicinfo ubus_getDeviceModel
expect "a secret" 0 '"pppoePassword":"***"' call uplinkinfo get
expect "what a handler prints" 0 'radioType:' call roaming starssi_get '{"macAddress":"f40f24108801"}'
expect "a failure" 1 '{"status":-2,' call uplinkinfo ubus_get_dssinto '{"instance":"none"}'
expect "a wrong argument" 2 'more: no such argument' call mesh_role set '{"meshRole":1,"more":1}'
expect "calls of all kinds" 0 '"totalBytesSent"' run "$examples/platform_check.jsonl"
expect "a step of the virtual gateway" 2 'only a virtual gateway can do that' run "$examples/mesh.jsonl"

# Only where cJSON differs there is something to say of it.
if "${probe[@]}" list 2>&1 | grep -F cJSON; then failed=1; fi
for difference in 'types the type of a text is 4 and not 16' 'layout "string" lies elsewhere'; do
  way=${difference%% *}
  LD_PRELOAD=$other_cjson OTHER_CJSON=$way expect "a cJSON of other $way" 0 "with it: ${difference#* }" list
done

# Recorded answers are what the same platform gives again, and what another does not.
"${probe[@]}" run --record "$examples/platform_check.jsonl" >"$scratch/recorded.jsonl"
expect "recorded answers" 0 'NF-6200AX' run "$scratch/recorded.jsonl"
sed -i 's/NF-6200AX/NF-6300/' "$scratch/recorded.jsonl"
expect "another answer" 1 'expected "NF-6300", got "NF-6200AX"' run "$scratch/recorded.jsonl"
exit $failed
