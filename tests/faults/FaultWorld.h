#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

/// The small but complete simulator that every run of the fault harness starts from.

/// Bytes of each file by its path below the root.
using Tree = std::map<std::string, std::string>;
Tree ReadTree(const std::filesystem::path& root);

inline constexpr std::string_view kProgramFolder = "Addons/Nimbrel";
inline constexpr std::string_view kInformation = "Addons/Nimbrel/nb_information.CFG";
inline constexpr std::string_view kHistory = "Addons/Nimbrel/DATA/history.NBH";

/// Makes the simulator at `root`, which must not be there: each file that an install replaces in an
/// old form, names in another case than the program writes them, a history of two entries, one
/// favourite, an older cloud texture, and the left-overs of a killed run in every folder.
void MakeOldSimulator(const std::filesystem::path& root);
