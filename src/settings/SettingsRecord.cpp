#include "settings/SettingsRecord.h"

#include <algorithm>
#include <bit>
#include <vector>

#include "platform/little_endian.h"

namespace nimbrel {
namespace {

/// The groups in the order of the stored form.
constexpr std::array<Group, kGroups.values.size()> kStoredOrder{
    Group::kSolid, Group::kWispy,       Group::kStratus, Group::kCirrus,
    Group::kBase,  Group::kEnvironment, Group::kWaves,   Group::kSunrise,
    Group::kDay,   Group::kSunset,      Group::kNight};

// Offsets in the stored form, in bytes.
constexpr std::size_t kSourceAt = 8;
constexpr std::size_t kOptionsAt = 10;
constexpr std::size_t kSunAt = kOptionsAt + 2 * kStoredOrder.size();
constexpr std::size_t kContrailsAt = kSunAt + 2;
static_assert(kContrailsAt + 2 == kRecordBytes);

}  // namespace

std::array<std::byte, kRecordBytes> EncodeRecord(const SettingsRecord& record) {
  const auto flag = [](bool on) { return static_cast<std::int16_t>(on ? 1 : 0); };
  std::vector<std::byte> bytes;
  bytes.reserve(kRecordBytes);
  platform::AppendLittle(bytes, std::bit_cast<std::uint64_t>(record.Date));
  platform::AppendLittle(bytes, record.Source);
  for (const Group group : kStoredOrder) {
    platform::AppendLittle(bytes, record.choice.option[group]);
  }
  platform::AppendLittle(bytes, flag(record.choice.sun));
  platform::AppendLittle(bytes, flag(record.choice.contrails));
  std::array<std::byte, kRecordBytes> stored{};
  std::copy(bytes.begin(), bytes.end(), stored.begin());
  return stored;
}

SettingsRecord DecodeRecord(std::span<const std::byte> bytes) {
  std::array<std::byte, kRecordBytes> whole{};
  std::copy_n(bytes.begin(), std::min(bytes.size(), whole.size()), whole.begin());
  const auto field = [&whole](std::size_t at) {
    return platform::ReadLittle<std::int16_t>(whole, at);
  };
  SettingsRecord record;
  record.Date = std::bit_cast<double>(platform::ReadLittle<std::uint64_t>(whole, 0));
  record.Source = field(kSourceAt);
  for (std::size_t i = 0; i < kStoredOrder.size(); ++i) {
    record.choice.option[kStoredOrder[i]] = field(kOptionsAt + 2 * i);
  }
  record.choice.sun = field(kSunAt) == 1;
  record.choice.contrails = field(kContrailsAt) == 1;
  return record;
}

}  // namespace nimbrel
