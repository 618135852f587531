# Shaded surface of the 200 x 200 benchmark matrix: pm3d, hidden parts by depth order.
set terminal pngcairo size 1188,840
set output 'gp_surshade.png'
set pm3d depthorder
splot 'grid200.dat' matrix with pm3d notitle
