#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/FileStatus.h"
#include "settings/Choice.h"
#include "settings/Groups.h"

namespace platform {
class IniFile;
}

namespace nimbrel {

struct Catalogue;
struct Folders;

/// Reading and writing NB_Information.cfg.

/// Reads one family into the catalogue. Throws ActionFailed for what it can't accept, and leaves
/// the family half read then.
void ReadFamily(Family family, const platform::IniFile& file, Catalogue& catalogue);

/// All three families. Throws ActionFailed, also if the file is missing or unreadable.
Catalogue ReadCatalogue(const Folders& folders);

/// The two switches of section Main; a switch is on at exactly 1.
MachineSwitches ReadMachineSwitches(const platform::IniFile& file);

/// Writes the two switches. kNoSource if there is no information file: none is made then.
platform::FileStatus WriteMachineSwitches(const MachineSwitches& switches, const Folders& folders);

/// Writes the inhibit flag of every option, the sun's and the contrails'. kNoSource if there is no
/// information file: none is made then.
platform::FileStatus WriteInhibitFlags(const Catalogue& catalogue, const Folders& folders);

}  // namespace nimbrel
