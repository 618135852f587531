#!/usr/bin/env bash
# Runs plot_svg.zkl and reads its SVG file: the X and Y axis lines where the axis system
# lies, one glyph for each character of the labels and names ("0", "5", "10" on each axis,
# "Parabola", "xx", "yy": 20), and the curve as one stroked path through the eleven points
# (i, i*i/10) mapped onto the axis system. Coordinates are compared within 0.5 plot units.
# Usage: check-plot-svg.sh MIRZKL plot_svg.zkl
set -u
exe=$(realpath "$1") script=$(realpath "$2")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$script" "$work/"
cd "$work" || exit 1
unset ZKL_PATH MIRVAL ZKL_DATA MIRVAL_TRACE
timeout 60 "$exe" "$(basename "$script")" < /dev/null > out.txt 2> err.txt
rc=$?
status=0
fail() { echo "plot.svg: $*"; status=1; }
[ "$rc" -eq 0 ] || fail "exit status $rc"
grep -q '^ >>>>' out.txt && fail "the interpreter reported: $(grep '^ >>>>' out.txt | head -3)"
[ -s plot.svg ] || { fail "not written"; cat out.txt err.txt; exit 1; }
head -c 200 plot.svg | grep -q '<svg' || fail "no <svg element"
glyphs=$(grep -o '<use' plot.svg | wc -l)
[ "$glyphs" -eq 20 ] || fail "$glyphs glyphs, expected 20"
# The stroked paths' point lists, one line each: "x1 y1 x2 y2 ...".
grep -o '<path style="fill:none[^>]*d="[^"]*"' plot.svg | sed 's/.*d="//; s/"$//; s/[MLZ]//g' > paths.txt
# has_path "x1 y1 x2 y2 ...": some path has exactly these points, within 0.5.
has_path() {
  awk -v want="$1" '
    BEGIN { n = split(want, w, " ") }
    { m = split($0, g, " "); if (m != n) next
      ok = 1; for (i = 1; i <= n; i++) if (g[i] - w[i] > 0.5 || w[i] - g[i] > 0.5) ok = 0
      if (ok) { found = 1; exit } }
    END { exit !found }' paths.txt
}
has_path "450 1800 2650 1800" || fail "no X axis line from (450, 1800) to (2650, 1800)"
has_path "450 600 450 1800" || fail "no Y axis line from (450, 600) to (450, 1800)"
curve=""
for i in 0 1 2 3 4 5 6 7 8 9 10; do
  curve="$curve $(awk -v i=$i 'BEGIN { printf "%g %g", 450 + 220 * i, 1800 - 120 * (i * i / 10) }')"
done
has_path "$curve" || fail "no curve through the eleven points:$curve"
if [ $status -ne 0 ]; then
  echo "stroked paths:"; head -40 paths.txt
  echo "standard error:"; head -10 err.txt
fi
exit $status
