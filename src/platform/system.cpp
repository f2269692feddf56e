#include "platform/system.h"

#include <langinfo.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>

namespace platform {
namespace {

constexpr double kSecondsPerDay = 86400;
constexpr double kFirstDay = -657434;  ///< 1 January 100
constexpr double kLastDay = 2958465;   ///< 31 December 9999

std::chrono::sys_days DayZero() {
  using namespace std::chrono;
  return sys_days{year{1899} / December / day{30}};
}

/// The locale's mark for morning or afternoon; empty if it has none in UTF-8.
std::string LocaleMark(bool afternoon) {
  const locale_t user = newlocale(LC_TIME_MASK | LC_CTYPE_MASK, "", nullptr);
  if (user == nullptr) {
    return {};
  }
  const bool utf8 = std::string_view(nl_langinfo_l(CODESET, user)) == "UTF-8";
  const std::string mark = nl_langinfo_l(afternoon ? PM_STR : AM_STR, user);
  freelocale(user);
  const bool ascii =
      std::all_of(mark.begin(), mark.end(), [](char c) { return static_cast<signed char>(c) > 0; });
  return utf8 || ascii ? mark : std::string();
}

std::string HalfDayMark(bool afternoon) {
  std::string mark = LocaleMark(afternoon);
  if (!mark.empty()) {
    return mark;
  }
  return afternoon ? "PM" : "AM";
}

/// The parts of a date that a moment shows, by the proleptic Gregorian calendar.
struct Moment {
  unsigned month;  ///< 1 to 12
  unsigned day;    ///< 1 to 31
  int second;      ///< of the day
};

/// None for a number that is no date.
std::optional<Moment> SplitDate(double date) {
  if (!(date > kFirstDay - 1 && date < kLastDay + 1)) {
    return {};
  }
  // The fraction is the time of day also below day zero: it counts forward from the whole day.
  double whole = std::trunc(date);
  double seconds = std::round(std::abs(date - whole) * kSecondsPerDay);
  if (seconds >= kSecondsPerDay) {
    whole += 1;
    seconds = 0;
  }
  if (whole < kFirstDay || whole > kLastDay) {
    return {};
  }
  const std::chrono::year_month_day calendar{DayZero() +
                                             std::chrono::days{static_cast<int>(whole)}};
  return Moment{static_cast<unsigned>(calendar.month()), static_cast<unsigned>(calendar.day()),
                static_cast<int>(seconds)};
}

}  // namespace

std::string ApplicationFolder() {
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? std::string(".") : program.parent_path().string();
}

std::uint32_t GetTickCount() {
  const auto since = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::uint32_t>(
      std::chrono::duration_cast<std::chrono::milliseconds>(since).count());
}

void Sleep(std::uint32_t milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

double Now() {
  using namespace std::chrono;
  const auto now = system_clock::now();
  const std::time_t seconds = system_clock::to_time_t(floor<std::chrono::seconds>(now));
  std::tm local{};
  localtime_r(&seconds, &local);
  const sys_days today{year{local.tm_year + 1900} / month{static_cast<unsigned>(local.tm_mon + 1)} /
                       day{static_cast<unsigned>(local.tm_mday)}};
  const duration<double> fraction = now - floor<std::chrono::seconds>(now);
  const double second_of_day =
      local.tm_hour * 3600 + local.tm_min * 60 + std::min(local.tm_sec, 59) + fraction.count();
  return static_cast<double>((today - DayZero()).count()) + second_of_day / kSecondsPerDay;
}

std::string FormatMoment(double date) {
  static constexpr std::array<const char*, 12> kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                       "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const std::optional<Moment> moment = SplitDate(date);
  if (!moment) {
    return {};
  }
  std::array<char, 48> text{};
  const int hour = moment->second / 3600;
  std::snprintf(text.data(), text.size(), "%s %u, %02d:%02d:%02d ", kMonths.at(moment->month - 1),
                moment->day, hour % 12 == 0 ? 12 : hour % 12, moment->second / 60 % 60,
                moment->second % 60);
  return text.data() + HalfDayMark(hour >= 12);
}

void EndProcess(int code) { std::_Exit(code); }

}  // namespace platform
