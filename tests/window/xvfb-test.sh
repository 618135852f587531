#!/usr/bin/env bash
# Runs one screen test: starts a private X server (Xvfb) on display :NUM, runs the case
# tests/window/cases/NAME.sh in a fresh temporary folder with the helpers below, and always
# stops the server again. Exit 77 (skipped) only when Xvfb cannot start.
#   xvfb-test.sh MIRZKL CASES_DIR NAME NUM
set -u
ZKL=$1 CASES=$2 NAME=$3 NUM=$4
HERE=$(cd "$(dirname "$0")" && pwd)
WORK=$(mktemp -d)
XPID=
cleanup() {
  [ -n "${ZPID:-}" ] && kill "$ZPID" 2>/dev/null
  [ -n "$XPID" ] && kill "$XPID" 2>/dev/null && wait "$XPID" 2>/dev/null
  rm -rf "$WORK"
}
trap cleanup EXIT
unset MIRVAL_TRACE ZKL_PATH
# the sanitizer build: full stacks, so that the suppressions match only the library frames
# they name (GLib's own functions lack the frame pointers of the quick unwinder)
export LSAN_OPTIONS="suppressions=$HERE/lsan.supp:print_suppressions=0:fast_unwind_on_malloc=0"
export GSETTINGS_BACKEND=memory
export NO_AT_BRIDGE=1 GDK_BACKEND=x11

command -v Xvfb >/dev/null || { echo "SKIP: Xvfb is not installed"; exit 77; }
Xvfb ":$NUM" -screen 0 1280x1024x24 -nolisten tcp -noreset >"$WORK/.xvfb.log" 2>&1 &
XPID=$!
export DISPLAY=":$NUM"
up=0
for _ in $(seq 1 50); do
  if xdotool getdisplaygeometry >/dev/null 2>&1; then up=1; break; fi
  kill -0 "$XPID" 2>/dev/null || break
  sleep 0.1
done
if [ $up = 0 ]; then
  echo "SKIP: Xvfb cannot start on display :$NUM"; cat "$WORK/.xvfb.log"; exit 77
fi

cp -r "$CASES"/. "$WORK"/
cd "$WORK" || exit 1

# fail MESSAGE: ends the case; from inside $(...) too, by signalling the case's own shell
fail() {
  { echo "FAIL: $*"; echo "--- stdout"; cat out.txt 2>/dev/null; echo "--- stderr"; cat err.txt 2>/dev/null; } >&2
  [ "$BASH_SUBSHELL" -gt 0 ] && kill -USR1 $$
  exit 1
}
trap 'exit 1' USR1

# start SCRIPT: runs the script in the background, output in out.txt and err.txt
start() {
  timeout 20 "$ZKL" "$@" >out.txt 2>err.txt &
  ZPID=$!
}
# window TITLE: the id of the first window whose title contains TITLE (waits up to 10 s)
window() {
  local id
  for _ in $(seq 1 100); do
    id=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | head -1)
    if [ -n "$id" ]; then echo "$id"; return 0; fi
    kill -0 "$ZPID" 2>/dev/null || break
    sleep 0.1
  done
  fail "no window named '$1'"
}
# click WIN X Y: a click of the first mouse button at X, Y inside window WIN
click() {
  xdotool mousemove --window "$1" "$2" "$3" sleep 0.15 click 1
  sleep 0.3
}
# drag WIN X0 Y0 X1 Y1
drag() {
  xdotool mousemove --window "$1" "$2" "$3" sleep 0.1 mousedown 1 sleep 0.1 \
    mousemove --window "$1" $(( ($2 + $4) / 2 )) $(( ($3 + $5) / 2 )) sleep 0.1 \
    mousemove --window "$1" "$4" "$5" sleep 0.1 mouseup 1
  sleep 0.3
}
# keys WIN KEY...: keys typed into window WIN
keys() {
  local w=$1; shift
  xdotool windowfocus --sync "$w" 2>/dev/null || true
  xdotool key --delay 60 "$@"
  sleep 0.3
}
typein() {
  local w=$1; shift
  xdotool windowfocus --sync "$w" 2>/dev/null || true
  xdotool type --delay 40 "$@"
  sleep 0.3
}
# finish: waits for the script (it must end by itself within its time limit)
finish() {
  wait "$ZPID"
  local rc=$?
  ZPID=
  [ $rc = 124 ] && fail "the script did not end (killed after 20 s)"
  [ $rc = 0 ] || fail "the script ended with status $rc"
  return 0
}
# expect FILE: standard output must equal FILE
expect() {
  cmp -s "$1" out.txt || { diff -u --label expected --label actual "$1" out.txt; fail "standard output differs"; }
}
# screenshot WIN FILE.png
screenshot() {
  xwd -silent -id "$1" -out shot.xwd || fail "xwd failed"
  "$XWD2PNG" shot.xwd "$2" || fail "cannot convert the screenshot"
}

. "./$NAME.sh"
echo "PASS: $NAME"
