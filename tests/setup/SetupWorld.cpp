#include "SetupWorld.h"

#include <sstream>

#include "install/mod_Install.h"
#include "platform/system.h"
#include "settings/Functions_Configuration.h"
#include "settings/Selection.h"
#include "settings/mod_ReadConfiguration.h"
#include "shell/MainSwitches.h"
#include "support/BmpFile.h"
#include "support/SimulatorTree.h"

namespace fs = std::filesystem;
using namespace nimbrel;

namespace {

constexpr const char* kSimulatorFiles[] = {"TEXTURE/SUN.BMP",
                                           "TEXTURE/corona1.bmp",
                                           "TEXTURE/Cumulus01.bmp",
                                           "TEXTURE/DAY.bmp",
                                           "TEXTURE/Cld.bmp",
                                           "TEXTURE/untouched.bmp",
                                           "scenery/world/Texture/base.bmp",
                                           "fs9.exe",
                                           "effects/untouched.fx"};
/// sun6 and halo, and of the second options extra.bmp, the simulator has not.
constexpr const char* kPackFiles[] = {
    "Data/Sun/sun.bmp",    "Data/Sun/sun6.bmp",  "Data/Sun/halo.bmp",    "Data/Clouds/Cld/cld.bmp",
    "Sets/day.0/day.bmp",  "Sets/day.1/day.bmp", "Sets/day.1/extra.bmp", "Sets/base.0/base.bmp",
    "Media/icon_Home.bmp", "Backups/TEX/sun.bmp"};

void WriteInputs(const fs::path& pack) {
  for (const std::string input : {"solid", "stratus", "wispy"}) {
    for (const unsigned option : {0U, 1U}) {
      const auto plain = [&](int, int) { return 100 + option; };
      const fs::path path = pack / "Sets" / (input + "." + std::to_string(option));
      WriteText(path.string() + "_Fast.bmp", ColorBmp(256, 256, plain).Bytes());
      WriteText(path.string() + "_a_Fast.bmp", GreyBmp(256, 256, false, plain).Bytes());
    }
  }
}

}  // namespace

Tree TreeOf(const fs::path& folder) {
  Tree tree;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
    tree[entry.path().lexically_relative(folder)] =
        entry.is_regular_file() ? ReadText(entry.path()) : "/";
  }
  return tree;
}

SetupWorld::SetupWorld() {
  for (const std::string file : kSimulatorFiles) {
    WriteText(simulator / file, "own " + file);
  }
  for (const std::string effect : {"s", "l"}) {
    WriteText(simulator / ("effects/FX_contrail_" + effect + ".fx"),
              "[Particle.0]\r\nlifetime = 7,8 ; mine\r\n");
  }
  for (const std::string file : kPackFiles) {
    WriteText(pack / file, "pack " + file);
  }
  WriteText(pack / "NB_Information.cfg", InformationText(1));
  WriteText(sources.program, "program");
}

SetupWorld::~SetupWorld() { platform::SetApplicationFolder(""); }

Outcome SetupWorld::Run(const std::vector<std::string>& arguments,
                        const std::string& answers) const {
  std::istringstream in(answers);
  std::ostringstream out;
  std::ostringstream err;
  const int status = RunSetup(arguments, sources, {in, out, err});
  return {status, out.str(), err.str()};
}

InstallWorld::InstallWorld() { WriteInputs(pack); }

void InstallWorld::Install(int option, bool sun, bool contrails) const {
  platform::SetApplicationFolder(Nimbrel("").parent_path().string());
  SimulatorRoot = platform::ApplicationFolder() + "\\..\\..\\";
  LoadCumulusConfiguration();
  LoadSkyConfiguration();
  LoadWaterConfiguration();
  WriteText(Nimbrel("Data/History.nbh"), "as the program does first");
  for (auto& family : CurrentSelection) {
    family.fill(static_cast<std::int16_t>(option));
  }
  Switches().chk_Fast.SetValue(1);
  Switches().chk_Sun.SetValue(sun ? 1 : 0);
  Switches().chk_Contrails.SetValue(contrails ? 1 : 0);
  InstallSettings();
}

Tree SetupWorld::Simulator() const {
  Tree tree = TreeOf(simulator);
  std::erase_if(tree, [](const auto& entry) { return entry.first.starts_with("Modules"); });
  return tree;
}
