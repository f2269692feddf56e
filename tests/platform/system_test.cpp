#include "platform/system.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <string>
#include <vector>

#include "platform/files.h"
#include "support/TempFolder.h"

namespace platform {
namespace {

/// An environment variable for the length of a test.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    const char* old = std::getenv(name);
    had_ = old != nullptr;
    old_ = had_ ? old : "";
    setenv(name, value, 1);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable() { had_ ? setenv(name_, old_.c_str(), 1) : unsetenv(name_); }

 private:
  const char* name_;
  bool had_;
  std::string old_;
};

TEST(Dates, ComeApart) {
  struct Row {
    double date;
    DateParts parts;
  };
  const double half_second = 0.5 / 86400;
  for (const Row& row : std::vector<Row>{{0, {1899, 12, 30, 0, 0, 0}},
                                         {0.5, {1899, 12, 30, 12, 0, 0}},
                                         {-0.5, {1899, 12, 30, 12, 0, 0}},
                                         {-1.25, {1899, 12, 29, 6, 0, 0}},
                                         {1, {1899, 12, 31, 0, 0, 0}},
                                         {36526.75, {2000, 1, 1, 18, 0, 0}},
                                         {36585, {2000, 2, 29, 0, 0, 0}},
                                         {2, {1900, 1, 1, 0, 0, 0}},
                                         {60, {1900, 2, 28, 0, 0, 0}},
                                         {61, {1900, 3, 1, 0, 0, 0}},
                                         {45291 + 1 - half_second / 2, {2024, 1, 1, 0, 0, 0}},
                                         {-1 - (1 - half_second / 2), {1899, 12, 30, 0, 0, 0}},
                                         {45291.9999, {2023, 12, 31, 23, 59, 51}},
                                         {-657434, {100, 1, 1, 0, 0, 0}},
                                         {-657434.5, {100, 1, 1, 12, 0, 0}},
                                         {2958465.75, {9999, 12, 31, 18, 0, 0}}}) {
    DateParts got{};
    ASSERT_TRUE(SplitDate(row.date, got)) << row.date;
    const auto list = [](const DateParts& p) {
      return std::vector{p.year, p.month, p.day, p.hour, p.minute, p.second};
    };
    EXPECT_EQ(list(row.parts), list(got)) << row.date;
  }
}

TEST(Dates, ThatAreNoneAreRefused) {
  DateParts parts{};
  for (const double date : {std::nan(""), std::numeric_limits<double>::infinity(), -657435.0,
                            2958466.0, 2958465.9999999, 1e300, -1e300}) {
    EXPECT_FALSE(SplitDate(date, parts)) << date;
    EXPECT_EQ("", FormatMoment(date)) << date;
  }
}

TEST(Dates, ReadAsMoments) {
  const Variable plain("LC_ALL", "C");
  for (const auto& [date, text] : std::vector<std::pair<double, const char*>>{
           {45296 + (15 * 3600 + 7 * 60 + 9) / 86400.0, "Jan 5, 03:07:09 PM"},
           {45296, "Jan 5, 12:00:00 AM"},
           {45296.5, "Jan 5, 12:00:00 PM"},
           {45656 + 86399 / 86400.0, "Dec 30, 11:59:59 PM"},
           {45444 + 3600 / 86400.0, "Jun 1, 01:00:00 AM"}}) {
    EXPECT_EQ(text, FormatMoment(date));
  }
}

double Local(std::time_t moment) {
  std::tm local{};
  localtime_r(&moment, &local);
  const std::time_t as_if_universal = timegm(&local);
  return 25569 + static_cast<double>(as_if_universal) / 86400;
}

TEST(Clock, IsTheUsersOwn) {
  const Variable zone("TZ", "ODD-07:30");
  tzset();
  const double before = Local(std::time(nullptr));
  const double now = Now();
  const double after = Local(std::time(nullptr) + 1);
  EXPECT_LE(before, now);
  EXPECT_LE(now, after);
  SetClock([] { return 36526.25; });
  EXPECT_EQ(36526.25, Now());
  SetClock(nullptr);
}

TEST(Clock, TicksInMillisecondsAndSleeps) {
  const std::uint32_t start = GetTickCount();
  Sleep(30);
  EXPECT_GE(GetTickCount() - start, 30U);
}

TEST(Program, KnowsItsFolder) {
  EXPECT_TRUE(FileExists(ApplicationFolder() + "\\test_platform"));
  const TempFolder folder;
  SetApplicationFolder(folder.string());
  EXPECT_EQ(folder.string(), ApplicationFolder());
  SetApplicationFolder("");
  EXPECT_TRUE(FileExists(ApplicationFolder() + "\\test_platform"));
}

TEST(Program, EndsAtOnce) {
  const auto end = [] {
    std::atexit([] { std::_Exit(7); });
    EndProcess(3);
  };
  EXPECT_EXIT(end(), testing::ExitedWithCode(3), "");
}

}  // namespace
}  // namespace platform
