#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

/// Facts and services of the machine and of the running program.

/// The folder that holds the program, as a host path without trailing separator.
std::string ApplicationFolder();
/// For tests: another folder than the executable's. Empty text takes the executable's again.
void SetApplicationFolder(std::string_view folder);

struct Version {
  int major;
  int minor;
  int revision;
};
Version ProgramVersion();

/// Milliseconds since an arbitrary moment, wrapping at 32 bits.
std::uint32_t GetTickCount();
/// Sleeps, without running events.
void Sleep(std::uint32_t milliseconds);

/// The present moment of the user's clock as an automation date: whole days since 30 December
/// 1899, the local time of day as the fraction.
double Now();
/// For tests: a clock to ask instead; null asks the system again.
void SetClock(double (*now)());

/// An automation date taken apart, by the proleptic Gregorian calendar, rounded to the second.
struct DateParts {
  int year;   ///< 100 to 9999
  int month;  ///< 1 to 12
  int day;    ///< 1 to 31
  int hour;   ///< 0 to 23
  int minute;
  int second;
};
/// False for a number that is no date: not finite, or outside the years 100 to 9999.
bool SplitDate(double date, DateParts& parts);

/// "mmm d, hh:mm:ss AMPM": the month's English short name, the day without a leading zero, a
/// two-digit 12-hour clock, and the locale's morning or afternoon mark ("AM" and "PM" where it has
/// none). Empty text for a number that is no date.
std::string FormatMoment(double date);

/// Ends the process at once: nothing is destroyed, no handler runs.
[[noreturn]] void EndProcess(int code);

}  // namespace platform
