# Contour lines of the 1000 x 1000 benchmark matrix at the ten levels CONTOUR draws.
set terminal pngcairo size 1188,840
set output 'gp_contour.png'
set view map
set contour base
unset surface
load 'levels1000.gp'
splot 'grid1000.dat' matrix with lines notitle
