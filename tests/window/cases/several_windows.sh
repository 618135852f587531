# Three windows keep their own pictures; CLSWIN closes one; SELWIN draws into the first again;
# MIRFIN waits for a click in the window it finishes, then closes them all.
start several_windows.zkl
W2=$(window 'mirval 2')
for _ in $(seq 50); do grep -q drawn out.txt 2>/dev/null && break; sleep 0.1; done
sleep 0.5
[ -z "$(xdotool search --onlyvisible --name 'mirval 3' 2>/dev/null)" ] || fail "window 3 is still open"
W1=
for w in $(xdotool search --onlyvisible --name 'mirval'); do [ "$w" != "$W2" ] && W1=$w; done
[ -n "$W1" ] || fail "window 1 is not open"
count() { "$XWD2PNG" shot.xwd "$1" "$2" "$3" "$4"; }
screenshot "$W2" w2.png
red=$(count w2.png 255 0 0) blue=$(count w2.png 0 0 255) green=$(count w2.png 0 255 0)
# 1000 x 1000 units at 400 / 2970 pixels each: about 18000 pixels
[ "$blue" -gt 15000 ] && [ "$blue" -lt 21000 ] && [ "$red" -lt 100 ] && [ "$green" -lt 100 ] ||
  fail "window 2: blue $blue red $red green $green"
screenshot "$W1" w1.png
red=$(count w1.png 255 0 0) blue=$(count w1.png 0 0 255) green=$(count w1.png 0 255 0)
# the red square of the start and the small blue one (about 4500 pixels) drawn after SELWIN(1)
[ "$red" -gt 15000 ] && [ "$red" -lt 21000 ] && [ "$blue" -gt 3500 ] && [ "$blue" -lt 5500 ] &&
  [ "$green" -lt 100 ] || fail "window 1: red $red blue $blue green $green"
click "$W2" 200 140
sleep 0.5
kill -0 "$ZPID" 2>/dev/null || fail "a click in window 2 ended the wait of window 1"
click "$W1" 200 140
finish
[ -z "$(xdotool search --onlyvisible --name 'mirval' 2>/dev/null)" ] || fail "MIRFIN left windows open"
grep -q 'selwin.*window 3 is not open' err.txt || fail "no warning for SELWIN of a closed window"
printf 'window 2 \nwindow 3 \nwindow 1 \ndrawn \ndone \n' > want.txt
expect want.txt
