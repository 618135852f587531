# Shaded contours of the 1000 x 1000 benchmark matrix: a pm3d map in ten colours.
set terminal pngcairo size 1188,840
set output 'gp_conshade.png'
set view map
set palette maxcolors 10
splot 'grid1000.dat' matrix with pm3d notitle
