# The same contour picture as grids_bench's first case, for comparison: 1000 x 1000 samples,
# 10 levels, written to PNG.
set terminal pngcairo size 1188,840
set output '/tmp/gp-contour.png'
set view map
set contour base
unset surface
set cntrparam levels 10
set samples 1000
set isosamples 1000
set xrange [0:999]
set yrange [0:999]
splot sin(6.0*x/1000)*cos(6.0*y/1000) + 0.3*sin(18.0*x/1000 + 6.0*y/1000) notitle
