import time


def triple(n):
    return n * 3 % 1000


t = time.process_time()
s = 0
for i in range(1, 100001):
    v = triple(i)
    s = s + v
t = time.process_time() - t
print("result", s)
print("seconds", t)
