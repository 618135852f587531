# A button press loads mycb.zkl and runs it with "$1" = the button and "$2" = the array.
start button_callback.zkl
W=$(window 'button test')
sleep 0.5
click "$W" 76 31
click "$W" 76 71
click "$W" 76 31
click "$W" 76 111
finish
expect button_callback.out
