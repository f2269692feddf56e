#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace nimbrel {

/// The three families of options; each has a ring page, a constraint page and a section of the
/// information file.
enum class Family : std::uint8_t { kCloud, kSky, kWater };

/// The eleven groups, family by family. An option is chosen for each of them.
enum class Group : std::uint8_t {
  kSolid,
  kStratus,
  kWispy,
  kCirrus,
  kSunrise,
  kDay,
  kSunset,
  kNight,
  kBase,
  kEnvironment,
  kWaves,
};

/// An array of one value for each enumerator of `Key`, whose values count up from 0.
template <class Key, class Value, std::size_t kCount>
struct EnumArray {
  std::array<Value, kCount> values{};

  constexpr Value& operator[](Key key) { return values[static_cast<std::size_t>(key)]; }
  constexpr const Value& operator[](Key key) const { return values[static_cast<std::size_t>(key)]; }
  constexpr auto begin() { return values.begin(); }
  constexpr auto end() { return values.end(); }
  constexpr auto begin() const { return values.begin(); }
  constexpr auto end() const { return values.end(); }
  bool operator==(const EnumArray&) const = default;
};
template <class Value>
using PerGroup = EnumArray<Group, Value, 11>;
template <class Value>
using PerFamily = EnumArray<Family, Value, 3>;

inline constexpr std::array kFamilies{Family::kCloud, Family::kSky, Family::kWater};

/// What is fixed about a group. Everything that differs by group and is no layout stands here or
/// in a PerGroup table beside its user, which the compiler keeps complete.
struct GroupFacts {
  Group group;
  Family family;
  const char* name;         ///< as messages and reports call it
  const char* prefix;       ///< of its row keys in the information file
  const char* highest_key;  ///< key of its highest option index
};

inline constexpr PerGroup<GroupFacts> kGroups{{{
    {Group::kSolid, Family::kCloud, "Solid Cumulus", "solid", "numSolid"},
    {Group::kStratus, Family::kCloud, "Stratus", "stratus", "numStratus"},
    {Group::kWispy, Family::kCloud, "Wispy Edges", "wispy", "numWispy"},
    {Group::kCirrus, Family::kCloud, "Cirrus", "cirrus", "numCirrus"},
    {Group::kSunrise, Family::kSky, "Sunrise", "sunrise", "numSunrise"},
    {Group::kDay, Family::kSky, "Day", "day", "numDay"},
    {Group::kSunset, Family::kSky, "Sunset", "sunset", "numSunset"},
    {Group::kNight, Family::kSky, "Night", "night", "numNight"},
    {Group::kBase, Family::kWater, "Base Color", "base", "numBase"},
    {Group::kEnvironment, Family::kWater, "Reflectivity", "environment", "numEnvironment"},
    {Group::kWaves, Family::kWater, "Waves", "waves", "numWaves"},
}}};

constexpr Family FamilyOf(Group group) { return kGroups[group].family; }

/// The groups of a family in the order of their index.
constexpr std::span<const GroupFacts> GroupsOf(Family family) {
  const GroupFacts* first = kGroups.values.data();
  const GroupFacts* const end = first + kGroups.values.size();
  while (first != end && first->family != family) {
    ++first;
  }
  const GroupFacts* last = first;
  while (last != end && last->family == family) {
    ++last;
  }
  return {first, last};
}

/// Index of a group inside its family, from 0.
constexpr int IndexInFamily(Group group) {
  return static_cast<int>(group) - static_cast<int>(GroupsOf(FamilyOf(group)).front().group);
}

/// The group at `index` of its family, which wraps round at both ends of one turn: -1 is the last.
constexpr Group GroupAt(Family family, int index) {
  const auto groups = GroupsOf(family);
  const int count = static_cast<int>(groups.size());
  return groups[static_cast<std::size_t>((index + count) % count)].group;
}

}  // namespace nimbrel
