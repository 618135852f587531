#!/usr/bin/env bash
# Times the 3-D benchmarks (not part of `make test`): SURSHD 1000 x 1000 lit beside gnuplot's
# pm3d surface with hidden3d on the same data, an iso-surface of 128^3, 1000 spheres.
# Usage: bench/solids/run.sh BUILD_DIR   (needs hyperfine; gnuplot-nox for the comparison, left
# out when it is missing)
set -eu
build=$(cd "$1" && pwd)
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
for b in surshd_lit spheres iso128; do
  cc -O2 -I"$here/../../lib/mirval" "$here/$b.c" -L"$build/lib/mirval" -lmirval -lm -Wl,-rpath,"$build/lib/mirval" -o "$b"
done
awk 'BEGIN { for (i = 0; i < 1000; i++) { for (j = 0; j < 1000; j++) { x = -3 + 6 * i / 999; y = -3 + 6 * j / 999;
  printf "%g %g %g\n", x, y, sin(2 * x) * cos(2 * y) * exp(-(x * x + y * y) / 6) } print "" } }' > data.txt
cat > pm3d.gp <<'GP'
set terminal pngcairo size 1188,840
set output 'gnuplot.png'
set pm3d depthorder
set hidden3d
splot 'data.txt' with pm3d notitle
GP
others=()
command -v gnuplot > /dev/null && others=("gnuplot pm3d.gp")
hyperfine -w 1 -r 3 -N ./surshd_lit "${others[@]}" ./iso128 ./spheres
