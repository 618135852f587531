#!/usr/bin/env bash
# DATMAT on a table of 1,000 x 1,000 numbers: the data file is generated into a temporary
# directory, then the whole table is counted and read with hyperfine.
# Usage: bench/datafile/run.sh [BUILD_DIR]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "${1:-$here/../../build}" && pwd)
command -v hyperfine >/dev/null || { echo "hyperfine is needed: apt-get install -y hyperfine"; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
python3 "$here/make_table.py" 1000 1000 > "$work/table.zdf"
cp "$here/datmat.zkl" "$work/"
cd "$work"
hyperfine --warmup 1 --runs 5 -N --command-name "zkl DATMAT 1000x1000" "$build/mirzkl datmat.zkl"
