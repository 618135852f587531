"""Writes a data file of ROWS x COLS numbers to standard output. Records hold at most 511
characters, so the numbers of a row are spread over several records of 40 numbers."""
import sys

rows, cols = int(sys.argv[1]), int(sys.argv[2])
out = sys.stdout
out.write("%ZKL-ASC\n%HEADER\nTITLE = 'benchmark table'\n%DATA\n")
out.write(f"{cols}\n")
values = [f"{(r * cols + c) * 0.001:.3f}" for r in range(rows) for c in range(cols)]
for i in range(0, len(values), 40):
    out.write(", ".join(values[i:i + 40]) + "\n")
