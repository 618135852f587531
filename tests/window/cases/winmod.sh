# The window after MIRFIN in the three modes of WINMOD; a question dialog holds the script so
# that the window can be looked at.
visible() { [ -n "$(xdotool search --onlyvisible --name 'mirval ' 2>/dev/null)" ]; }
running() { kill -0 "$ZPID" 2>/dev/null; }
start winmod.zkl
Q=$(window 'Question')
grep -q '^none returned' out.txt || fail "MIRFIN waited in mode NONE"
visible || fail "the window went in mode NONE"
keys "$Q" Return
W=$(window 'mirval ')
sleep 0.5
[ -z "$(xdotool search --onlyvisible --name 'Question')" ] || fail "MIRFIN did not wait in mode FULL"
click "$W" 200 140
Q=$(window 'Question')
grep -q '^full returned' out.txt || fail "no return after the click in mode FULL"
visible || fail "the window went in mode FULL"
keys "$Q" Return
W=$(window 'mirval ')
sleep 0.5
click "$W" 200 140
Q=$(window 'Question')
visible && fail "the window stayed in mode STANDARD"
keys "$Q" Return
finish
printf 'none returned \nfull returned \nstandard returned \nend \n' > want.txt
expect want.txt
