#include "picture_support.h"
#include "core/state.h"
#include "mirval.h"

#include <algorithm>
#include <cmath>
#include <regex>
#include <sstream>

std::vector<SvgStroke> svg_strokes(const std::string &svg) {
  std::vector<SvgStroke> out;
  std::regex path_re("<path style=\"(fill:none;[^\"]*)\" d=\"([^\"]*)\"");
  for (auto it = std::sregex_iterator(svg.begin(), svg.end(), path_re); it != std::sregex_iterator(); ++it) {
    SvgStroke s;
    s.style = (*it)[1];
    std::istringstream d((*it)[2].str());
    std::string tok;
    while (d >> tok) {
      if (tok == "M" || tok == "L" || tok == "C") {
        if (tok != "M") ++s.segments;
        continue;
      }
      if (tok == "Z") continue;
      double x = std::stod(tok), y;
      d >> y;
      s.pts.push_back({x, y});
    }
    out.push_back(s);
  }
  return out;
}

bool has_line(const std::vector<SvgStroke> &strokes, double x0, double y0, double x1, double y1) {
  auto near = [](std::pair<double, double> p, double x, double y) {
    return std::fabs(p.first - x) < 0.1 && std::fabs(p.second - y) < 0.1;
  };
  for (const SvgStroke &s : strokes)
    for (size_t i = 0; i + 1 < s.pts.size(); ++i)
      if ((near(s.pts[i], x0, y0) && near(s.pts[i + 1], x1, y1)) ||
          (near(s.pts[i], x1, y1) && near(s.pts[i + 1], x0, y0)))
        return true;
  return false;
}

std::vector<std::string> page_texts() {
  std::vector<std::string> out;
  for (const Item &it : mirval_state().scene.current().items)
    if (it.kind == ItemKind::Text) out.push_back(it.text);
  return out;
}

std::string two_line_legend(const char *first, const char *second, int nmaxln, int pos) {
  std::vector<char> buf(2 * nmaxln + 1);
  legini(buf.data(), 2, nmaxln);
  leglin(buf.data(), first, 1);
  leglin(buf.data(), second, 2);
  legend(buf.data(), pos);
  return buf.data();
}
