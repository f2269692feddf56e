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

inline constexpr std::uint32_t SND_ASYNC = 0x0001;
inline constexpr std::uint32_t SND_ALIAS = 0x10000;
/// Plays the desktop sound theme's sound for a system alias ("SystemNotification",
/// "SystemExclamation", "SystemAsterisk", "SystemQuestion") and returns at once; silence when
/// there is no sound system. False for an unknown alias. Only SND_ALIAS | SND_ASYNC is served.
bool PlaySoundA(std::string_view alias, std::uint32_t flags);
/// For tests: called with each alias instead of playing it; null plays again.
void SetSoundListener(void (*listener)(std::string_view alias));

/// Opens a document with the system's handler and returns at once. False when it is missing or the
/// system has no handler for it. Verb, parameters and folder are not served.
bool ShellExecuteA(std::string_view file);
/// For tests: called with each file instead of opening it; null opens again.
void SetOpenListener(void (*listener)(std::string_view file));

inline constexpr std::uint32_t LOCALE_IDEFAULTANSICODEPAGE = 4100;
/// The one locale fact served: the ANSI code page in digits, "1252".
std::string GetLocaleInfoA(std::uint32_t lcid, std::uint32_t type);
std::uint32_t GetSystemDefaultLCID();
inline constexpr std::uint32_t TCI_SRCCODEPAGE = 2;
/// The character set of a code page, ANSI_CHARSET (0) for 1252; DEFAULT_CHARSET (1) for others.
std::uint32_t TranslateCharsetInfo(std::uint32_t code_page, std::uint32_t flags);

/// A message box of the system with an error icon, for when the program's own dialog can't be
/// drawn. Returns when the user has closed it.
void SystemErrorBox(std::string_view text, std::string_view caption);

/// Ends the process at once: nothing is destroyed, no handler runs.
[[noreturn]] void EndProcess(int code);

}  // namespace platform
