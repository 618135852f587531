#!/usr/bin/env bash
# Runs one gallery script in a fresh temporary directory and checks what it leaves behind:
# exit status 0, no interpreter message (" >>>>") on standard output, and the PNG file that
# its output names: present, a PNG by its signature, and of the library's default raster size
# by its header. Where the gallery shows that picture, the new one must match it in where the
# ink is (INK_COMPARE, within two pixels, at most 3% apart), so the gallery stays true and a
# lost curve or a moved axis is noticed.
# Usage: check-picture.sh MIRZKL SCRIPT.zkl [INK_COMPARE GALLERY_DIR]
set -u
exe=$(realpath "$1") script=$(realpath "$2") want_w=1188 want_h=840
compare=${3:+$(realpath "$3")} gallery=${4:+$(realpath "$4")}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$script" "$work/"
cd "$work" || exit 1
unset ZKL_PATH MIRVAL ZKL_DATA MIRVAL_TRACE DISPLAY
name=$(basename "$script")
timeout 120 "$exe" "$name" < /dev/null > out.txt 2> err.txt
rc=$?
status=0
fail() { echo "$name: $*"; status=1; }
[ "$rc" -eq 0 ] || fail "exit status $rc"
if grep -q '^ >>>>' out.txt; then
  fail "the interpreter reported:"
  grep '^ >>>>' out.txt | head -10
fi
png=$(grep -o '[A-Za-z0-9_.-]*\.png' out.txt | tail -1)
if [ -z "$png" ]; then
  fail "its output names no PNG file"
elif [ ! -s "$png" ]; then
  fail "$png was not written"
else
  # Signature (8 bytes), then the IHDR chunk: length, type, width and height big-endian.
  sig=$(od -An -tx1 -N8 "$png" | tr -d ' \n')
  [ "$sig" = "89504e470d0a1a0a" ] || fail "$png has no PNG signature ($sig)"
  type=$(od -An -c -j12 -N4 "$png" | tr -d ' \n')
  [ "$type" = "IHDR" ] || fail "$png does not begin with an IHDR chunk"
  read -r w h < <(od -An -tu1 -j16 -N8 "$png" |
    awk '{ for (i = 1; i <= NF; i++) b[++n] = $i }
         END { print ((b[1]*256 + b[2])*256 + b[3])*256 + b[4], ((b[5]*256 + b[6])*256 + b[7])*256 + b[8] }')
  [ "$w" = "$want_w" ] && [ "$h" = "$want_h" ] || fail "$png is $w x $h pixels, expected $want_w x $want_h"
  if [ -n "$compare" ] && [ -f "$gallery/$png" ]; then
    apart=$("$compare" "$png" "$gallery/$png" 2)
    awk -v a="$apart" 'BEGIN { exit !(a + 0 <= 0.03) }' ||
      fail "$png differs from the gallery's picture: $apart of the ink has no match within 2 pixels"
  fi
fi
if [ $status -ne 0 ]; then
  echo "standard output:"; head -20 out.txt
  echo "standard error:"; head -20 err.txt
fi
exit $status
