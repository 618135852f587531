import time
t = time.process_time()
k = 0
s = 0
while k < 500000:
    k = k + 1
    s = s + k % 3
t = time.process_time() - t
print("result", k, s)
print("seconds", t)
