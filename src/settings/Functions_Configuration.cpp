#include "settings/Functions_Configuration.h"

#include <algorithm>

#include "platform/inifile.h"
#include "platform/text.h"

namespace nimbrel {
namespace {

constexpr std::size_t kValueBuffer = 512;  ///< bytes, the terminating one included

}  // namespace

std::int32_t ReadIniInt(std::string_view section, std::string_view key,
                        const platform::IniFile& file) {
  return platform::GetPrivateProfileIntA(section, key, 0, file);
}

std::string ReadIniString(std::string_view section, std::string_view key,
                          const platform::IniFile& file) {
  std::string value = platform::GetPrivateProfileStringA(section, key, " ", kValueBuffer, file);
  std::replace(value.begin(), value.end(), '\0', ' ');
  return platform::Trim(value);
}

platform::FileStatus WriteIniString(std::string_view section, std::string_view key,
                                    std::string_view value, platform::IniFile& file) {
  return platform::WritePrivateProfileStringA(section, key, value, file);
}

std::string RowKey(std::string_view prefix, std::string_view field, std::int16_t option) {
  std::string key(prefix);
  key += field;
  key += '.';
  key += std::to_string(option);
  return key;
}

}  // namespace nimbrel
