#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "setup/Setup.h"
#include "support/TempFolder.h"

/// What a run of the command gave.
struct Outcome {
  int status;
  std::string out;
  std::string err;
};

using Tree = std::map<std::string, std::string>;
/// Names below a folder with the files' contents; "/" for folders.
Tree TreeOf(const std::filesystem::path& folder);

/// A simulator that was tuned by hand and written in odd letter cases, and, somewhere else, a
/// program and a pack to put into it.
class SetupWorld : public testing::Test {
 protected:
  SetupWorld();
  ~SetupWorld() override;

  Outcome Run(const std::vector<std::string>& arguments, const std::string& answers = "") const;
  /// The simulator's files and folders without those of Nimbrel.
  Tree Simulator() const;

  std::filesystem::path InSimulator(const std::string& file) const { return simulator / file; }
  std::filesystem::path Nimbrel(const std::string& file) const {
    return simulator / "Modules/Nimbrel" / file;
  }
  std::filesystem::path Originals(const std::string& file) const {
    return simulator / "Modules/Nimbrel Originals" / file;
  }

  TempFolder temp;
  std::filesystem::path simulator = temp / "Flug \xC3\xBC Simulator 9";
  std::filesystem::path pack = temp / "from/pack";
  nimbrel::SetupSources sources{temp / "from/nimbrel", pack};
};

/// The same with a pack that is whole enough to be installed.
class InstallWorld : public SetupWorld {
 protected:
  InstallWorld();

  /// What the program does when it installs: option `option` of every group, at low resolution.
  void Install(int option, bool sun, bool contrails) const;
};
