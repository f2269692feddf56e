#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "setup/Command.h"
#include "support/TempFolder.h"
#include "support/World.h"

/// What a run of the command gave.
struct Outcome {
  int status;
  std::string out;
  std::string err;
};

/// A simulator that was tuned by hand and written in odd letter cases, and, somewhere else, a
/// program and a pack to install in it.
class SetupWorld : public testing::Test {
 protected:
  SetupWorld();

  /// "@" is the simulator's folder, at the start of an argument and in what the command wrote.
  Outcome Run(std::vector<std::string> arguments, const std::string& answers = "") const;
  /// The exit status of `task --yes @`.
  int Do(const char* task) const { return Run({task, "--yes", "@"}).status; }

  /// What the program does when it installs: option `option` of every group, at low resolution.
  void Install(std::int16_t option, bool sun, bool contrails) const;

  /// The simulator's files and folders without those of Nimbrel.
  Tree Simulator() const;
  std::filesystem::path InSimulator(const std::string& file) const { return simulator / file; }
  std::filesystem::path Nimbrel(const std::string& file) const {
    return simulator / "Modules/Nimbrel" / file;
  }
  std::filesystem::path Originals(const std::string& file) const {
    return simulator / "Modules/Nimbrel Originals" / file;
  }

  std::string WithAt(std::string text) const;

  TempFolder temp;
  std::filesystem::path simulator = temp / "Flug \xC3\xBC Simulator 9";
  std::filesystem::path pack = temp / "from/pack";
  nimbrel::SetupSources sources{temp / "from/nimbrel", pack};
};
