# The window is 594 x 420 pixels for a page of 2970 x 2100 units: one pixel is 5 units.
start cursor_points.zkl
W=$(window 'mirval')
sleep 1
click "$W" 100 50
click "$W" 20 40
click "$W" 300 200
xdotool mousemove --window "$W" 10 10 click 3; sleep 0.3
click "$W" 60 60
click "$W" 70 70
drag "$W" 10 20 110 120
drag "$W" 200 150 100 50
drag "$W" 300 300 400 350
keys "$W" a
finish
cat > want.txt <<'END'
pt1 500 250 
pts 2 0 100 200 1500 1000 
full 2 1 
lin 50 100 550 600 
rec 500 250 1000 750 
key 97 
END
grep -v '^mov' out.txt > got.txt
cmp -s want.txt got.txt || { diff -u want.txt got.txt; fail "cursor coordinates differ"; }
grep -q '^mov [0-9]* 1500 1500 $' out.txt || fail "CSRMOV: $(grep mov out.txt)"
