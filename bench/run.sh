#!/usr/bin/env bash
# Runs the benchmarks with hyperfine: each ZKL script side by side with its Python 3 twin.
# Usage: bench/run.sh [BUILD_DIR]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "${1:-$here/../build}" && pwd)
command -v hyperfine >/dev/null || { echo "hyperfine is needed: apt-get install -y hyperfine"; exit 1; }
cd "$here/loops"
for name in do_loop while_loop call_loop; do
  hyperfine --warmup 1 --runs 5 -N \
    --command-name "zkl $name" "$build/mirzkl $name.zkl" \
    --command-name "python3 $name" "python3 $name.py"
done
for extra in "$here"/*/run.sh; do
  [ -x "$extra" ] && "$extra" "$build"
done
exit 0
