#include "settings/mod_ReadConfiguration.h"

#include <algorithm>
#include <array>
#include <exception>
#include <string>

#include "platform/files.h"
#include "settings/Catalogue.h"
#include "settings/CatalogueReader.h"
#include "settings/Functions_Configuration.h"
#include "settings/mod_Main.h"
#include "shell/MainSwitches.h"
#include "shell/frm_Msg.h"

namespace nimbrel {
namespace {

constexpr const char* kFatalTitle = "Nimbrel Fatal Error";

/// Which readers came to their end.
enum Reader : std::uint8_t { kCumulusReader, kSkyReader, kWaterReader, kMainReader, kReaders };
std::array<bool, kReaders> ReaderDone{};
constexpr std::array<const char*, kReaders> kReaderNames{"Cumulus", "Sky", "Water", "Main"};

/// A value that fits no flag is off like every other, so that the switch can be set anew.
void ReadSwitches(const std::string& file) {
  RequireReadable(file);
  const MainSwitches switches = Switches();
  switches.chk_DXT.SetValue(ReadIniInt("Main", "useDXT", file) == 1 ? 1 : 0);
  switches.chk_Fast.SetValue(ReadIniInt("Main", "useLowRes", file) == 1 ? 1 : 0);
}

[[noreturn]] void EndWithReaderMessage(Reader reader) {
  const std::string name = kReaderNames[reader];
  ShowMessage("Error", kFatalTitle,
              "An error has occured in the Load " + name +
                  " Configuration sub routine\r\rPress the checkmark to Exit",
              true, false, false);
  ShutDownProgram();
}

template <typename Work>
void RunReader(Reader reader, Work work) {
  ReaderDone[reader] = false;
  const std::string file = InformationFile();
  if (!platform::FileExists(file)) {
    ShowMissingInformationFile();
    ShutDownProgram();
  }
  try {
    work(file);
    ReaderDone[reader] = true;
  } catch (const std::exception&) {
    // Answered below: the end of the program must not run inside a handler.
  }
  if (!ReaderDone[reader]) {
    EndWithReaderMessage(reader);
  }
}

void ReadFamily(Reader reader, std::int16_t family) {
  RunReader(reader, [family](const std::string& file) {
    ReadCatalogueFamily(family, file, Pictures::kLoad);
  });
}

}  // namespace

void LoadCumulusConfiguration() { ReadFamily(kCumulusReader, kCloud); }

void LoadSkyConfiguration() { ReadFamily(kSkyReader, kSky); }

void LoadWaterConfiguration() { ReadFamily(kWaterReader, kWater); }

void LoadMainConfiguration() { RunReader(kMainReader, ReadSwitches); }

bool ConfigurationLoaded() {
  return std::all_of(ReaderDone.begin(), ReaderDone.end(), [](bool done) { return done; });
}

void ShowMissingInformationFile() {
  ShowMessage("Error", kFatalTitle,
              "Your NB_Information.cfg file has not been found.\r\r"
              "Nimbrel will not be able to load.\r\r"
              "Press the checkmark to Exit.",
              true, false, false);
}

}  // namespace nimbrel
