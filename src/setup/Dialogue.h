#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace nimbrel {

/// Where the command reads its answers from and writes to.
struct Console {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
};

/// "1 file", "2 files".
std::string CountOf(std::size_t files);
/// In megabytes, rounded up to a tenth.
std::string SizeOf(std::uintmax_t bytes);

/// Writes an item of the list of what will be done: the text, and the names of the files it is
/// done to, up to ten. Writes nothing if there are none.
void Announce(std::ostream& out, const std::vector<std::string>& paths, std::string_view what);
/// The same with the number of files in each folder instead of their names.
void AnnounceFolders(std::ostream& out, const std::vector<std::string>& paths,
                     std::string_view what);

/// Asks a question; only "y" and "yes" in any letter case confirm.
bool Confirms(const Console& console, std::string_view question);

}  // namespace nimbrel
