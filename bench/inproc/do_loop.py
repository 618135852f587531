import time
t = time.process_time()
s = 0
x = 0.0
for i in range(1, 1000001):
    s = s + i % 7
    x = x + i * 0.5
t = time.process_time() - t
print("result", s, x)
print("seconds", t)
