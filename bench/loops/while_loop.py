# The same work as while_loop.zkl.
k = 0
t = 0
while k < 500000:
    k = k + 1
    t = t + k % 3
print(k, t)
