start draw_area.zkl
W=$(window 'draw test')
sleep 1
screenshot "$W" a1.png
red1=$("$XWD2PNG" shot.xwd a1.png 85 0 255)
click "$W" 116 321
keys "$W" End
sleep 0.5
screenshot "$W" a2.png
red2=$("$XWD2PNG" shot.xwd a2.png 85 0 255)
[ "$red1" -gt 50 ] || fail "no square at first: $red1"
[ "$red2" -gt $(( red1 * 50 )) ] || fail "the callback did not redraw: $red1 then $red2"
click "$W" 76 371
finish
printf 'end 1000.000000 \n' > want.txt
expect want.txt
