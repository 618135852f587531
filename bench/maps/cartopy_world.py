# The same map with cartopy, for comparison: Robinson, filled land, shorelines at the low
# resolution (110m), written to PNG of the same size. Needs its Natural Earth files offline.
import matplotlib
matplotlib.use("Agg")
import matplotlib.pyplot as plt
import cartopy.crs as ccrs
import cartopy.feature as cf

fig = plt.figure(figsize=(11.88, 8.40), dpi=100)
ax = plt.axes(projection=ccrs.Robinson())
ax.set_global()
ax.add_feature(cf.LAND.with_scale("110m"), facecolor=(0.80, 0.88, 0.68))
ax.coastlines(resolution="110m")
fig.savefig("/tmp/bench-map-cartopy.png")
