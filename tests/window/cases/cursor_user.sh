# 594 x 420 pixels for 2970 x 2100 units: one pixel is 5 units. The axis system starts at pixel
# (100, 360) and is 400 x 300 pixels for 0..10 and 0..100.
start cursor_user.zkl
W=$(window 'mirval')
sleep 1
click "$W" 300 210
click "$W" 100 360
click "$W" 500 360
click "$W" 500 60
xdotool mousemove --window "$W" 10 10 click 3; sleep 0.3
keys "$W" x
click "$W" 40 60
finish
cat > want.txt <<'END'
pt1 5 50 
pol 3 0 0 0 10 0 10 100 
pos 120 1500 1000 
pos 1 200 300 
END
expect want.txt
