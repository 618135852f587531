#!/usr/bin/env bash
# Without a display nothing waits: a panel script ends at once (WGFIN returns), WGINI warns
# once however often it is called, MIRFIN of a 'XWIN' picture writes the PNG file instead,
# and the dialogs return their defaults. A DISPLAY whose server does not answer counts as none.
set -u
ZKL=$1 CASES=$2
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT
unset DISPLAY MIRVAL_TRACE
cp -r "$CASES"/. "$WORK"/
cd "$WORK" || exit 1
fail() { echo "FAIL: $*"; echo "--- stdout"; cat out.txt; echo "--- stderr"; cat err.txt; exit 1; }
for s in button_callback list_scale_ok draw_area dialogs picture cursor_points; do
  t0=$(date +%s%N)
  timeout 10 "$ZKL" $s.zkl > out.txt 2> err.txt
  rc=$?
  ms=$(( ($(date +%s%N) - t0) / 1000000 ))
  [ $rc = 124 ] && fail "$s.zkl waited without a display"
  [ $ms -lt 3000 ] || fail "$s.zkl took $ms ms"
  echo "$s: $ms ms"
done
timeout 10 "$ZKL" button_callback.zkl > out.txt 2> err.txt
printf 'ids 1 2 3 4 \nafter 0 11 22 \n' > want.txt
cmp -s want.txt out.txt || fail "panel without display: $(diff want.txt out.txt)"
[ "$(grep -c 'wgini: no display' err.txt)" = 1 ] || fail "WGINI must warn once"
timeout 10 "$ZKL" list_scale_ok.zkl > out.txt 2> err.txt
printf 'before 1 5.000000 0 \nafter 1 5.000000 0 \n' > want.txt
cmp -s want.txt out.txt || fail "values without display: $(diff want.txt out.txt)"
printf '%%ZKL\nIP = WGINI("VERT")\nIP = WGINI("HORI")\nI = WGLAB(IP, "x")\nWGFIN()\nPRINTL "end"\n' > twice.zkl
timeout 10 "$ZKL" twice.zkl > out.txt 2> err.txt
[ "$(grep -c 'wgini: no display' err.txt)" = 1 ] || fail "WGINI must warn once, not $(grep -c wgini err.txt) times"
timeout 10 "$ZKL" dialogs.zkl > out.txt 2> err.txt
printf 'txt nobody 1 \ntxt Paris 1 \nlis 2 1 \nlis 2 1 \nbut 1 1 \nfil none.dat 1 \nend 1 \n' > want.txt
cmp -s want.txt out.txt || fail "dialogs without display: $(diff want.txt out.txt)"
timeout 10 "$ZKL" picture.zkl > out.txt 2> err.txt
grep -q 'no screen window can be opened' err.txt || fail "no fallback warning"
[ -s mirval.png ] || fail "no PNG written"
# DISPLAY names a server that does not answer: the same fallback, without waiting
rm -f mirval.png
t0=$(date +%s%N)
DISPLAY=:1999 timeout 10 "$ZKL" picture.zkl > out.txt 2> err.txt
ms=$(( ($(date +%s%N) - t0) / 1000000 ))
grep -q 'no screen window can be opened' err.txt || fail "no fallback warning with a dead DISPLAY"
[ -s mirval.png ] && [ $ms -lt 3000 ] || fail "dead DISPLAY: PNG missing or $ms ms"
echo "PASS: no_display"
