# A panel still on the screen when the script ends closes without a message, although its
# pop-up menu's window goes with the panel's before the program's end reaches it.
start panel_at_exit.zkl
finish
printf 'shown 3 4 \n' > want.txt
expect want.txt
[ -s err.txt ] && fail "messages at the end: $(head -c 300 err.txt)"
