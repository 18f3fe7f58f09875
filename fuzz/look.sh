#!/bin/sh
# Lets a built fuzzer look for inputs that break a promise, from its seeds and from what it found before. What
# libFuzzer tells goes to a log; one line says what came of it.
#
# usage: look.sh NAME SECONDS LOG, in the project's own folder
set -eu
name=$1
corpus=build/fuzz/corpus/$name
dictionary=fuzz/sil.dict
seeds=fuzz/seeds/$name
case $name in
  decode | roundtrip | source) seeds="$seeds examples examples/rejected" ;;
  values) dictionary=fuzz/values.dict ;;
  json) seeds="$seeds examples" dictionary=fuzz/json.dict ;;
esac
mkdir -p "$corpus"

# The folders of seeds are words of their own.
# shellcheck disable=SC2086
if ! "build/fuzz/fuzz/fuzz_$name" -max_total_time="$2" -timeout=10 -rss_limit_mb=4096 -print_final_stats=1 \
  -dict="$dictionary" -artifact_prefix="build/fuzz/$name-" "$corpus" $seeds >"$3" 2>&1 </dev/null; then
  tail -n 50 "$3" >&2
  echo "fuzz $name: a promise is broken; all of it is in $3" >&2
  exit 1
fi
echo "fuzz $name: $(sed -n 's/^stat::number_of_executed_units: *//p' "$3") inputs, nothing found; log: $3"
