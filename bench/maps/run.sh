#!/usr/bin/env bash
# Times WORLD with filled land at the low resolution (goal: under 0.3 s) beside cartopy
# drawing the same map, when cartopy can find its data without a network; and a global field
# every degree (64800 cells) as colours on the same map.
# Usage: bench/maps/run.sh [BUILD_DIR]
set -u
here=$(cd "$(dirname "$0")" && pwd)
build=${1:-$here/../../build}
zkl=$build/src/mirzkl
[ -x "$zkl" ] || zkl=$(find "$build" -name mirzkl -type f -perm -u+x | head -1)
cmds=("$zkl $here/world.zkl" "$zkl $here/field.zkl")
if python3 -c 'import cartopy' 2>/dev/null && timeout 60 python3 "$here/cartopy_world.py" 2>/dev/null; then
  cmds+=("python3 $here/cartopy_world.py")
else
  echo "cartopy not usable offline here: timing the library alone"
fi
hyperfine --warmup 2 --runs 10 "${cmds[@]}"
