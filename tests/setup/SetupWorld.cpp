#include "SetupWorld.h"

#include <sstream>

#include "install/Install.h"
#include "settings/Configuration.h"
#include "support/QuietProgress.h"

using namespace nimbrel;

namespace {

constexpr const char* kSimulatorFiles =
    "TEXTURE/SUN.BMP TEXTURE/corona1.bmp TEXTURE/Cumulus01.bmp TEXTURE/DAY.bmp TEXTURE/Cld.bmp "
    "TEXTURE/untouched.bmp scenery/world/Texture/base.bmp fs9.exe effects/untouched.fx";
/// sun6 and halo, and of the second options extra.bmp, the simulator lacks.
constexpr const char* kPackFiles =
    "Data/Sun/sun.bmp Data/Sun/sun6.bmp Data/Sun/halo.bmp Data/Clouds/Cld/cld.bmp "
    "Sets/day.0/day.bmp Sets/day.1/day.bmp Sets/day.1/extra.bmp Sets/base.0/base.bmp "
    "Media/icon_Home.bmp Backups/TEX/sun.bmp TempBitmaps/solid.bmp Data/History.nbh "
    "Media/~nimbrel-1-1.tmp nimbrel";

/// Writes files whose text is `start` and their name.
void WriteFiles(const std::filesystem::path& folder, const char* names, const std::string& start) {
  std::istringstream words(names);
  for (std::string name; words >> name;) {
    WriteText(folder / name, start + name);
  }
}

}  // namespace

SetupWorld::SetupWorld() {
  WriteFiles(simulator, kSimulatorFiles, "own ");
  WriteFiles(pack, kPackFiles, "pack ");
  for (const std::string effect : {"s", "l"}) {
    WriteText(simulator / ("effects/FX_contrail_" + effect + ".fx"),
              "[Particle.0]\r\nlifetime = 7,8 ; mine\r\n");
  }
  WriteText(pack / "NB_Information.cfg", InformationText(1));
  WriteText(sources.program, "program");
}

Outcome SetupWorld::Run(std::vector<std::string> arguments, const std::string& answers) const {
  for (std::string& argument : arguments) {
    argument = argument.starts_with('@') ? simulator.string() + argument.substr(1) : argument;
  }
  std::istringstream in(answers);
  std::ostringstream out;
  std::ostringstream err;
  const int status = RunCommand(arguments, sources, {in, out, err});
  return {status, WithAt(out.str()), WithAt(err.str())};
}

std::string SetupWorld::WithAt(std::string text) const {
  const std::string folder = simulator.string();
  for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder)) {
    text.replace(at, folder.size(), "@");
  }
  return text;
}

Tree SetupWorld::Simulator() const {
  Tree tree = Files(simulator);
  std::erase_if(tree, [](const auto& entry) { return entry.first.starts_with("Modules"); });
  return tree;
}

void SetupWorld::Install(std::int16_t option, bool sun, bool contrails) const {
  const Folders folders = FoldersOf((simulator / "Modules/Nimbrel").string());
  for (const std::filesystem::path& inputs : {pack, Nimbrel("")}) {
    WriteCloudInputs(inputs, 1);
  }
  WriteText(Nimbrel("Data/History.nbh"), "as the program does first");
  Choice choice{.option = {}, .sun = sun, .contrails = contrails};
  choice.option.values.fill(option);
  QuietProgress progress;
  const Report report = nimbrel::Install(choice, {.dxt = true, .fast = true},
                                         ReadCatalogue(folders), folders, progress);
  EXPECT_TRUE(report.Whole()) << report.error;
}
