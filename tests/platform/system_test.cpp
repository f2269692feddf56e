#include "platform/system.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "platform/checksum.h"

namespace platform {
namespace {

TEST(Dates, ReadAsMoments) {
  setenv("LC_ALL", "C", 1);
  const double half_second = 0.5 / 86400;
  const std::vector dates = {0.0,
                             0.5,
                             -0.5,
                             -1.25,
                             60.0 /* 1900 was no leap year */,
                             61.0,
                             36585.75,
                             45296 + 54429 / 86400.0,
                             45292 - half_second / 2,
                             -2 + half_second / 2,
                             -657434.5,
                             2958465.75};
  const std::vector<std::string> texts = {
      "Dec 30, 12:00:00 AM", "Dec 30, 12:00:00 PM", "Dec 30, 12:00:00 PM", "Dec 29, 06:00:00 AM",
      "Feb 28, 12:00:00 AM", "Mar 1, 12:00:00 AM",  "Feb 29, 06:00:00 PM", "Jan 5, 03:07:09 PM",
      "Jan 1, 12:00:00 AM",  "Dec 30, 12:00:00 AM", "Jan 1, 12:00:00 PM",  "Dec 31, 06:00:00 PM"};
  for (std::size_t i = 0; i < dates.size(); ++i) {
    EXPECT_EQ(texts[i], FormatMoment(dates[i])) << dates[i];
  }
  for (const double none :
       {std::nan(""), HUGE_VAL, -657435.0, 2958466.0, 2958465.9999999, -1e300}) {
    EXPECT_EQ("", FormatMoment(none)) << none;
  }
  unsetenv("LC_ALL");
}

TEST(Checksum, IsPrintedAsToolsPrintIt) {
  const std::string_view abc = "abc";
  EXPECT_EQ("ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad",
            Sha256(std::as_bytes(std::span(abc))));
}

}  // namespace
}  // namespace platform
