# WGFIN ends with the Quit button, with the window closed as a window manager closes it, and
# with File -> Quit (F10 opens the menu; Up wraps to its last entry); the text typed each time
# is read after WGFIN.
start panel_leave.zkl
W=$(window 'leave one')
click "$W" 90 47
typein "$W" one
click "$W" 90 82
W=$(window 'leave two')
click "$W" 90 47
typein "$W" two
"$WMCLOSE" "$W"
W=$(window 'leave three')
click "$W" 90 47
typein "$W" three
keys "$W" F10
keys "$W" Up Return
finish
printf 'quit 1 one \nclosed 0 two \nmenu three \n' > want.txt
expect want.txt
