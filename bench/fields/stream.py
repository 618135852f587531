# matplotlib's streamplot of the field of stream.zkl, to PNG.
import matplotlib
matplotlib.use("Agg")
import matplotlib.pyplot as plt
import numpy as np

n = 200
p = -3.0 + 6.0 * np.arange(n) / (n - 1)
x, y = np.meshgrid(p, p)
u = -y + 0.5 * np.sin(2.0 * x)
v = x - 0.5 * np.cos(2.0 * y)
fig, ax = plt.subplots(figsize=(11.88, 8.4), dpi=100)
ax.streamplot(x, y, u, v, density=2)
fig.savefig("stream_mpl.png")
