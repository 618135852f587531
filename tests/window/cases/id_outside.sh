# A press of widget 203 runs nothing; widget 2 (a filler label, no events) neither; the
# registration for id 0 is refused with a warning.
start id_outside.zkl
W=$(window 'outside test')
sleep 0.5
click "$W" 76 31
click "$W" 76 111
finish
printf 'high id 203 \nend \n' > want.txt
expect want.txt
grep -q 'swgcb2: there is no widget 0' err.txt || fail "no warning for id 0"
