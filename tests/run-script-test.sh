#!/usr/bin/env bash
# Runs one script test: tests/scripts/AREA/NAME.zkl against NAME.out (exact standard output),
# with optional NAME.args (the whole command line; without it: NAME.zkl), NAME.in (standard
# input) and NAME.rc (exit status). The case runs in a fresh temporary copy of its folder.
# With NAME.trace beside it, the library traces the run (MIRVAL_TRACE) into a file that must
# match NAME.trace line by line; an expected line ending in "..." need only begin with the
# text before the dots.
set -u
exe=$1 dir=$2 name=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r "$dir"/. "$work"/
cd "$work" || exit 1
unset DISPLAY  # a quick plot on a desktop would open a window and wait
unset ZKL_PATH MIRVAL ZKL_DATA MIRVAL_TRACE
if [ -f "$name.args" ]; then
  read -r -a args < <(tr '\n' ' ' < "$name.args")
else
  args=("$name.zkl")
fi
[ -f "$name.trace" ] && export MIRVAL_TRACE="$work/.trace"
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
if [ -f "$name.trace" ] && ! awk '
    NR == FNR { want[FNR] = $0; nwant = FNR; next }
    { got[FNR] = $0; ngot = FNR }
    END {
      if (nwant != ngot) exit 1
      for (i = 1; i <= nwant; i++) {
        w = want[i]
        if (w ~ /\.\.\.$/) { w = substr(w, 1, length(w) - 3); if (substr(got[i], 1, length(w)) != w) exit 1 }
        else if (w != got[i]) exit 1
      }
    }' "$name.trace" "$work/.trace" 2>/dev/null; then
  echo "library trace differs (expected vs actual):"
  diff -u --label expected --label actual "$name.trace" "$work/.trace" | head -80
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
