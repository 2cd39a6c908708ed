#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Vorel developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Fuzzes every target (or the ones named) for SECONDS each, two at a time:
#   tests/fuzz/run.sh SECONDS [TARGET...]
# Builds them with clang, libFuzzer, AddressSanitizer and UndefinedBehaviorSanitizer in
# build-fuzz/ (VOREL_FUZZ_BUILD overrides), runs each over a fresh copy of its seeds, prints one
# line per target, and exits non-zero when any target crashed, leaked, hung or ran out of
# memory. The failing inputs stay in build-fuzz/findings/<target>/, the logs in build-fuzz/logs/.
set -euo pipefail

seconds=${1:?usage: tests/fuzz/run.sh SECONDS [TARGET...]}
shift
root=$(cd "$(dirname "$0")/../.." && pwd)
build=${VOREL_FUZZ_BUILD:-$root/build-fuzz}
parallel=${VOREL_FUZZ_PARALLEL:-2}

flags="-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer"
CC=clang CXX=clang++ cmake -S "$root" -B "$build" -G Ninja -DVOREL_FUZZ=ON -DVOREL_BUILD_BENCH=OFF \
  -DCMAKE_BUILD_TYPE=Fuzz -DCMAKE_CXX_FLAGS_FUZZ="-O1 -g" -DCMAKE_CXX_FLAGS="$flags" \
  -DCMAKE_EXE_LINKER_FLAGS="-fsanitize=address,undefined" >"$build.configure.log" 2>&1 ||
  { cat "$build.configure.log"; exit 1; }
mv "$build.configure.log" "$build/configure.log"

# Each line of the list: name, largest input, seed files and folders.
declare -A maxLen seeds
names=()
while read -r name len rest; do
  if (($# == 0)) || [[ " $* " == *" $name "* ]]; then
    names+=("$name")
    maxLen[$name]=$len
    seeds[$name]=$rest
  fi
done <"$build/fuzz/targets"
((${#names[@]})) || { echo "no such fuzz target: $*" >&2; exit 1; }

cmake --build "$build" -j "$parallel" --target "${names[@]}" >"$build/build.log" 2>&1 ||
  { tail -50 "$build/build.log"; exit 1; }

mkdir -p "$build/logs" "$build/results"
# Targets that take a path write each input to a file: in memory when the machine allows.
if [[ -d /dev/shm && -w /dev/shm ]]; then
  TMPDIR=$(mktemp -d /dev/shm/vorel-fuzz.XXXXXX)
  export TMPDIR
  trap 'rm -rf "$TMPDIR"' EXIT
fi
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=0:symbolize=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1

# One target: fresh corpus, kept findings; its result line goes to results/<name>.
fuzz() {
  local name=$1 corpus="$build/corpus/$1" findings="$build/findings/$1" log="$build/logs/$1.log" seed status
  rm -rf "$corpus"
  mkdir -p "$corpus" "$findings"
  for seed in ${seeds[$name]}; do
    if [[ -d $seed ]]; then cp "$seed"/* "$corpus"/ 2>/dev/null || true; else cp "$seed" "$corpus"/; fi
  done
  status=0
  # The outer limit catches a target stuck where libFuzzer's own timeout cannot stop it.
  (cd "$build" && timeout -k 10 $((seconds + 300)) "$build/fuzz/$name" -max_total_time="$seconds" \
    -timeout=10 -rss_limit_mb=2048 -max_len="${maxLen[$name]}" -artifact_prefix="$findings/" \
    -print_final_stats=1 "$corpus") >"$log" 2>&1 || status=$?
  local runs
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
  if ((status == 0)); then
    echo "$name: ${runs:-0} runs, ok" >"$build/results/$name"
  else
    local what
    what=$(grep -m1 -oE 'ERROR: (AddressSanitizer|LeakSanitizer|libFuzzer): [a-zA-Z -]+|runtime error: .*|SUMMARY: .*' "$log" ||
      echo "exit status $status")
    echo "$name: CRASH after ${runs:-?} runs: $what (input in $findings, log $log)" >"$build/results/$name"
  fi
}

for name in "${names[@]}"; do rm -f "$build/results/$name"; done
for name in "${names[@]}"; do
  while (($(jobs -rp | wc -l) >= parallel)); do wait -n || true; done
  fuzz "$name" &
done
wait

failed=0
for name in "${names[@]}"; do
  cat "$build/results/$name" 2>/dev/null || { echo "$name: no result"; failed=1; continue; }
  grep -q ', ok$' "$build/results/$name" || failed=1
done
exit "$failed"
