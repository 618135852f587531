# The window after MIRFIN in the three modes of WINMOD; a question dialog holds the script so
# that the window can be looked at.
visible() { [ -n "$(xdotool search --onlyvisible --name 'mirval ' 2>/dev/null)" ]; }
# kept MODE: MIRFIN of MODE has returned and its window is still there; the question is answered
kept() {
  Q=$(window 'Question')
  grep -q "^$1 returned" out.txt || fail "MIRFIN did not return in mode $1"
  visible || fail "the window went in mode $1"
  keys "$Q" Return
  W=$(window 'mirval ')
  sleep 0.5
}
start winmod.zkl
kept none
[ -z "$(xdotool search --onlyvisible --name 'Question')" ] || fail "MIRFIN did not wait in mode full"
click "$W" 200 140
kept full
click "$W" 200 140
Q=$(window 'Question')
visible && fail "the window stayed in mode standard"
keys "$Q" Return
finish
printf 'none returned \nfull returned \nstandard returned \nend \n' > want.txt
expect want.txt
