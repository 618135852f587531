# P and D write the picture shown; a drag zooms into a rectangle; U goes back; other keys end.
start picture.zkl
W=$(window 'P: PNG')
sleep 1
keys "$W" p
keys "$W" d
drag "$W" 50 50 200 200
keys "$W" p
kill -0 "$ZPID" 2>/dev/null || fail "the keys ended the wait"
keys "$W" q
finish
[ -s mirval_window_1.png ] && [ -s mirval_window_1.pdf ] && [ -s mirval_window_2.png ] || fail "files missing: $(ls)"
grep -q 'wrote mirval_window_1.png (PNG, 600 x 424)' err.txt || fail "no message for the PNG"
grep -q 'wrote mirval_window_1.pdf (PDF' err.txt || fail "no message for the PDF"
head -c 5 mirval_window_1.pdf | grep -q '%PDF' || fail "not a PDF"
# the zoomed picture is mostly red: the drag covered the square
cp mirval_window_2.png z.png
cmp -s mirval_window_1.png mirval_window_2.png && fail "zoom changed nothing"
