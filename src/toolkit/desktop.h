#pragma once

#include <cstdint>
#include <string_view>

namespace toolkit {

/// Services of the user's desktop.

inline constexpr std::uint32_t SND_ASYNC = 0x0001;
inline constexpr std::uint32_t SND_ALIAS = 0x10000;
/// Plays the desktop sound theme's sound for a system alias ("SystemNotification",
/// "SystemExclamation", "SystemAsterisk", "SystemQuestion") and returns at once; silence when
/// there is no sound system. False for an unknown alias. Only SND_ALIAS | SND_ASYNC is served.
bool PlaySoundA(std::string_view alias, std::uint32_t flags);

/// Opens a document with the system's handler and returns at once. False if it is missing or the
/// system has no handler for it. Verb, parameters and folder are not served.
bool ShellExecuteA(std::string_view file);

/// A message box of the system with an error icon, for when the program's own dialog can't be
/// drawn. Returns when the user has closed it.
void SystemErrorBox(std::string_view text, std::string_view caption);

}  // namespace toolkit
