#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "settings/Catalogue.h"
#include "settings/Folders.h"
#include "settings/Groups.h"
#include "support/TempFolder.h"

/// A simulator's folder with the program's folder two levels below it. Empty at first, and gone at
/// the end. Holds nothing else: worlds don't know of each other.
class World {
 public:
  World();
  /// In an existing folder, which stays.
  explicit World(const std::filesystem::path& folder);

  std::filesystem::path Simulator(std::string_view file = {}) const { return simulator_ / file; }
  std::filesystem::path Program(std::string_view file = {}) const { return program_ / file; }
  nimbrel::Folders folders() const { return nimbrel::FoldersOf(program_.string()); }

  void WriteInformation(std::string_view text) const;
  /// Writes the information file and reads it.
  nimbrel::Catalogue Load(std::string_view information) const;

  /// Makes every folder that InformationText's destinations and the stores need.
  void MakeFolders() const;

 private:
  std::shared_ptr<const TempFolder> temp_;
  std::filesystem::path simulator_;
  std::filesystem::path program_;
};

/// An information file with options 0 to `highest` in each group: title "solid title 0",
/// description "solid text 0", preview "Media\solid_0", set "Sets\solid.0", no flag set; cirrus,
/// skies, waves and the cumulus texture go to Texture, the other waters to Scenery\World\texture;
/// useDXT is 1 and useLowRes 0. CRLF.
std::string InformationText(int highest);
std::string InformationText(const nimbrel::PerGroup<int>& highest);

/// Writes what InformationText(highest) names below the program's folder, with the file itself: for
/// each option a preview of 4 x 4 pixels in its OptionColor and, except for the cloud inputs, a set
/// of one file, "Sets\day.0\day.bmp", whose text is "day 0".
void WritePack(const std::filesystem::path& program, int highest);
/// Writes the cloud inputs of 256 x 256 pixels, the colours and the alpha values of each option one
/// grey of its own.
void WriteCloudInputs(const std::filesystem::path& program, int highest);
/// Of an option's preview, as 0x00RRGGBB; no two options up to 9 share one.
std::uint32_t OptionColor(nimbrel::Group group, int option);

/// All that is below a folder by its path relative to the folder: a file's bytes, "-> target" for a
/// link; a folder has a slash at the end and no text.
using Tree = std::map<std::string, std::string>;
Tree Files(const std::filesystem::path& root);
/// Paths that are in one tree alone or differ in both.
std::vector<std::string> Changes(const Tree& before, const Tree& after);

/// The text with the first `from`, which has to be there, replaced by `to`.
std::string With(std::string text, std::string_view from, std::string_view to);
