#!/usr/bin/env bash
# Times the same work inside each program: CLOCK() in ZKL, time.process_time() in Python 3,
# os.clock() in Lua 5.4 (processor time, start-up excluded). Each case runs RUNS times (default
# 5) and the best time counts. Prints a table with the ratios to Python; then the start-up
# time of a one-statement script and of one that opens and closes an empty PNG page (the
# plotting library is loaded on the first drawing call), measured from outside with hyperfine.
# Usage: bench/inproc/run.sh [BUILD_DIR] [RUNS]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "${1:-$here/../../build}" && pwd)
runs=${2:-5}
cd "$here"
best() {  # the smallest "seconds" value of RUNS runs of the command
  local b=""
  for _ in $(seq "$runs"); do
    local s
    s=$("$@" | awk '$1 == "seconds" { print $2 }')
    b=$(awk -v a="$s" -v b="$b" 'BEGIN { print (b == "" || a + 0 < b + 0) ? a : b }')
  done
  echo "$b"
}
printf '| work | mirzkl s | python3 s | lua5.4 s | mirzkl / python3 | mirzkl / lua5.4 |\n'
printf '|---|---|---|---|---|---|\n'
for name in do_loop grid while_loop call_loop; do
  z=$(best "$build/mirzkl" "$name.zkl")
  p=$(best python3 "$name.py")
  l=$(command -v lua5.4 >/dev/null && best lua5.4 "$name.lua" || echo "")
  awk -v n="$name" -v z="$z" -v p="$p" -v l="$l" 'BEGIN {
    printf "| %s | %.3f | %.3f | %s | %.2f | %s |\n", n, z, p, (l == "" ? "-" : sprintf("%.3f", l)),
      z / p, (l == "" || l + 0 == 0) ? "-" : sprintf("%.1f", z / l) }'
done
if command -v hyperfine >/dev/null; then
  table=$(mktemp)
  hyperfine --warmup 3 --runs 30 -N --style none --export-markdown "$table" \
    --command-name "mirzkl one-statement script" "$build/mirzkl startup.zkl" \
    --command-name "mirzkl empty PNG page" "$build/mirzkl startup_draw.zkl" \
    --command-name "python3 -c pass" "python3 -c pass" \
    --command-name "lua5.4 -e ''" "lua5.4 -e ''" > /dev/null
  cat "$table"
  rm -f "$table"
fi
