#include "settings/mod_WriteConfiguration.h"

#include <string>

#include "platform/files.h"
#include "platform/inifile.h"
#include "settings/Catalogue.h"
#include "settings/Functions_Configuration.h"
#include "settings/mod_Main.h"
#include "settings/mod_ReadConfiguration.h"
#include "shell/MainSwitches.h"
#include "shell/frm_Msg.h"

namespace nimbrel {
namespace {

void WriteGroupFlags(const OptionGroup& group, const std::string& file) {
  const auto family = static_cast<std::size_t>(group.family);
  const std::int16_t highest =
      Catalogue.HighestIndex[family][static_cast<std::size_t>(group.index)];
  for (std::int32_t option = 0; option <= highest; ++option) {
    const auto index = static_cast<std::int16_t>(option);
    const TextureOption& row = Catalogue.At(group.family, group.index, index);
    WriteIniString(kFamilySections[family], RowKey(group.prefix, kInhibitField, index),
                   std::to_string(row.InhibitRandomizer), file);
  }
}

void WriteFamilyFlags(std::int16_t family, const std::string& file) {
  for (const OptionGroup& group : kOptionGroups) {
    if (group.family == family) {
      WriteGroupFlags(group, file);
    }
  }
}

void WriteSkySwitchFlags(const std::string& file) {
  const char* section = kFamilySections[static_cast<std::size_t>(kSky)];
  WriteIniString(section, "sunInhibitRandomizer", std::to_string(Catalogue.sunInhibitRandomizer),
                 file);
  WriteIniString(section, "contrailsInhibitRandomizer",
                 std::to_string(Catalogue.contrailsInhibitRandomizer), file);
}

/// The end of the program writes the flags once more. Where the folder takes no new file, that
/// would find the information file missing again and end the program again, without an end.
void EndProgramOnce() {
  static bool ending = false;
  if (ending) {
    return;
  }
  struct Mark {
    Mark() { ending = true; }
    ~Mark() { ending = false; }
  } const mark;
  ShowMissingInformationFile();
  ShutDownProgram();
}

}  // namespace

// Before all four readers came to their end, check boxes and flags hold values that were never read
// from the file: writing them would overwrite the user's own, so both operations do nothing then.

void WriteMainFlags() {
  if (!ConfigurationLoaded()) {
    return;
  }
  const std::string file = InformationFile();
  if (!platform::FileExists(file)) {
    ShowMissingInformationFile();
  }
  const platform::IniBatch batch(file);
  const MainSwitches switches = Switches();
  WriteIniString("Main", "useDXT", IsOn(switches.chk_DXT) ? "1" : "0", file);
  WriteIniString("Main", "useLowRes", IsOn(switches.chk_Fast) ? "1" : "0", file);
}

void WriteInhibitFlags() {
  if (!ConfigurationLoaded()) {
    return;
  }
  const std::string file = InformationFile();
  if (!platform::FileExists(file)) {
    EndProgramOnce();
    return;
  }
  const platform::IniBatch batch(file);
  WriteFamilyFlags(kWater, file);
  WriteFamilyFlags(kSky, file);
  WriteSkySwitchFlags(file);
  WriteFamilyFlags(kCloud, file);
}

}  // namespace nimbrel
