#include "setup/Manifest.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <span>
#include <string_view>
#include <unordered_set>

#include "platform/FileSystem.h"
#include "platform/text.h"
#include "settings/Failure.h"
#include "setup/Disk.h"

namespace nimbrel {
namespace {

// One entry a line, the path last, so that a name may hold anything but a line break:
//   Nimbrel originals 1
//   made Modules
//   kept SIZE CHECKSUM PATH
//   absent PATH
//   unknown PATH
//   end NUMBER-OF-ORIGINALS
constexpr std::string_view kHead = "Nimbrel originals 1";
constexpr std::string_view kMade = "made Modules";
constexpr std::array<std::string_view, 3> kWords{"kept", "absent",
                                                 "unknown"};  // in OriginalState's order
constexpr std::string_view kEnd = "end ";
constexpr std::size_t kChecksumDigits = 64;

/// Cuts the text up to the next separator off the front, and the separator with it.
std::string_view Cut(std::string_view& text, char separator) {
  const std::size_t cut = std::min(text.find(separator), text.size());
  const std::string_view piece = text.substr(0, cut);
  text.remove_prefix(std::min(cut + 1, text.size()));
  return piece;
}

bool ToNumber(std::string_view text, std::uintmax_t& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

/// No name in the list has these: they end a line, a C string, or a component of a composed path.
constexpr std::string_view kNotInNames("\r\n\\\0", 4);

/// True for a path that stays in the simulator and can be written in one way only.
bool IsPath(std::string_view path) {
  constexpr std::array<std::string_view, 3> kNotInPaths{"//", "/./", "/../"};
  const std::string parts = "/" + std::string(path) + "/";
  return path.find_first_of(kNotInNames) == std::string_view::npos &&
         std::none_of(kNotInPaths.begin(), kNotInPaths.end(),
                      [&](std::string_view part) { return parts.find(part) != std::string::npos; });
}

bool NamesAreUnique(const Manifest& manifest) {
  std::unordered_set<std::string> names;
  return std::all_of(manifest.originals.begin(), manifest.originals.end(),
                     [&](const Original& original) {
                       return names.insert(platform::FoldName(original.path)).second;
                     });
}

bool ParseOriginal(std::string_view line, Original& original) {
  const auto* const word = std::find(kWords.begin(), kWords.end(), Cut(line, ' '));
  if (word == kWords.end()) {
    return false;
  }
  original.state = static_cast<OriginalState>(word - kWords.begin());
  if (original.state == OriginalState::kKept) {
    const bool sized = ToNumber(Cut(line, ' '), original.size);
    original.checksum = Cut(line, ' ');
    if (!sized || original.checksum.size() != kChecksumDigits) {
      return false;
    }
  }
  original.path = line;
  return IsPath(line);
}

bool Parse(std::string_view text, Manifest& manifest) {
  if (!text.ends_with('\n') || Cut(text, '\n') != kHead) {
    return false;
  }
  while (!text.empty()) {
    std::string_view line = Cut(text, '\n');
    Original original;
    if (line.starts_with(kEnd)) {
      Cut(line, ' ');
      std::uintmax_t count = 0;
      return ToNumber(line, count) && count == manifest.originals.size() && text.empty() &&
             NamesAreUnique(manifest);
    }
    if (line == kMade) {
      manifest.made_modules = true;
    } else if (ParseOriginal(line, original)) {
      manifest.originals.push_back(std::move(original));
    } else {
      return false;
    }
  }
  return false;
}

std::string LineOf(const Original& original) {
  std::string line = std::string(kWords[static_cast<std::size_t>(original.state)]) + " ";
  if (original.state == OriginalState::kKept) {
    line += std::to_string(original.size) + " " + original.checksum + " ";
  }
  return line + original.path + "\n";
}

}  // namespace

std::optional<Manifest> ReadManifest(platform::FileSystem& files, const std::string& file) {
  platform::FileStatus status = platform::FileStatus::kOk;
  const auto bytes = files.ReadFile(file, kMaxFileBytes, &status);
  if (status == platform::FileStatus::kNoSource) {
    return std::nullopt;
  }
  Require(status, file);
  Manifest manifest;
  if (!Parse({reinterpret_cast<const char*>(bytes->data()), bytes->size()}, manifest)) {
    throw ActionFailed(file + ", the list of the originals, is damaged");
  }
  return manifest;
}

void WriteManifest(platform::FileSystem& files, const std::string& file, const Manifest& manifest) {
  std::string text = std::string(kHead) + "\n";
  text += manifest.made_modules ? std::string(kMade) + "\n" : "";
  for (const Original& original : manifest.originals) {
    text += LineOf(original);
  }
  text += std::string(kEnd) + std::to_string(manifest.originals.size()) + "\n";
  Require(
      files.ReplaceFile(file, std::as_bytes(std::span(text)), platform::Durability::kFlushedRename),
      file);
}

}  // namespace nimbrel
