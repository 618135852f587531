# The same shaded surface as grids_bench's last case: 200 x 200 samples, coloured by z.
set terminal pngcairo size 1188,840
set output '/tmp/gp-surface.png'
set pm3d depthorder
unset surface
set samples 200
set isosamples 200
set xrange [0:199]
set yrange [0:199]
splot sin(6.0*x/200)*cos(6.0*y/200) + 0.3*sin(18.0*x/200 + 6.0*y/200) with pm3d notitle
