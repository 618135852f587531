"""Writes one smooth test matrix of N x N values twice into DIR: as the data file gridN.zdf
(records of at most 40 numbers, so each stays below 511 characters) and as gridN.dat, the
same numbers as a plain whitespace matrix, one row per line, for gnuplot's 'matrix' reader,
and levelsN.gp, the ten contour levels CONTOUR generates (smallest to largest value in nine
equal steps), so that gnuplot draws the same lines.
Usage: make_grid.py N DIR"""
import math
import os
import sys

n, out = int(sys.argv[1]), sys.argv[2]
rows = []
for i in range(n):
    x = 6.0 * i / n
    rows.append([f"{math.sin(x) * math.cos(6.0 * j / n) + 0.3 * math.sin(3.0 * x + 6.0 * j / n):.5f}"
                 for j in range(n)])
with open(os.path.join(out, f"grid{n}.zdf"), "w") as f:
    f.write("%ZKL-ASC\n%HEADER\nTITLE = 'benchmark grid'\n%DATA\n")
    f.write(f"{n}\n")
    for row in rows:
        for k in range(0, n, 40):
            f.write(", ".join(row[k:k + 40]) + "\n")
with open(os.path.join(out, f"grid{n}.dat"), "w") as f:
    for row in rows:
        f.write(" ".join(row) + "\n")
values = [float(v) for row in rows for v in row]
zmin, zmax = min(values), max(values)
levels = [zmin + i * (zmax - zmin) / 9 for i in range(10)]
with open(os.path.join(out, f"levels{n}.gp"), "w") as f:
    f.write("set cntrparam levels discrete " + ", ".join(f"{v:.6g}" for v in levels) + "\n")
