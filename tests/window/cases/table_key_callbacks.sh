# SWGCB3 gets the widget, the row and the column; SWGCBK the widget and the key.
start table_key_callbacks.zkl
W=$(window 'table test')
sleep 0.5
# rows are about 25 pixels high below a header of about 25; columns at least 60 wide
click "$W" 40 84
click "$W" 100 84
click "$W" 100 171
typein "$W" 'a'
keys "$W" Return
click "$W" 76 211
finish
printf 'tblcb 2 2 1 \ntblcb 2 2 2 \nkeycb 3 97 \nkeycb 3 13 \ncell 7 x \n' > want.txt
expect want.txt
