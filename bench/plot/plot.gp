# The same curve from the same numbers: a PNG image of the library's default raster size.
set terminal pngcairo size 1188,840
set output 'gnuplot.png'
set title 'Benchmark curve'
set xlabel 'x'
set ylabel 'y'
unset key
plot 'points.dat' using 1:2 with lines
