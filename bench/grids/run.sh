#!/bin/sh
# Times the grid routines against gnuplot drawing the same data. Needs a built grids_bench
# (build/bench/grids/grids_bench or the path given as $1) and hyperfine.
set -e
here=$(cd "$(dirname "$0")" && pwd)
bench=${1:-$here/../../build/bench/grids/grids_bench}
cd /tmp
hyperfine --warmup 1 --runs 5 "$bench 1000 200" \
  "gnuplot $here/contour.gp" "gnuplot $here/surface.gp"
