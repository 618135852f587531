#!/usr/bin/env bash
# STREAM of a 200 x 200 field and TRIANG plus CONTRI on 100,000 scattered points beside
# matplotlib (streamplot, tricontour) drawing the same numbers to PNG; VECMAT of a 100 x 100
# field alone. The scripts compute their data themselves, identically.
# Usage: bench/fields/run.sh [BUILD_DIR]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "${1:-$here/../../build}" && pwd)
command -v hyperfine >/dev/null || { echo "hyperfine is needed: apt-get install -y hyperfine"; exit 1; }
py=python3
"$py" -c "import matplotlib" 2>/dev/null || py=/usr/bin/python3
"$py" -c "import matplotlib" 2>/dev/null || { echo "matplotlib is needed: apt-get install -y python3-matplotlib"; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$here"/*.zkl "$here"/*.py "$work/"
cd "$work"
hyperfine --warmup 1 --runs 5 -N \
  --command-name "zkl STREAM 200 x 200 to PNG" "$build/mirzkl stream.zkl" \
  --command-name "matplotlib streamplot 200 x 200 to PNG" "$py stream.py"
hyperfine --warmup 1 --runs 3 -N \
  --command-name "zkl TRIANG + CONTRI 100,000 points to PNG" "$build/mirzkl tricontour.zkl" \
  --command-name "matplotlib tricontour 100,000 points to PNG" "$py tricontour.py"
hyperfine --warmup 1 --runs 5 -N --command-name "zkl VECMAT 100 x 100 to PNG" "$build/mirzkl vecmat.zkl"
