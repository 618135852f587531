#!/usr/bin/env bash
# The help programs and the HELP menu: each program finds its entries, and the menu of an
# interactive session, driven through a pipe, runs the program of each choice.
# Usage: help-programs.sh MIRZKL HELPDIR DOCSDIR
set -u
zkl=$(realpath "$1") bin=$(realpath "$2") docs=$(realpath "$3")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0
fail() { echo "FAIL: $*"; status=1; }
export MIRZKL_DOCDIR="$docs"
# entries of routines of every reference file, statements and standard functions
"$bin/mirhlp" RPNG | grep -q '^### RPNG' || fail "mirhlp RPNG"
"$bin/mirhlp" curve | grep -q '^### CURVE' || fail "mirhlp curve"
"$bin/mirhlp" texmod | grep -q 'texmod(' || fail "mirhlp texmod"
"$bin/mirhlp" NOSUCHNAME > /dev/null 2>&1 && fail "mirhlp of an unknown name succeeds"
n=$("$bin/mirhlp" '?' | wc -w)
[ "$n" -ge 500 ] || fail "mirhlp ? lists only $n names"
"$bin/zklhlp" SQRT | grep -q 'SQRT' || fail "zklhlp SQRT"
"$bin/zklhlp" WHILE | grep -q 'WHILE' || fail "zklhlp WHILE"
"$bin/zklhlp" '?' | grep -q 'STRLEN' || fail "zklhlp ? misses STRLEN"
PAGER=cat "$bin/mirman" | grep -q '### FITSOPN' || fail "mirman shows no reference"
PAGER=cat "$bin/zklman" | grep -q 'Standard functions' || fail "zklman shows no functions"
# without a display zklhelp shows the text menu
printf '9\n5\n' | env -u DISPLAY "$bin/zklhelp" > "$work/menu.txt"
grep -q 'Not allowed option' "$work/menu.txt" || fail "zklhelp menu refuses no option 9"
# the interpreter's HELP menu through a pipe: stand-ins record what each choice runs
mkdir "$work/stub"
for p in mirman zklman mirhlp zklhlp zklhelp; do
  printf '#!/bin/sh\necho "RAN %s $*" >> "%s/ran.txt"\n' "$p" "$work" > "$work/stub/$p"
  chmod +x "$work/stub/$p"
done
for choice in 1 2 3 4; do
  printf 'HELP\n%s\nEXIT\n' "$choice" | env -u DISPLAY PATH="$work/stub:$PATH" "$zkl" > /dev/null 2>&1
done
printf 'HELP\n7\n5\nEXIT\n' | env -u DISPLAY PATH="$work/stub:$PATH" "$zkl" > "$work/seven.txt" 2>&1
expected=$'RAN mirman \nRAN zklman \nRAN mirhlp ?\nRAN zklhlp ?'
[ "$(cat "$work/ran.txt" 2>/dev/null)" = "$expected" ] || { fail "menu choices ran:"; cat "$work/ran.txt"; }
grep -q 'Not allowed option' "$work/seven.txt" || fail "menu option 7 is not refused"
# and with the real programs on PATH, choice 3 lists the routines
printf 'HELP\n3\nEXIT\n' | env -u DISPLAY PATH="$bin:$PATH" "$zkl" > "$work/real.txt" 2>&1
grep -q 'RPIXLS' "$work/real.txt" || fail "menu choice 3 does not list RPIXLS"
exit $status
