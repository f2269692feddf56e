#pragma once

#include <filesystem>
#include <string_view>

#include "support/World.h"

/// The small but complete simulators that the runs of the fault harness start from.

inline constexpr std::string_view kProgramFolder = "Addons/Nimbrel";
inline constexpr std::string_view kInformation = "Addons/Nimbrel/nb_information.CFG";
inline constexpr std::string_view kHistory = "Addons/Nimbrel/DATA/history.NBH";

/// Makes the simulator at `root`, which must not exist: each file that an install replaces in an
/// old form, names in another case than the program writes them, a history of two entries, one
/// favourite, an older cloud texture, and the left-overs of a killed run in every folder.
void MakeOldSimulator(const std::filesystem::path& root);

// Where nimbrelctl puts things.
inline constexpr std::string_view kModules = "Modules/";
inline constexpr const char* kSetUpFolder = "Modules/Nimbrel";
inline constexpr const char* kProgramSetUp = "Modules/Nimbrel/nimbrel";
inline constexpr std::string_view kStore = "Modules/Nimbrel Originals/";
inline constexpr std::string_view kStored = "Modules/Nimbrel Originals/files/";

/// The same without the program, which with its pack goes into the folder `from`; two of the
/// textures are missing.
void MakeBareSimulator(const std::filesystem::path& root, const std::filesystem::path& from);
/// What may happen to a simulator in use: names change their letter case, and runs are killed.
void ChangeByHand(const std::filesystem::path& root);
/// A set of the user's own that would replace a file that no set has replaced before; and a picture
/// of the pack gets lost.
void AddSet(const std::filesystem::path& root);
