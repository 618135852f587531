#!/usr/bin/env bash
# Runs one script test: tests/scripts/AREA/NAME.zkl against NAME.out (exact standard output),
# with optional NAME.args (the whole command line; without it: NAME.zkl), NAME.in (standard
# input) and NAME.rc (exit status). The case runs in a fresh temporary copy of its folder.
set -u
exe=$1 dir=$2 name=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r "$dir"/. "$work"/
cd "$work" || exit 1
unset ZKL_PATH MIRVAL ZKL_DATA MIRVAL_TRACE
if [ -f "$name.args" ]; then
  read -r -a args < <(tr '\n' ' ' < "$name.args")
else
  args=("$name.zkl")
fi
input=/dev/null
[ -f "$name.in" ] && input="$name.in"
timeout 60 "$exe" "${args[@]}" < "$input" > "$work/.stdout" 2> "$work/.stderr"
rc=$?
want_rc=0
[ -f "$name.rc" ] && want_rc=$(cat "$name.rc")
status=0
if ! cmp -s "$name.out" "$work/.stdout"; then
  echo "standard output differs (expected vs actual):"
  diff -u --label expected --label actual "$name.out" "$work/.stdout" | head -80
  status=1
fi
if [ "$rc" != "$want_rc" ]; then
  echo "exit status $rc, expected $want_rc"
  status=1
fi
if [ $status -ne 0 ] && [ -s "$work/.stderr" ]; then
  echo "standard error:"; head -20 "$work/.stderr"
fi
exit $status
