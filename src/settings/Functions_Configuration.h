#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace nimbrel {

/// A failure that ends the action it happens in. The click that started the action goes back to
/// normal; who has more to say about it catches it on the way.
class RunTimeFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// ApplicationFolder + "\NB_Information.cfg".
std::string InformationFile();
/// ApplicationFolder followed by "\..\..\". Set once at start-up by StartProgram; every write into
/// the simulator goes through it.
extern std::string SimulatorRoot;

/// Key of one field of a group's row: prefix, field name, full stop, index in plain decimal.
std::string RowKey(std::string_view prefix, std::string_view field, std::int16_t option);
inline constexpr std::string_view kInhibitField = "InhibitRandomizer";

/// Throws RunTimeFailure when the file is there and the system will not read it: every key would
/// count as absent. What is read once stands from then on.
void RequireReadable(std::string_view file);

/// The value of a key as a 32-bit number, 0 when absent.
std::int32_t ReadIniInt(std::string_view section, std::string_view key, std::string_view file);
/// The value of a key, at most 511 characters, null characters as blanks, trimmed.
std::string ReadIniString(std::string_view section, std::string_view key, std::string_view file);
platform::FileStatus WriteIniString(std::string_view section, std::string_view key,
                                    std::string_view value, std::string_view file);

}  // namespace nimbrel
