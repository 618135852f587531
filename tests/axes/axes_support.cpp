#include "axes_support.h"
#include "draw/text.h"
#include "mirval.h"

#include <cctype>
#include <regex>
#include <sstream>

const std::vector<Item> &items() { return mirval_state().scene.current().items; }

std::vector<const Item *> texts() {
  std::vector<const Item *> out;
  for (const Item &it : items())
    if (it.kind == ItemKind::Text) out.push_back(&it);
  return out;
}

const Item *text_item(const std::string &t) {
  for (const Item *it : texts())
    if (it->text == t) return it;
  return nullptr;
}

std::vector<std::string> text_strings() {
  std::vector<std::string> out;
  for (const Item *it : texts()) out.push_back(it->text);
  return out;
}

std::vector<std::vector<double>> svg_stroke_paths(const std::string &svg) {
  std::vector<std::vector<double>> out;
  std::regex path("<path style=\"fill:none[^>]*d=\"([^\"]*)\"");
  for (auto m = std::sregex_iterator(svg.begin(), svg.end(), path); m != std::sregex_iterator(); ++m) {
    std::string d = (*m)[1];
    for (char &c : d)
      if (std::isalpha(static_cast<unsigned char>(c))) c = ' ';
    std::istringstream in(d);
    std::vector<double> v;
    double x;
    while (in >> x) v.push_back(x);
    out.push_back(v);
  }
  return out;
}

double centre_x(const Item *t) { return t->at.x + text_length(t->text, "", 36) / 2; }
