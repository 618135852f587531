# WINCBK: "$1" the window, "$2".."$5" its place and size, when shown and when resized.
start wincbk_window.zkl
W=$(window 'mirval')
sleep 1
xdotool windowsize "$W" 500 350
sleep 1
click "$W" 100 100
finish
grep -q '^wincb 1 20 30 400 300 $' out.txt || fail "no callback for the window shown"
grep -q '^wincb 1 [0-9]* [0-9]* 500 350 $' out.txt || fail "no callback for the resize"
tail -1 out.txt | grep -q '^done $' || fail "MIRFIN did not return"
