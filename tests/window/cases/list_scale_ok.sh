# Pick a list item, move a scale to its end, tick a check button, press OK.
start list_scale_ok.zkl
W=$(window 'list test')
sleep 0.5
click "$W" 60 26
keys "$W" Down Down
click "$W" 116 131
keys "$W" End
click "$W" 30 171
click "$W" 76 211
finish
expect list_scale_ok.out
