start several_windows.zkl
W1=$(window 'mirval \xe2')
W2=$(window 'mirval 2')
sleep 1
screenshot "$W2" w2.png
blue=$("$XWD2PNG" shot.xwd w2.png 0 0 255); red=$("$XWD2PNG" shot.xwd w2.png 255 0 0)
[ "$blue" -gt 5000 ] && [ "$red" -lt 100 ] || fail "window 2: blue $blue red $red"
W1=$(xdotool search --onlyvisible --name 'mirval' | head -1)
for w in $(xdotool search --onlyvisible --name 'mirval'); do [ "$w" != "$W2" ] && W1=$w; done
screenshot "$W1" w1.png
red=$("$XWD2PNG" shot.xwd w1.png 255 0 0); blue=$("$XWD2PNG" shot.xwd w1.png 0 0 255)
[ "$red" -gt 5000 ] && [ "$blue" -lt 100 ] || fail "window 1: red $red blue $blue"
click "$W1" 200 140
finish
printf 'window 2 \nwindow 1 \ndrawn \ndone \n' > want.txt
expect want.txt
