# The 'CONS' window shows the picture, keeps it when uncovered, and after a resize draws the
# scene again at the new size.
start cons_screenshot.zkl
W=$(window 'mirval')
sleep 1
screenshot "$W" shot1.png
red=$("$XWD2PNG" shot.xwd shot1.png 85 0 255)
blue=$("$XWD2PNG" shot.xwd shot1.png 0 0 255)
# the square (colour 1 of the table, violet blue) is 800 x 800 units = about 161 x 161 pixels
[ "$red" -gt 20000 ] && [ "$red" -lt 32000 ] || fail "red square: $red pixels"
[ "$blue" -gt 500 ] || fail "blue line: $blue pixels"
# taken off the screen and back, as when covered: drawn again from the scene
xdotool windowunmap --sync "$W"
xdotool windowmap --sync "$W"
sleep 0.5
screenshot "$W" shot0.png
red0=$("$XWD2PNG" shot.xwd shot0.png 85 0 255)
[ "$red0" = "$red" ] || fail "after being covered: $red0 red pixels (before $red)"
xdotool windowsize --sync "$W" 900 636 2>/dev/null || xdotool windowsize "$W" 900 636
sleep 1
screenshot "$W" shot2.png
red2=$("$XWD2PNG" shot.xwd shot2.png 85 0 255)
# drawn again at 1.5 times the size: 2.25 times the pixels, not a blank or a stretched copy
[ "$red2" -gt $(( red * 2 )) ] && [ "$red2" -lt $(( red * 5 / 2 )) ] || fail "after resize: $red2 red pixels (before $red)"
keys "$W" space
finish
printf 'done \n' > want.txt
expect want.txt
