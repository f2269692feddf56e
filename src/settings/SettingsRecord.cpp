#include "settings/SettingsRecord.h"

#include <algorithm>
#include <bit>

namespace nimbrel {
namespace {

/// The fourteen 16-bit fields behind the date, in the order of the stored form.
constexpr std::array<std::int16_t SettingsRecord::*, 14> kStoredFields{
    &SettingsRecord::Source,      &SettingsRecord::Solid,    &SettingsRecord::Wispy,
    &SettingsRecord::Stratus,     &SettingsRecord::Cirrus,   &SettingsRecord::Base,
    &SettingsRecord::Environment, &SettingsRecord::Waves,    &SettingsRecord::Sunrise,
    &SettingsRecord::Day,         &SettingsRecord::Sunset,   &SettingsRecord::Night,
    &SettingsRecord::Sun,         &SettingsRecord::Contrails};
constexpr std::size_t kDateBytes = 8;
constexpr std::size_t kFieldBytes = 2;
static_assert(kDateBytes + kStoredFields.size() * kFieldBytes == kRecordBytes);

void PutLittleEndian(std::byte* out, std::uint64_t value, std::size_t bytes) {
  for (std::size_t i = 0; i < bytes; ++i) {
    out[i] = static_cast<std::byte>(value >> (8 * i));
  }
}

std::uint64_t GetLittleEndian(const std::byte* in, std::size_t bytes) {
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < bytes; ++i) {
    value |= std::to_integer<std::uint64_t>(in[i]) << (8 * i);
  }
  return value;
}

}  // namespace

std::array<std::byte, kRecordBytes> EncodeRecord(const SettingsRecord& record) {
  std::array<std::byte, kRecordBytes> bytes{};
  PutLittleEndian(bytes.data(), std::bit_cast<std::uint64_t>(record.Date), kDateBytes);
  std::byte* out = bytes.data() + kDateBytes;
  for (const auto field : kStoredFields) {
    PutLittleEndian(out, static_cast<std::uint16_t>(record.*field), kFieldBytes);
    out += kFieldBytes;
  }
  return bytes;
}

SettingsRecord DecodeRecord(std::span<const std::byte> bytes) {
  std::array<std::byte, kRecordBytes> whole{};
  std::copy_n(bytes.begin(), std::min(bytes.size(), whole.size()), whole.begin());
  SettingsRecord record;
  record.Date = std::bit_cast<double>(GetLittleEndian(whole.data(), kDateBytes));
  const std::byte* in = whole.data() + kDateBytes;
  for (const auto field : kStoredFields) {
    record.*field = static_cast<std::int16_t>(GetLittleEndian(in, kFieldBytes));
    in += kFieldBytes;
  }
  return record;
}

}  // namespace nimbrel
