# A quick plot keeps its window after the script's end until a key is pressed.
start quickplot.zkl
W=$(window 'mirval')
sleep 1.5
kill -0 "$ZPID" 2>/dev/null || fail "the window did not stay"
grep -q 'stays on the screen' err.txt || fail "no note about the window"
keys "$W" Return
finish
printf 'plotted \n' > want.txt
expect want.txt
