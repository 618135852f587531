// Geographic data: shorelines, rivers and borders from the binned GSHHG files, country and
// state outlines from DCW. Both are netCDF files from Debian packages; they are read once
// and kept for the rest of the run.
#pragma once
#include "maps/geometry.h"

#include <string>
#include <vector>

// One piece of a binned file: a polyline inside one bin.
struct BinSegment {
  int level = 0;     // shore: 1 land, 2 lake, 3 island in a lake, 4 pond; rivers and borders: class
  bool ant = false;  // the alternative Antarctic line
  LLine pts;
};

struct BinnedData {
  bool ok = false;
  std::string file;
  double bin_deg = 0;
  int nlon = 0, nlat = 0;
  std::vector<std::vector<BinSegment>> bins;  // row 0 in the north, column 0 at 0°
  std::vector<int> corners;                   // shore: levels of the NW, NE, SE, SW corners, 3 bits each
  int segments = 0;                           // as the file counts them
};

// kind: "GSHHS", "river" or "border"; res: 'c', 'l' or 'i'. Cached; ok is false when the file
// is missing (say so with the package to install).
const BinnedData &binned_data(const std::string &dir, const char *kind, char res);
// The land (or lake) areas of one bin as rings whose even-odd fill is the area of all levels
// from 'level' up to 4 counted the usual way (land, minus lakes, plus islands in lakes ...).
std::vector<LLine> bin_areas(const BinnedData &d, int bin, int level_from, int level_to);

// A country ("FR") or a US state ("USCA") from DCW: its polygons.
struct Outline {
  bool ok = false;
  std::vector<LLine> parts;
};
const Outline &dcw_outline(const std::string &dir, const std::string &code);
bool dcw_available(const std::string &dir);
// The default directories of the packages.
std::string gshhg_dir(const std::string &dir);
std::string dcw_dir(const std::string &dir);
