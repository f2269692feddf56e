#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "settings/Choice.h"

namespace nimbrel {

/// Who made a record.
enum Source : std::int16_t { kFromUser = 0, kFromRandomizer = 1, kFromFavorite = 2 };

/// A choice with its date and source, as the history and the favourites keep it.
struct SettingsRecord {
  double Date = 0;  ///< automation date
  std::int16_t Source = kFromUser;
  Choice choice;
  bool operator==(const SettingsRecord&) const = default;
};

inline constexpr std::size_t kRecordBytes = 36;

/// The stored form: 36 bytes, little-endian, no padding: the date, the source, the groups in an
/// order of their own (solid, wispy, stratus, cirrus, then water, then sky), sun, contrails.
std::array<std::byte, kRecordBytes> EncodeRecord(const SettingsRecord& record);
/// Bytes past the end of a short span read as zeros. A switch is on at exactly 1.
SettingsRecord DecodeRecord(std::span<const std::byte> bytes);

}  // namespace nimbrel
