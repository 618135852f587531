#include "axes/date_labels.h"

#include <cmath>
#include <cstdio>

namespace {

const char *const month_names[] = {"January", "February", "March",     "April",   "May",      "June",
                                   "July",    "August",   "September", "October", "November", "December"};
const char *const day_names[] = {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"};

}  // namespace

bool valid_date(int day, int month, int year) {
  if (year < 1 || year > 9999 || month < 1 || month > 12 || day < 1) return false;
  static const int len[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return day <= len[month - 1] + (month == 2 && leap);
}

// The proleptic Gregorian calendar through eras of 400 years.
long days_from_civil(int d, int m, int y) {
  long yy = y - (m <= 2);
  long era = (yy >= 0 ? yy : yy - 399) / 400;
  long yoe = yy - era * 400;
  long doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
  long doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + doe - 719468;
}

CivilDate civil_from_days(long z) {
  z += 719468;
  long era = (z >= 0 ? z : z - 146096) / 146097;
  long doe = z - era * 146097;
  long yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  long doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  long mp = (5 * doy + 2) / 153;
  CivilDate c;
  c.day = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
  c.month = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
  c.year = static_cast<int>(yoe + era * 400 + (c.month <= 2));
  return c;
}

int weekday(long days) {
  long w = (days + 3) % 7;  // 1 January 1970 was a Thursday
  if (w < 0) w += 7;
  return static_cast<int>(w) + 1;
}

std::string date_text(long days, const DateForm &f) {
  CivilDate c = civil_from_days(days);
  char year[16] = "";
  if (f.year == 1) std::snprintf(year, sizeof year, "%02d", c.year % 100);
  else if (f.year == 2) std::snprintf(year, sizeof year, "%04d", c.year);
  std::string t;
  if (f.weekday > 0 && f.step <= 2) {
    std::string w = day_names[weekday(days) - 1];
    t = (f.weekday == 1 ? w.substr(0, 3) : w) + " ";
  }
  char buf[64];
  if (f.step == 4) {
    std::snprintf(buf, sizeof buf, "%04d", c.year);
    return buf;
  }
  if (f.month == 0) {
    if (f.step == 3) std::snprintf(buf, sizeof buf, "%02d%s%s", c.month, *year ? "." : "", year);
    else std::snprintf(buf, sizeof buf, "%02d.%02d.%s", c.day, c.month, year);
    std::string s = buf;
    if (!*year && s.back() == '.') s.pop_back();
    return t + s;
  }
  std::string m = month_names[c.month - 1];
  if (f.month == 1) m = m.substr(0, 3);
  if (f.step == 3) std::snprintf(buf, sizeof buf, "%s%s%s", m.c_str(), *year ? " " : "", year);
  else std::snprintf(buf, sizeof buf, "%d %s%s%s", c.day, m.c_str(), *year ? " " : "", year);
  return t + buf;
}

std::vector<long> calendar_steps(long lo, long hi, int unit, int every) {
  std::vector<long> out;
  if (every < 1 || hi < lo || hi - lo > 3660000) return out;
  CivilDate c = civil_from_days(lo);
  int y = c.year, m = unit == 4 ? 1 : c.month;
  if (unit == 4) y -= ((y % every) + every) % every;
  else m -= (m - 1) % every;
  for (int guard = 0; guard < 100000; ++guard) {
    long d = days_from_civil(1, m, y);
    if (d > hi) break;
    if (d >= lo) out.push_back(d);
    if (unit == 4) y += every;
    else if ((m += every) > 12) m -= 12, ++y;
  }
  return out;
}

std::string time_text(double seconds, bool with_seconds) {
  long s = std::lround(seconds);
  long day = 86400;
  s = ((s % day) + day) % day;
  char buf[32];
  if (with_seconds) std::snprintf(buf, sizeof buf, "%02ld:%02ld:%02ld", s / 3600, s / 60 % 60, s % 60);
  else std::snprintf(buf, sizeof buf, "%02ld:%02ld", s / 3600, s / 60 % 60);
  return buf;
}
