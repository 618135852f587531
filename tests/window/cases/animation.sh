# 100 double-buffered frames; the last one is what the window shows.
t0=$(date +%s%N)
start animation.zkl
finish
t1=$(date +%s%N)
echo "100 frames in $(( (t1 - t0) / 1000000 )) ms"
grep -q '^frames 100' out.txt || fail "frames: $(cat out.txt)"
