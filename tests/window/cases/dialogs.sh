# Each modal dialog returns what the user chose: typed text, a cancelled text, an item picked
# with the keyboard, a cancelled list, No to a question, a file typed into the chooser, and a
# message box; DWGERR says 1 only for the cancelled ones.
touch mine.dat
start dialogs.zkl
W=$(window 'Your name')
keys "$W" ctrl+a
typein "$W" 'Ada'
keys "$W" Return
W=$(window 'Your town')
keys "$W" Escape
W=$(window 'Pick')
keys "$W" Down
eval "$(xdotool getwindowgeometry --shell "$W")"
click "$W" $(( WIDTH * 3 / 4 )) $(( HEIGHT - 18 ))
W=$(window 'Pick again')
keys "$W" Escape
W=$(window 'Question')
eval "$(xdotool getwindowgeometry --shell "$W")"
click "$W" $(( WIDTH / 4 )) $(( HEIGHT - 18 ))
W=$(window 'Data file')
sleep 0.5
typein "$W" "$PWD/mine.dat"
keys "$W" Return
W=$(window 'mirval')
keys "$W" Return
finish
sed -i "s|$PWD/||" out.txt
printf 'txt Ada 0 \ntxt Paris 1 \nlis 3 0 \nlis 2 1 \nbut 0 0 \nfil mine.dat 0 \nend 0 \n' > want.txt
expect want.txt
