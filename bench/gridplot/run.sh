#!/usr/bin/env bash
# Quick plots of big matrices read from data files, side by side with gnuplot drawing the same
# numbers: contour lines and shaded contours of a 1000 x 1000 matrix, a shaded surface of a
# 200 x 200 matrix, all to PNG. The data are generated into a temporary directory first.
# Usage: bench/gridplot/run.sh [BUILD_DIR]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "${1:-$here/../../build}" && pwd)
command -v hyperfine >/dev/null || { echo "hyperfine is needed: apt-get install -y hyperfine"; exit 1; }
command -v gnuplot >/dev/null || { echo "gnuplot is needed: apt-get install -y gnuplot-nox"; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
python3 "$here/make_grid.py" 1000 "$work"
python3 "$here/make_grid.py" 200 "$work"
cp "$here"/*.zkl "$here"/*.gp "$work/"
cd "$work"
hyperfine --warmup 1 --runs 5 -N \
  --command-name "zkl read 1000x1000" "$build/mirzkl read.zkl" \
  --command-name "zkl CONTOUR 1000x1000" "$build/mirzkl contour.zkl" \
  --command-name "gnuplot contour 1000x1000" "gnuplot contour.gp"
hyperfine --warmup 1 --runs 5 -N \
  --command-name "zkl CONSHADE 1000x1000" "$build/mirzkl conshade.zkl" \
  --command-name "gnuplot pm3d map 1000x1000" "gnuplot conshade.gp"
hyperfine --warmup 1 --runs 5 -N \
  --command-name "zkl SURSHADE 200x200" "$build/mirzkl surshade.zkl" \
  --command-name "gnuplot pm3d surface 200x200" "gnuplot surshade.gp"
