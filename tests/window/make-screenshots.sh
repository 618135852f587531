#!/usr/bin/env bash
# Takes the screenshots of docs/gallery/window.md under a private X server:
#   tests/window/make-screenshots.sh BUILD_DIR [DISPLAY_NUMBER]
# window_panel.png: examples/interactive/panel.zkl after a change of the scales;
# window_screen.png: a screen window ('XWIN') with a plot.
set -u
BUILD=$(cd "$1" && pwd) NUM=${2:-90}
ROOT=$(cd "$(dirname "$0")/../.." && pwd)
OUT=$ROOT/docs/gallery
ZKL=$BUILD/mirzkl XWD2PNG=$BUILD/tests/window/xwd2png
[ -x "$ZKL" ] || ZKL=$(find "$BUILD" -name mirzkl -type f -perm -u+x | head -1)
WORK=$(mktemp -d)
Xvfb ":$NUM" -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
XPID=$!
ZPID=
trap '[ -n "$ZPID" ] && kill $ZPID 2>/dev/null; kill $XPID 2>/dev/null; rm -rf "$WORK"' EXIT
export DISPLAY=":$NUM" NO_AT_BRIDGE=1
for _ in $(seq 50); do xdotool getdisplaygeometry >/dev/null 2>&1 && break; sleep 0.1; done
win() { for _ in $(seq 100); do id=$(xdotool search --onlyvisible --name "$1" | head -1); [ -n "$id" ] && { echo $id; return; }; sleep 0.1; done; }

cp "$ROOT"/examples/interactive/*.zkl "$WORK"/
cd "$WORK"
timeout 30 "$ZKL" panel.zkl >/dev/null 2>&1 &
ZPID=$!
W=$(win 'Damped oscillation')
sleep 1.5
# frequency to 2.5 and damping to 0.35 with the keyboard: a click on each knob focuses the
# scale, Home sets its least value, and every Right adds a step (0.1 and 0.01); each change
# draws the plot again
xdotool mousemove --window "$W" 35 137 click 1 key Home
xdotool key --delay 30 $(printf 'Right %.0s' $(seq 20))
xdotool mousemove --window "$W" 48 203 click 1 key Home
xdotool key --delay 30 $(printf 'Right %.0s' $(seq 35))
sleep 1
xwd -silent -id "$W" -out panel.xwd
"$XWD2PNG" panel.xwd "$OUT/window_panel.png"
xdotool windowclose "$W" 2>/dev/null || kill $ZPID
wait $ZPID 2>/dev/null
ZPID=

cat > screen.zkl <<'Z'
%ZKL
N = 101
X = FALLOC(N) / 10.0
Y = SIN(X) * EXP(-X / 5.0)
METAFL('XWIN')
WINDOW(0, 0, 891, 630)
MIRINI()
PAGERA()
COMPLX()
NAME('t', 'X')
NAME('sin t exp(-t/5)', 'Y')
TITLIN('A screen window', 1)
LABDIG(1, 'Y')
GRAF(0., 10., 0., 2., -1., 1., -1., 0.5)
TITLE()
GRID(1, 1)
COLOR('RED')
LINWID(8)
CURVE(X, Y, N)
MIRFIN()
Z
timeout 30 "$ZKL" screen.zkl >/dev/null 2>&1 &
ZPID=$!
W=$(win 'mirval')
sleep 1.5
xwd -silent -id "$W" -out screen.xwd
"$XWD2PNG" screen.xwd "$OUT/window_screen.png"
xdotool mousemove --window "$W" 400 300 click 1
wait $ZPID 2>/dev/null
ZPID=
ls -l "$OUT"/window_*.png
