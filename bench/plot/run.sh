#!/usr/bin/env bash
# PLOT of 1,000,000 points into a PNG file beside gnuplot 5 (pngcairo, `with lines`) drawing
# the same numbers, read from generated files; then the peak memory of each (GNU time).
# Usage: bench/plot/run.sh [BUILD_DIR] [POINTS]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "${1:-$here/../../build}" && pwd)
points=${2:-1000000}
command -v hyperfine >/dev/null || { echo "hyperfine is needed: apt-get install -y hyperfine"; exit 1; }
command -v gnuplot >/dev/null || { echo "gnuplot is needed: apt-get install -y gnuplot-nox"; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
python3 "$here/make_points.py" "$points" "$work"
cp "$here/plot.zkl" "$here/read.zkl" "$here/plot.gp" "$work/"
cd "$work"
hyperfine --warmup 1 --runs 5 -N \
  --command-name "zkl PLOT $points points to PNG" "$build/mirzkl plot.zkl" \
  --command-name "gnuplot $points points to PNG" "gnuplot plot.gp" \
  --command-name "zkl reading the $points points only" "$build/mirzkl read.zkl"
if [ -x /usr/bin/time ]; then
  for cmd in "$build/mirzkl plot.zkl" "gnuplot plot.gp" "$build/mirzkl read.zkl"; do
    /usr/bin/time -v -o time.txt $cmd >/dev/null 2>&1
    kb=$(awk -F': ' '/Maximum resident/ {print $2}' time.txt)
    echo "peak memory (maximum resident set): $((kb / 1024)) MB  $cmd"
  done
else
  echo "peak memory not measured: apt-get install -y time"
fi
