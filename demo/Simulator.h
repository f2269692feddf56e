#pragma once

#include <filesystem>

#include "Library.h"

namespace demo {

/// The simulator's folder as it came: every file that an install may replace, some that none does,
/// and the two effect files.
void WriteSimulator(const std::filesystem::path& root, const Library& library);

/// What lies in the program's folder beside its skin: information file, sets, previews, backups,
/// the help file and the empty folder for favourites.
void WriteProgramData(const std::filesystem::path& folder, const Library& library);

}  // namespace demo
