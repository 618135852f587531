# matplotlib's tricontour (Delaunay through its own triangulation) of the points of
# tricontour.zkl, ten levels, to PNG.
import matplotlib
matplotlib.use("Agg")
import matplotlib.pyplot as plt
import numpy as np

n = 100000
k = np.arange(n, dtype=np.float64)
a = k * 0.6180339887498949
b = k * 0.4142135623730951
x = 4.0 * (a - np.floor(a)) - 2.0
y = 4.0 * (b - np.floor(b)) - 2.0
z = np.sin(x * 2.0) * np.cos(y * 1.5) + 0.2 * x
fig, ax = plt.subplots(figsize=(11.88, 8.4), dpi=100)
ax.tricontour(x, y, z, levels=[-1.0 + 0.2 * l for l in range(10)], colors="k")
fig.savefig("tri_mpl.png")
