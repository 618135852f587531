// Dates on axes: day numbers counted from the BASDAT day, and the texts of date and time labels.
#pragma once
#include <string>
#include <vector>

struct CivilDate {
  int day = 1, month = 1, year = 2000;
};

// True for a real day of the Gregorian calendar (years 1 to 9999).
bool valid_date(int day, int month, int year);
// Days since 1 January 1970 (negative before), and back.
long days_from_civil(int day, int month, int year);
CivilDate civil_from_days(long days);
// Day of the week, 1 Monday .. 7 Sunday.
int weekday(long days);

struct DateForm {
  int year = 2;     // 0 none, 1 two digits, 2 four digits
  int month = 0;    // 0 number, 1 short name, 2 long name
  int weekday = 0;  // 0 none, 1 short name, 2 long name
  int step = 0;     // the unit the labels step by: 0/1 day, 2 week, 3 month, 4 year
};

// The label text of a day ('days' since 1 January 1970).
std::string date_text(long days, const DateForm &f);
// Labels on whole months or years between lo and hi (days since 1970): the first day of every
// 'every'-th month or year.
std::vector<long> calendar_steps(long lo, long hi, int unit, int every);
// A time of day from seconds: "hh:mm", or "hh:mm:ss" when seconds are wanted.
std::string time_text(double seconds, bool with_seconds);
