#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "Faults.h"

/// What the user does in a run of the harness, and the run, in a process of its own.

/// Folders below the base, each a whole simulator to start a run from (FaultWorld.h).
inline constexpr const char* kUsed = "used";            ///< the program used in it for a while
inline constexpr const char* kBare = "bare";            ///< without the program
inline constexpr const char* kInstalled = "installed";  ///< by nimbrelctl, then textures changed
inline constexpr const char* kExtended = "extended";    ///< the same with a set of the user's more

struct Scenario {
  const char* name;
  const char* world;
  bool (*act)();        ///< false: the program showed nothing to do it with
  std::size_t changes;  ///< files and folders that an undisturbed run leaves changed
  bool installs;        ///< changes the simulator's textures by an install
  bool from_start;      ///< calls count from the program's start, not from the user's first press
  const char* task = nullptr;  ///< subcommand of nimbrelctl, if that is what runs
};
inline constexpr const char* kPutsIn = "setup";
inline constexpr std::size_t kScenarios = 11;
extern const Scenario kAllScenarios[kScenarios];

/// What a run lets its parent know.
struct Shared {
  faults::Seen seen;
  char kinds[64];        ///< first letters of the kinds of sound that the messages made
  char last_text[1000];  ///< the last message, or what nimbrelctl complained of
};
extern Shared* g_shared;
inline constexpr char kExclamation = 'E';
inline constexpr char kError = 'A';  // its sound is SystemAsterisk
bool WasShown(char kind);

/// The folder that holds it all.
extern std::filesystem::path g_base;
std::filesystem::path Simulator();

/// Plays a scenario on the simulator as it stands there; gives the process's wait status.
int Run(const Scenario& scenario, const faults::Plan& plan);

/// Puts a world in the simulator's place, which changes with that.
void PutWorld(const char* world);
/// Makes all the worlds.
void MakeWorlds();
