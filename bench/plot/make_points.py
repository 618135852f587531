"""Writes N points of a wavy curve twice, with the same numbers: points.zdf (a ZKL data file,
two columns) and points.dat (plain columns for gnuplot). Usage: make_points.py N DIR"""
import math
import sys

n, where = int(sys.argv[1]), sys.argv[2]
rows = []
for i in range(n):
    x = i * 100.0 / n
    y = math.sin(x) * math.exp(-x / 50.0) + 0.2 * math.sin(37.0 * x)
    rows.append(f"{x:.5f} {y:.5f}\n")
body = "".join(rows)
with open(f"{where}/points.zdf", "w") as f:
    f.write("%ZKL-ASC\n%HEADER\nTITLE = 'benchmark curve'\n%DATA\n2\n")
    f.write(body)
    f.write("%END\n")
with open(f"{where}/points.dat", "w") as f:
    f.write(body)
