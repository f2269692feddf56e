#include "support/SimulatorTree.h"

#include <gtest/gtest.h>

#include "platform/files.h"
#include "platform/system.h"
#include "settings/Catalogue.h"
#include "settings/Functions_Configuration.h"
#include "settings/Selection.h"
#include "settings/mod_ReadConfiguration.h"
#include "shell/MainSwitches.h"
#include "support/recorders.h"

using namespace nimbrel;

namespace {

constexpr const char* kFamilyKeys[] = {
    "Destination=Texture\\cumulus01.bmp\r\nDestinationCirrus=Texture\r\n",
    "Destination=Texture\r\nsunInhibitRandomizer=0\r\ncontrailsInhibitRandomizer=0\r\n",
    "DestinationWater=Scenery\\World\\texture\r\nDestinationWaves=Texture\r\n"};

std::string Row(const std::string& prefix, const std::string& n) {
  return prefix + "Preview." + n + "=Media\\" + prefix + "_" + n + "\r\n" +  //
         prefix + "Textures." + n + "=Sets\\" + prefix + "." + n + "\r\n" +  //
         prefix + "Description." + n + "=" + prefix + " text " + n + "\r\n" + prefix + "Title." +
         n + "=" + prefix + " title " + n + "\r\n" + prefix + "InhibitRandomizer." + n + "=0\r\n";
}

void ResetProgram() {
  Catalogue = {};
  CurrentSelection = {};
  RandomizerRecord = {};
  HistoryEntries.clear();
  HistoryLastIndex = -1;
  const MainSwitches switches = Switches();
  for (toolkit::CheckBox* box :
       {&switches.chk_Sun, &switches.chk_Contrails, &switches.chk_DXT, &switches.chk_Fast}) {
    box->SetValue(0);
  }
  Recorded = {};
}

}  // namespace

SimulatorTree::SimulatorTree() : root_(temp_ / "FS9"), program_(root_ / "Modules" / "Nimbrel") {
  std::filesystem::create_directories(program_);
  platform::SetApplicationFolder(program_.string());
  SimulatorRoot = program_.string() + "\\..\\..\\";
  ResetProgram();
}

SimulatorTree::~SimulatorTree() {
  platform::SetFailureHook(nullptr);
  platform::SetClock(nullptr);
  platform::SetApplicationFolder("");
}

void SimulatorTree::Load(std::string_view information) const {
  WriteText(Program("NB_Information.cfg"), information);
  LoadCumulusConfiguration();
  LoadSkyConfiguration();
  LoadWaterConfiguration();
  LoadMainConfiguration();
}

std::string InformationText(int highest) {
  std::string text = "; what can be chosen\r\n[Main]\r\nuseDXT=1\r\nuseLowRes=0\r\n";
  for (std::size_t family = 0; family < kFamilies; ++family) {
    text.append("[").append(kFamilySections[family]).append("]\r\n").append(kFamilyKeys[family]);
    for (const OptionGroup& group : kOptionGroups) {
      if (static_cast<std::size_t>(group.family) == family) {
        text += std::string(group.highest_key) + "=" + std::to_string(highest) + "\r\n";
        for (int option = 0; option <= highest; ++option) {
          text += Row(group.prefix, std::to_string(option));
        }
      }
    }
  }
  return text;
}

std::string With(std::string text, std::string_view from, std::string_view to) {
  const std::size_t place = text.find(from);
  EXPECT_NE(std::string::npos, place) << from;
  return place == std::string::npos ? text : text.replace(place, from.size(), to);
}
