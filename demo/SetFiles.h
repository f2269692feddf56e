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

/// The clouds that every install copies, into folders `cld`, `cumulus` and `stratus`: the
/// simulator's if `own`, else the program's.
struct CloudFolders {
  std::filesystem::path cld;
  std::filesystem::path cumulus;
  std::filesystem::path stratus;
};
void WriteFixedClouds(const CloudFolders& folders, bool own);

/// The three files of the simulator's sun.
void WriteSuns(const std::filesystem::path& folder, const SunLook& look);

}  // namespace demo
