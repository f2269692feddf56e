#include "setup/Manifest.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <span>
#include <string_view>
#include <unordered_set>

#include "platform/files.h"
#include "platform/text.h"
#include "setup/Places.h"

namespace nimbrel {
namespace {

// One entry a line, the path last, so that any name but one with a line break can stand there:
//   Nimbrel originals 1
//   made Modules
//   kept SIZE CHECKSUM PATH
//   absent PATH
//   unknown PATH
//   end NUMBER-OF-ORIGINALS
constexpr std::string_view kHead = "Nimbrel originals 1";
constexpr std::string_view kMade = "made Modules";
constexpr std::array<std::string_view, 3> kWords{"kept", "absent", "unknown"};  // in Was's order
constexpr std::string_view kEnd = "end ";
constexpr std::size_t kChecksumDigits = 64;

/// The text up to the next separator, taken off the front together with it.
std::string_view Take(std::string_view& text, char separator) {
  const std::size_t cut = std::min(text.find(separator), text.size());
  const std::string_view piece = text.substr(0, cut);
  text.remove_prefix(std::min(cut + 1, text.size()));
  return piece;
}

bool ToNumber(std::string_view text, std::uintmax_t& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

/// Signs that no name in the list has: they end its line, the name, or a name as the program
/// composes it.
constexpr std::string_view kNotInNames("\r\n\\\0", 4);

/// A path that could lead out of the simulator, or has a second way to be written, is none of ours.
bool IsPath(std::string_view path) {
  constexpr std::array<std::string_view, 3> kNotInPaths{"//", "/./", "/../"};
  const std::string parts = "/" + std::string(path) + "/";
  return path.find_first_of(kNotInNames) == std::string_view::npos &&
         std::none_of(kNotInPaths.begin(), kNotInPaths.end(),
                      [&](std::string_view none) { return parts.find(none) != std::string::npos; });
}

/// No file has been two things before.
bool NamesAreUnique(const Manifest& manifest) {
  std::unordered_set<std::string> names;
  return std::all_of(manifest.originals.begin(), manifest.originals.end(),
                     [&](const Original& original) {
                       return names.insert(platform::FoldName(original.path)).second;
                     });
}

bool TakeOriginal(std::string_view line, Original& original) {
  const auto* const word = std::find(kWords.begin(), kWords.end(), Take(line, ' '));
  if (word == kWords.end()) {
    return false;
  }
  original.was = static_cast<Was>(word - kWords.begin());
  if (original.was == Was::kKept) {
    const bool sized = ToNumber(Take(line, ' '), original.size);
    original.checksum = Take(line, ' ');
    if (!sized || original.checksum.size() != kChecksumDigits) {
      return false;
    }
  }
  original.path = line;
  return IsPath(line);
}

bool Parse(std::string_view text, Manifest& manifest) {
  if (!text.ends_with('\n') || Take(text, '\n') != kHead) {
    return false;
  }
  while (!text.empty()) {
    std::string_view line = Take(text, '\n');
    Original original;
    if (line.starts_with(kEnd)) {
      Take(line, ' ');
      std::uintmax_t count = 0;
      return ToNumber(line, count) && count == manifest.originals.size() && text.empty() &&
             NamesAreUnique(manifest);
    }
    if (line == kMade) {
      manifest.made_modules = true;
    } else if (TakeOriginal(line, original)) {
      manifest.originals.push_back(std::move(original));
    } else {
      return false;
    }
  }
  return false;
}

std::string LineOf(const Original& original) {
  if (original.path.find_first_of("\r\n") != std::string::npos) {
    throw SetupFailure("A file with a line break in its name can't be kept: " + original.path);
  }
  std::string line = std::string(kWords[static_cast<std::size_t>(original.was)]) + " ";
  if (original.was == Was::kKept) {
    line += std::to_string(original.size) + " " + original.checksum + " ";
  }
  return line + original.path + "\n";
}

}  // namespace

std::optional<Manifest> ReadManifest(const std::string& file) {
  platform::FileStatus status = platform::FileStatus::kOk;
  const auto bytes = platform::ReadFile(file, kMostBytes, &status);
  if (status == platform::FileStatus::kNoSource) {
    return std::nullopt;
  }
  if (!bytes) {
    throw SetupFailure(file, status);
  }
  Manifest manifest;
  if (!Parse({reinterpret_cast<const char*>(bytes->data()), bytes->size()}, manifest)) {
    throw SetupFailure(file + ", the list of the originals, is damaged");
  }
  return manifest;
}

void WriteManifest(const std::string& file, const Manifest& manifest) {
  std::string text = std::string(kHead) + "\n";
  text += manifest.made_modules ? std::string(kMade) + "\n" : "";
  for (const Original& original : manifest.originals) {
    text += LineOf(original);
  }
  text += std::string(kEnd) + std::to_string(manifest.originals.size()) + "\n";
  const auto status = platform::ReplaceFile(file, std::as_bytes(std::span(text)),
                                            platform::Durability::kFlushedRename);
  if (status != platform::FileStatus::kOk) {
    throw SetupFailure(file, status);
  }
}

}  // namespace nimbrel
