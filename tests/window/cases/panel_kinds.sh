# A panel of every kind of widget is built without a warning and shows its values; closing the
# window ends it.
start panel_kinds.zkl
W=$(window 'all widgets')
sleep 1
screenshot "$W" panel.png
eval "$(xdotool getwindowgeometry --shell "$W")"
[ "$WIDTH" -gt 500 ] && [ "$HEIGHT" -gt 300 ] || fail "panel of $WIDTH x $HEIGHT pixels"
kill -0 "$ZPID" 2>/dev/null || fail "WGFIN did not wait"
# the top rows of the image are red
red=$("$XWD2PNG" shot.xwd panel.png 255 0 0)
[ "$red" -gt 50 ] || fail "no image: $red red pixels"
$WMCLOSE "$W"
finish
[ -s err.txt ] && fail "warnings: $(cat err.txt)"
printf 'values 3 2 2.500000 2 1 \ntable 1.500000 cell \nfile data.txt \nlong long text \n' > want.txt
expect want.txt
