// One-statement plots: PLOT, SCATTR, PLOT3, PLOT3R, CONTOUR, CONSHADE, SURF3, SURFACE, SURSHADE.
#pragma once

int plot_zkl(int kind);
int plot3_zkl();
int plot3r_zkl();
int contour_zkl(int shaded);
int surf3_zkl(int kind);

