# Type into a text field, read it back with GWGTXT inside the callback and after WGFIN.
start text_field.zkl
W=$(window 'text test')
sleep 0.5
click "$W" 100 31
typein "$W" 'hello 42'
keys "$W" Return
click "$W" 76 111
finish
expect text_field.out
