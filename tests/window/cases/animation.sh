# 100 double-buffered frames; the window then shows the last one alone: one square (colour 1,
# violet blue) of 400 x 400 units = 80 x 80 pixels, the earlier ones erased.
t0=$(date +%s%N)
start animation.zkl
W=$(window 'mirval')
for _ in $(seq 100); do grep -q '^frames 100' out.txt 2>/dev/null && break; sleep 0.1; done
t1=$(date +%s%N)
grep -q '^frames 100' out.txt || fail "frames: $(cat out.txt)"
echo "100 frames in $(( (t1 - t0) / 1000000 )) ms"
sleep 0.3
screenshot "$W" last.png
n=$("$XWD2PNG" shot.xwd last.png 85 0 255)
[ "$n" -gt 5500 ] && [ "$n" -lt 7500 ] || fail "the last frame has $n square pixels"
click "$W" 100 300
finish
