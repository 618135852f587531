# MIRFIN waits for a click in the window, then the script goes on.
start picture.zkl
W=$(window 'mirval')
sleep 1
kill -0 "$ZPID" 2>/dev/null || fail "MIRFIN did not wait"
click "$W" 300 212
finish
printf 'drawn \ndone \n' > want.txt
expect want.txt
