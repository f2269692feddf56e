#include "settings/Functions_Configuration.h"

#include <algorithm>

#include "platform/inifile.h"
#include "platform/system.h"
#include "platform/text.h"

namespace nimbrel {
namespace {
constexpr std::size_t kValueBuffer = 512;  // characters, the terminating one included
}

std::string SimulatorRoot;

std::string InformationFile() { return platform::ApplicationFolder() + "\\NB_Information.cfg"; }

std::string RowKey(std::string_view prefix, std::string_view field, std::int16_t option) {
  std::string key(prefix);
  key += field;
  key += '.';
  key += std::to_string(option);
  return key;
}

std::int32_t ReadIniInt(std::string_view section, std::string_view key, std::string_view file) {
  return platform::GetPrivateProfileIntA(section, key, 0, file);
}

std::string ReadIniString(std::string_view section, std::string_view key, std::string_view file) {
  std::string value = platform::GetPrivateProfileStringA(section, key, " ", kValueBuffer, file);
  std::replace(value.begin(), value.end(), '\0', ' ');
  return platform::Trim(value);
}

void RequireReadable(std::string_view file) {
  const platform::FileStatus status = platform::ReadProfile(file);
  if (platform::IsUnread(status)) {
    throw RunTimeFailure(std::string(file) + " " + std::string(platform::Describe(status)));
  }
}

platform::FileStatus WriteIniString(std::string_view section, std::string_view key,
                                    std::string_view value, std::string_view file) {
  return platform::WritePrivateProfileStringA(section, key, value, file);
}

}  // namespace nimbrel
