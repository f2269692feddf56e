#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/FileStatus.h"

namespace platform {
class IniFile;
}

namespace nimbrel {

/// The value of a key as a 32-bit number, 0 if absent.
std::int32_t ReadIniInt(std::string_view section, std::string_view key,
                        const platform::IniFile& file);
/// The value of a key, at most 511 bytes, null characters as blanks, trimmed.
std::string ReadIniString(std::string_view section, std::string_view key,
                          const platform::IniFile& file);
/// Sets a value; IniFile::Save stores it.
platform::FileStatus WriteIniString(std::string_view section, std::string_view key,
                                    std::string_view value, platform::IniFile& file);

/// Key of one field of a group's row: prefix, field name, full stop, index in plain decimal.
std::string RowKey(std::string_view prefix, std::string_view field, std::int16_t option);

}  // namespace nimbrel
