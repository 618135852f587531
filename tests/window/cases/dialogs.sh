start dialogs.zkl
W=$(window 'Your name')
sleep 0.5
keys "$W" ctrl+a
typein "$W" 'Ada'
keys "$W" Return
W=$(window 'Pick')
sleep 0.5
keys "$W" Escape
W=$(window 'Continue')
sleep 0.3
W=$(xdotool search --onlyvisible --name '' | tail -1)
sleep 0.5
keys "$W" Return
sleep 0.5
W=$(window 'mirval')
keys "$W" Return
finish
printf 'txt Ada 0 \nlis 2 \nbut 1 \nend 0 \n' > want.txt
expect want.txt
