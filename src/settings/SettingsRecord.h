#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "settings/Catalogue.h"

namespace nimbrel {

/// One complete choice, as the history and the favourites keep it. Its cloud fields run solid,
/// wispy, stratus, cirrus, unlike the family's groups, so it is copied by field, never by place.
struct SettingsRecord {
  double Date = 0;          ///< automation date
  std::int16_t Source = 0;  ///< 0 the user, 1 the randomizer, 2 a favourite file
  std::int16_t Solid = 0;
  std::int16_t Wispy = 0;
  std::int16_t Stratus = 0;
  std::int16_t Cirrus = 0;
  std::int16_t Base = 0;
  std::int16_t Environment = 0;
  std::int16_t Waves = 0;
  std::int16_t Sunrise = 0;
  std::int16_t Day = 0;
  std::int16_t Sunset = 0;
  std::int16_t Night = 0;
  std::int16_t Sun = 0;        ///< on at exactly 1
  std::int16_t Contrails = 0;  ///< on at exactly 1
  bool operator==(const SettingsRecord&) const = default;
};

inline constexpr std::size_t kRecordBytes = 36;

/// The stored form: 36 bytes, little-endian, no padding, fields in the order of the declaration.
std::array<std::byte, kRecordBytes> EncodeRecord(const SettingsRecord& record);
/// Bytes behind the end of a short span read as zeros.
SettingsRecord DecodeRecord(std::span<const std::byte> bytes);

/// Where each group's index stands in a record, in the order of kOptionGroups.
inline constexpr std::array<std::int16_t SettingsRecord::*, kOptionGroups.size()> kRecordFields{
    &SettingsRecord::Solid,       &SettingsRecord::Stratus, &SettingsRecord::Wispy,
    &SettingsRecord::Cirrus,      &SettingsRecord::Sunrise, &SettingsRecord::Day,
    &SettingsRecord::Sunset,      &SettingsRecord::Night,   &SettingsRecord::Base,
    &SettingsRecord::Environment, &SettingsRecord::Waves};

}  // namespace nimbrel
