#pragma once

#include <filesystem>

#include "Library.h"

namespace demo {

/// The simulator's folder before any install: every file that an install may replace, some others,
/// and the two effect files.
void WriteSimulator(const std::filesystem::path& root, const Library& library);

/// The program's folder without its skin: information file, sets, previews, backups, the help file
/// and the empty folder for favourites.
void WriteProgramData(const std::filesystem::path& folder, const Library& library);

}  // namespace demo
