#!/usr/bin/env bash
# Builds the fuzz targets with clang (AddressSanitizer, UndefinedBehaviorSanitizer, libFuzzer)
# in BUILD and runs each for SECONDS, one after another, at low priority. The working corpus
# grows in BUILD/corpus/TARGET, seeded with the saved inputs of tests/fuzz/TARGET (and, for
# the script target, the script tests); inputs that fail land in BUILD/crashes. Each one found
# belongs, once fixed, in tests/fuzz/TARGET, which the test run replays.
set -euo pipefail
build=${1:-build-fuzz} seconds=${2:-60}
src=$(cd "$(dirname "$0")/.." && pwd)
if [ ! -f "$build/build.ninja" ]; then
  CC=clang CXX=clang++ cmake -S "$src" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DMIRZKL_SANITIZE=ON -DMIRZKL_FUZZ=ON \
    -DCMAKE_C_FLAGS=-fsanitize=fuzzer-no-link -DCMAKE_CXX_FLAGS=-fsanitize=fuzzer-no-link
fi
targets="script expr format zdf"
cmake --build "$build" --target $(for t in $targets; do echo "fuzz_$t"; done)
build=$(cd "$build" && pwd)
mkdir -p "$build/crashes"
cd "$build"  # the targets' scratch folders go here, also when one of them stops on a finding
status=0
for t in $targets; do
  corpus="$build/corpus/$t"
  mkdir -p "$corpus"
  cp -n "$src/tests/fuzz/$t"/* "$corpus"/ 2>/dev/null || true
  [ "$t" = script ] && for f in "$src"/tests/scripts/*/*.zkl; do
    tail -n +2 "$f" > "$corpus/$(basename "$(dirname "$f")")-$(basename "$f")"
  done
  # Scripts may declare large arrays: they get "Not enough memory", not an abort.
  FUZZ_OUT=$build ASAN_OPTIONS=allocator_may_return_null=1:max_allocation_size_mb=64:detect_leaks=1 \
    LSAN_OPTIONS=suppressions=$src/fuzz/lsan.supp \
    nice -n 19 "$build/fuzz/fuzz_$t" "$corpus" -max_total_time="$seconds" -timeout=120 \
    -rss_limit_mb=2048 -malloc_limit_mb=4096 -close_fd_mask=1 -print_final_stats=1 \
    -artifact_prefix="$build/crashes/$t-" < /dev/null || status=1
done
exit $status
