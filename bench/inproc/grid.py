import math
import time
t = time.process_time()
a = [[0.0] * 500 for _ in range(500)]
for i in range(500):
    for j in range(500):
        a[i][j] = math.sin(i * 0.01) * math.cos(j * 0.01)
t = time.process_time() - t
print("result", a[499][1])
print("seconds", t)
