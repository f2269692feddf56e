#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace toolkit {

/// Services of the user's desktop.

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

}  // namespace toolkit
