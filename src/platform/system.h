#pragma once

#include <cstdint>
#include <string>

namespace platform {

/// Clock and process.

/// The folder that holds the running program, as a host path without trailing separator.
std::string ApplicationFolder();

/// Milliseconds since an arbitrary moment, wrapping at 32 bits.
std::uint32_t GetTickCount();
/// Sleeps, without running events.
void Sleep(std::uint32_t milliseconds);

/// The user's local time as an automation date: whole days since 30 December 1899, and the time of
/// day as the fraction.
double Now();

/// "mmm d, hh:mm:ss AMPM": the month's English short name, the day without a leading zero, a
/// two-digit 12-hour clock, and the locale's morning or afternoon mark ("AM" and "PM" if it has
/// none). Rounded to the second. Empty for a number that is no date: not finite, or outside the
/// years 100 to 9999.
std::string FormatMoment(double date);

/// Ends the process at once: nothing is destroyed, no handler runs.
[[noreturn]] void EndProcess(int code);

}  // namespace platform
