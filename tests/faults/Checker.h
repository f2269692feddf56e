#pragma once

#include <set>
#include <string>

#include "FaultWorld.h"
#include "Play.h"

/// What must hold after a run (fault_run.cpp's head).
class Checker {
 public:
  /// Plays the scenario undisturbed, to know what it brings.
  explicit Checker(const Scenario& scenario);

  void Restore() const { PutWorld(scenario_.world); }
  void AfterKill(int status) const;
  void AfterFailure(int status, bool deletes_may_fail) const;
  /// Once more, undisturbed.
  void AfterRepair() const;

 private:
  bool IsKnown(const std::string& path, const std::string& bytes) const;
  void EverythingWhole(const Tree& tree, bool temporaries) const;
  void UserWasTold(const Tree& tree) const;
  void HistoryWasKept(Tree& tree) const;
  void OriginalsAreKept(const Tree& tree) const;
  void SetupWasHonest(int status, const Tree& tree) const;
  void ExpectOriginals();

  const Scenario& scenario_;
  Tree origin_;                  ///< the simulator before the first setup
  std::set<std::string> store_;  ///< what nimbrelctl keeps of it
  Tree old_;
  Tree new_;
};

/// How many complaints there were.
int FaultsFound();
