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
#include <string>
#include <system_error>
#include <thread>

namespace platform {
namespace {

constexpr double kSecondsPerDay = 86400;
constexpr double kFirstDay = -657434;  ///< 1 January 100
constexpr double kLastDay = 2958465;   ///< 31 December 9999

double (*test_clock)() = nullptr;

std::string& GivenApplicationFolder() {
  static std::string folder;
  return folder;
}

std::string ExecutableFolder() {
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? std::string(".") : program.parent_path().string();
}

std::chrono::sys_days DayZero() {
  using namespace std::chrono;
  return sys_days{year{1899} / December / day{30}};
}

/// The user's word for morning or afternoon, empty when there is none in UTF-8.
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

double SystemNow() {
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

}  // namespace

std::string ApplicationFolder() {
  if (!GivenApplicationFolder().empty()) {
    return GivenApplicationFolder();
  }
  static const std::string own = ExecutableFolder();
  return own;
}

void SetApplicationFolder(std::string_view folder) { GivenApplicationFolder() = folder; }

Version ProgramVersion() {
  return {NIMBREL_VERSION_MAJOR, NIMBREL_VERSION_MINOR, NIMBREL_VERSION_REVISION};
}

std::uint32_t GetTickCount() {
  const auto since = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::uint32_t>(
      std::chrono::duration_cast<std::chrono::milliseconds>(since).count());
}

void Sleep(std::uint32_t milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

double Now() { return test_clock != nullptr ? test_clock() : SystemNow(); }

void SetClock(double (*now)()) { test_clock = now; }

bool SplitDate(double date, DateParts& parts) {
  if (!(date > kFirstDay - 1 && date < kLastDay + 1)) {
    return false;
  }
  // The fraction is the time of day also below day zero: it counts forward from the whole day.
  double whole = std::trunc(date);
  double seconds = std::round(std::abs(date - whole) * kSecondsPerDay);
  if (seconds >= kSecondsPerDay) {
    whole += 1;
    seconds = 0;
  }
  if (whole < kFirstDay || whole > kLastDay) {
    return false;
  }
  const std::chrono::year_month_day calendar{DayZero() +
                                             std::chrono::days{static_cast<int>(whole)}};
  const int second = static_cast<int>(seconds);
  parts = {static_cast<int>(calendar.year()),
           static_cast<int>(static_cast<unsigned>(calendar.month())),
           static_cast<int>(static_cast<unsigned>(calendar.day())),
           second / 3600,
           second / 60 % 60,
           second % 60};
  return true;
}

std::string FormatMoment(double date) {
  static constexpr std::array<const char*, 12> kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                       "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  DateParts parts{};
  if (!SplitDate(date, parts)) {
    return {};
  }
  std::array<char, 48> text{};
  const int hour = parts.hour % 12 == 0 ? 12 : parts.hour % 12;
  std::snprintf(text.data(), text.size(), "%s %d, %02d:%02d:%02d ",
                kMonths[static_cast<std::size_t>(parts.month - 1)], parts.day, hour, parts.minute,
                parts.second);
  return text.data() + HalfDayMark(parts.hour >= 12);
}

void EndProcess(int code) { std::_Exit(code); }

}  // namespace platform
