#include "support/World.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "platform/FileSystem.h"
#include "platform/inifile.h"
#include "settings/Configuration.h"
#include "support/BmpFile.h"

using namespace nimbrel;
namespace fs = std::filesystem;

namespace {

constexpr PerFamily<const char*> kFamilyText{{
    "[CloudTextures]\r\nDestination=Texture\\cumulus01.bmp\r\nDestinationCirrus=Texture\r\n",
    "[SkyTextures]\r\nDestination=Texture\r\nsunInhibitRandomizer=0\r\n"
    "contrailsInhibitRandomizer=0\r\n",
    "[WaterTextures]\r\nDestinationWater=Scenery\\World\\texture\r\nDestinationWaves=Texture\r\n",
}};

/// The rows of an option, with @ for its group's prefix and # for its number.
constexpr std::string_view kRows =
    "@Preview.#=Media\\@_#\r\n@Textures.#=Sets\\@.#\r\n@Description.#=@ text #\r\n"
    "@Title.#=@ title #\r\n@InhibitRandomizer.#=0\r\n";

std::string Rows(const std::string& prefix, const std::string& number) {
  std::string text;
  for (const char c : kRows) {
    text += c == '@' ? prefix : c == '#' ? number : std::string(1, c);
  }
  return text;
}

constexpr bool IsCloudInput(Group group) { return group < Group::kCirrus; }

/// Calls write(group's facts, "Sets\prefix.N" as a host's path, option) for each option.
template <class Write>
void ForEachSet(const fs::path& program, int highest, Write write) {
  for (const GroupFacts& facts : kGroups) {
    for (int option = 0; option <= highest; ++option) {
      write(facts, program / "Sets" / (std::string(facts.prefix) + "." + std::to_string(option)),
            option);
    }
  }
}

}  // namespace

World::World() : World(fs::path()) {}

World::World(const fs::path& folder)
    : temp_(folder.empty() ? std::make_shared<TempFolder>() : nullptr),
      simulator_((temp_ ? temp_->path() : folder) / "Simulator"),
      program_(simulator_ / "Modules" / "Nimbrel") {
  fs::create_directories(program_);
}

void World::WriteInformation(std::string_view text) const {
  WriteText(Program("NB_Information.cfg"), text);
}

Catalogue World::Load(std::string_view information) const {
  WriteInformation(information);
  return ReadCatalogue(folders());
}

void World::MakeFolders() const {
  for (const char* folder : {"Texture", "Scenery/World/texture", "Effects"}) {
    fs::create_directories(Simulator(folder));
  }
  for (const char* folder : {"Data", "Favorites"}) {
    fs::create_directories(Program(folder));
  }
}

std::string InformationText(int highest) {
  PerGroup<int> each;
  each.values.fill(highest);
  return InformationText(each);
}

std::string InformationText(const PerGroup<int>& highest) {
  std::string text = "; what can be chosen\r\n[Main]\r\nuseDXT=1\r\nuseLowRes=0\r\n";
  for (const Family family : kFamilies) {
    text += kFamilyText[family];
    for (const GroupFacts& facts : GroupsOf(family)) {
      const int last = highest[facts.group];
      text += std::string(facts.highest_key) + "=" + std::to_string(last) + "\r\n";
      for (int option = 0; option <= last; ++option) {
        text += Rows(facts.prefix, std::to_string(option));
      }
    }
  }
  return text;
}

void WritePack(const fs::path& program, int highest) {
  WriteText(program / "NB_Information.cfg", InformationText(highest));
  ForEachSet(program, highest, [&](const GroupFacts& facts, const fs::path& set, int option) {
    const std::string prefix = facts.prefix;
    const std::string number = std::to_string(option);
    const auto color = [&](int, int) { return OptionColor(facts.group, option); };
    WriteText(program / "Media" / (prefix + "_" + number + ".bmp"), ColorBmp(4, 4, color).Bytes());
    if (!IsCloudInput(facts.group)) {
      WriteText(set / (prefix + ".bmp"), prefix + " " + number);
    }
  });
}

void WriteCloudInputs(const fs::path& program, int highest) {
  ForEachSet(program, highest, [](const GroupFacts& facts, const fs::path& set, int option) {
    if (IsCloudInput(facts.group)) {
      const auto grey = static_cast<std::uint32_t>(8 * static_cast<int>(facts.group) + 25 * option);
      const auto plain = [grey](int, int) { return grey; };
      WriteText(set.string() + "_Fast.bmp", ColorBmp(256, 256, plain).Bytes());
      WriteText(set.string() + "_a_Fast.bmp", GreyBmp(256, 256, false, plain).Bytes());
    }
  });
}

std::uint32_t OptionColor(Group group, int option) {
  return 0x14141EU + 0x140000U * static_cast<std::uint32_t>(group) +
         0x001900U * static_cast<std::uint32_t>(option);
}

Tree Files(const fs::path& root) {
  Tree tree;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
    const std::string path = entry.path().lexically_relative(root).string();
    if (entry.is_symlink()) {
      tree[path] = "-> " + fs::read_symlink(entry).string();
    } else if (entry.is_directory()) {
      tree[path + "/"] = "";
    } else if (entry.is_regular_file()) {
      tree[path] = ReadText(entry.path());
    } else {
      tree[path] = "no regular file";  // a device or a pipe, which could be read without an end
    }
  }
  return tree;
}

std::vector<std::string> Changes(const Tree& before, const Tree& after) {
  Tree changed;
  std::set_symmetric_difference(before.begin(), before.end(), after.begin(), after.end(),
                                std::inserter(changed, changed.end()));
  std::vector<std::string> paths;
  std::transform(changed.begin(), changed.end(), std::back_inserter(paths),
                 [](const auto& entry) { return entry.first; });
  return paths;
}

std::string With(std::string text, std::string_view from, std::string_view to) {
  const std::size_t place = text.find(from);
  if (place == std::string::npos) {
    throw std::invalid_argument("not in the text: " + std::string(from));
  }
  return text.replace(place, from.size(), to);
}
