#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "support/TempFolder.h"

/// A simulator's folder with the program two levels below it, and a program state as new: the
/// application's folder, the root, catalogue, selection, history, switches and recorded calls.
class SimulatorTree {
 public:
  SimulatorTree();
  SimulatorTree(const SimulatorTree&) = delete;
  SimulatorTree& operator=(const SimulatorTree&) = delete;
  ~SimulatorTree();

  std::filesystem::path Simulator(std::string_view file) const { return root_ / file; }
  std::filesystem::path Program(std::string_view file) const { return program_ / file; }

  /// Writes the information file and runs the four readers on it.
  void Load(std::string_view information) const;

 private:
  TempFolder temp_;
  std::filesystem::path root_;
  std::filesystem::path program_;
};

/// An information file with options 0 to `highest` in each group: titles "solid title 0", sets
/// "Sets\solid.0" and so on, no flag set, the simulator's usual destinations. CRLF.
std::string InformationText(int highest);

/// The text with the first `from` (which must be there) turned into `to`.
std::string With(std::string text, std::string_view from, std::string_view to);
