#pragma once

#include <cstdint>
#include <filesystem>

#include "Library.h"
#include "Sun.h"

namespace demo {

/// The files of a cirrus, sky or water set, by its group and number in the catalogue.
void WriteSet(const std::filesystem::path& folder, const Library& library, std::size_t group,
              std::size_t option);

/// A cloud input under a path without extension: colours and alpha in both sizes.
void WriteSheet(const std::filesystem::path& path, const CloudSheet& sheet);

/// The clouds that every install copies whatever is selected, into folders `cld`, `cumulus` and
/// `stratus`: `own` those of the simulator, else those of the program.
struct CloudFolders {
  std::filesystem::path cld;
  std::filesystem::path cumulus;
  std::filesystem::path stratus;
};
void WriteFixedClouds(const CloudFolders& folders, bool own);

/// The three files that make the simulator's sun.
void WriteSuns(const std::filesystem::path& folder, const SunLook& look);

}  // namespace demo
