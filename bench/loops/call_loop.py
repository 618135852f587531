# The same work as call_loop.zkl.
def square(n):
    return n * 3 % 1000

s = 0
for i in range(1, 100001):
    v = square(i)
    s = s + v
print(s)
