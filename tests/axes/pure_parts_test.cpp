// The pure helpers of the axes: the calendar, Smith chart conversions, circles through three
// points, and the overlap test that keeps contour labels apart.
#include "axes/date_labels.h"
#include "axes/polar.h"
#include "grids/contour.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(Calendar, DayNumbersRoundTripAndKnownDays) {
  EXPECT_EQ(days_from_civil(1, 1, 1970), 0);
  EXPECT_EQ(days_from_civil(1, 1, 2000), 10957);
  EXPECT_EQ(days_from_civil(1, 3, 2024) - days_from_civil(28, 2, 2024), 2);  // a leap year
  EXPECT_EQ(days_from_civil(1, 3, 1900) - days_from_civil(28, 2, 1900), 1);  // no leap year
  for (long d = -700000; d < 2900000; d += 997) {
    CivilDate c = civil_from_days(d);
    ASSERT_TRUE(valid_date(c.day, c.month, c.year)) << d;
    ASSERT_EQ(days_from_civil(c.day, c.month, c.year), d);
  }
  EXPECT_EQ(weekday(days_from_civil(23, 11, 2026)), 1);  // a Monday
  EXPECT_EQ(weekday(days_from_civil(1, 1, 2000)), 6);    // a Saturday
  EXPECT_TRUE(valid_date(29, 2, 2024));
  EXPECT_FALSE(valid_date(29, 2, 2023));
  EXPECT_FALSE(valid_date(31, 4, 2023));
  EXPECT_FALSE(valid_date(1, 13, 2023));
  EXPECT_FALSE(valid_date(0, 1, 2023));
}

TEST(Calendar, DateTextsInEveryForm) {
  long d = days_from_civil(5, 3, 2024);
  EXPECT_EQ(date_text(d, {}), "05.03.2024");
  EXPECT_EQ(date_text(d, {1, 0, 0, 0}), "05.03.24");
  EXPECT_EQ(date_text(d, {0, 0, 0, 0}), "05.03");
  EXPECT_EQ(date_text(d, {2, 1, 0, 0}), "5 Mar 2024");
  EXPECT_EQ(date_text(d, {2, 2, 0, 0}), "5 March 2024");
  EXPECT_EQ(date_text(d, {2, 0, 1, 0}), "Tue 05.03.2024");
  EXPECT_EQ(date_text(d, {2, 1, 0, 3}), "Mar 2024");
  EXPECT_EQ(date_text(d, {2, 0, 0, 3}), "03.2024");
  EXPECT_EQ(date_text(d, {2, 0, 0, 4}), "2024");
  EXPECT_EQ(time_text(3600 * 13 + 60 * 5, false), "13:05");
  EXPECT_EQ(time_text(3600 * 25 + 7, true), "01:00:07");
  EXPECT_EQ(time_text(-60, false), "23:59");
}

TEST(Calendar, MonthAndYearSteps) {
  long lo = days_from_civil(15, 1, 2024), hi = days_from_civil(15, 7, 2024);
  std::vector<long> m = calendar_steps(lo, hi, 3, 1);
  ASSERT_EQ(m.size(), 6u);  // 1 Feb .. 1 Jul
  EXPECT_EQ(m[0], days_from_civil(1, 2, 2024));
  EXPECT_EQ(m[5], days_from_civil(1, 7, 2024));
  std::vector<long> q = calendar_steps(days_from_civil(1, 1, 2024), days_from_civil(31, 12, 2024), 3, 3);
  ASSERT_EQ(q.size(), 4u);
  EXPECT_EQ(q[1], days_from_civil(1, 4, 2024));
  std::vector<long> y = calendar_steps(days_from_civil(1, 6, 1990), days_from_civil(1, 6, 2031), 4, 10);
  ASSERT_EQ(y.size(), 4u);
  EXPECT_EQ(y[0], days_from_civil(1, 1, 2000));
  EXPECT_TRUE(calendar_steps(10, 5, 3, 1).empty());
}

TEST(SmithChart, ConversionsAndTheirInverse) {
  double u, v, r, x;
  ASSERT_TRUE(smith_from_impedance(1, 0, u, v));  // matched: the centre
  EXPECT_NEAR(u, 0, 1e-12);
  EXPECT_NEAR(v, 0, 1e-12);
  ASSERT_TRUE(smith_from_impedance(0, 1, u, v));  // pure inductance: top of the rim
  EXPECT_NEAR(u, 0, 1e-12);
  EXPECT_NEAR(v, 1, 1e-12);
  ASSERT_TRUE(smith_from_impedance(0, 0, u, v));  // short circuit: left end
  EXPECT_NEAR(u, -1, 1e-12);
  for (double rr : {0.0, 0.2, 1.0, 3.0})
    for (double xx : {-2.0, -0.5, 0.0, 0.7, 5.0}) {
      ASSERT_TRUE(smith_from_impedance(rr, xx, u, v));
      EXPECT_LE(std::hypot(u, v), 1 + 1e-12);
      ASSERT_TRUE(impedance_from_smith(u, v, r, x));
      EXPECT_NEAR(r, rr, 1e-9);
      EXPECT_NEAR(x, xx, 1e-9);
    }
  EXPECT_FALSE(impedance_from_smith(1, 0, r, x));  // open circuit
  EXPECT_FALSE(smith_from_impedance(-1, 0, u, v));
}

TEST(Circles, ThroughThreePoints) {
  Pt c;
  double r;
  ASSERT_TRUE(circle_through({0, 0}, {2, 0}, {0, 2}, c, r));
  EXPECT_NEAR(c.x, 1, 1e-12);
  EXPECT_NEAR(c.y, 1, 1e-12);
  EXPECT_NEAR(r, std::sqrt(2.0), 1e-12);
  ASSERT_TRUE(circle_through({5, 0}, {-5, 0}, {0, 5}, c, r));
  EXPECT_NEAR(r, 5, 1e-12);
  EXPECT_FALSE(circle_through({0, 0}, {1, 1}, {2, 2}, c, r));
  EXPECT_FALSE(circle_through({1, 1}, {1, 1}, {3, 2}, c, r));
}

TEST(ContourLabelBoxes, OverlapOfTurnedRectangles) {
  auto a = label_corners({0, 0}, 100, 20, 0);
  EXPECT_NEAR(a[0].x, -50, 1e-9);
  EXPECT_NEAR(a[2].y, 10, 1e-9);
  EXPECT_TRUE(quads_overlap(a, label_corners({90, 0}, 100, 20, 0)));
  EXPECT_FALSE(quads_overlap(a, label_corners({101, 0}, 100, 20, 0)));
  EXPECT_FALSE(quads_overlap(a, label_corners({0, 21}, 100, 20, 0)));
  // a turned box beside the end: its corner reaches in only when close enough
  EXPECT_FALSE(quads_overlap(a, label_corners({0, 60}, 100, 20, 90)));
  EXPECT_TRUE(quads_overlap(a, label_corners({0, 40}, 100, 20, 90)));
  EXPECT_TRUE(quads_overlap(a, label_corners({40, 20}, 100, 20, 45)));
  EXPECT_FALSE(quads_overlap(a, label_corners({80, 60}, 100, 20, 45)));
}

TEST(ChartTexts, AnglesAndNumbers) {
  EXPECT_EQ(angle_text(30), "30\u00b0");
  EXPECT_EQ(angle_text(22.5), "22.5\u00b0");
  EXPECT_EQ(chart_number(0.2), "0.2");
  EXPECT_EQ(chart_number(5), "5");
  EXPECT_EQ(chart_number(-1.5), "\u22121.5");
}
