#include "setup/Dialogue.h"

#include <algorithm>
#include <filesystem>
#include <istream>
#include <map>
#include <ostream>

#include "platform/text.h"

namespace nimbrel {

std::string CountOf(std::size_t files) {
  return files == 1 ? "1 file" : std::to_string(files) + " files";
}

std::string SizeOf(std::uintmax_t bytes) {
  constexpr std::uintmax_t kTenth = 100'000;  // of a megabyte
  const std::uintmax_t tenths = (bytes + kTenth - 1) / kTenth;
  return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " MB";
}

void Announce(std::ostream& out, const std::vector<std::string>& paths, std::string_view what) {
  constexpr std::size_t kMaxNames = 10;
  if (paths.empty()) {
    return;
  }
  out << "  * " << what << " (" << CountOf(paths.size()) << "):\n";
  for (std::size_t i = 0; i < std::min(paths.size(), kMaxNames); ++i) {
    out << "      " << paths[i] << '\n';
  }
  if (paths.size() > kMaxNames) {
    out << "      and " << paths.size() - kMaxNames << " more\n";
  }
}

void AnnounceFolders(std::ostream& out, const std::vector<std::string>& paths,
                     std::string_view what) {
  if (paths.empty()) {
    return;
  }
  std::map<std::string, std::size_t> folders;
  for (const std::string& path : paths) {
    ++folders[std::filesystem::path(path).parent_path().string()];
  }
  out << "  * " << what << ":\n";
  for (const auto& [folder, count] : folders) {
    out << "      " << folder << ": " << CountOf(count) << '\n';
  }
}

bool Confirms(const Console& console, std::string_view question) {
  console.out << '\n' << question << " [y/N] " << std::flush;
  std::string answer;
  std::getline(console.in, answer);
  answer = platform::LowerCase(platform::Trim(answer));
  return answer == "y" || answer == "yes";
}

}  // namespace nimbrel
