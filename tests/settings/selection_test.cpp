#include <gtest/gtest.h>

#include "platform/system.h"
#include "settings/Selection.h"
#include "settings/SettingsRecord.h"
#include "shell/MainSwitches.h"
#include "support/SimulatorTree.h"
#include "support/recorders.h"

using namespace nimbrel;

namespace {

/// Each field with a value of its own, in the order of the stored form.
const SettingsRecord kRecord{38000.5, 2, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, -2, 1, 2};

TEST(SettingsRecord, StoredFormIsByteForByte) {
  constexpr unsigned char kBytes[kRecordBytes] = {
      0,  0, 0,  0, 0x10, 0x8E, 0xE2, 0x40,  // 38000.5
      2,  0, 10, 0, 11,   0,    12,   0,    13,   0,    14, 0, 15, 0,
      16, 0, 17, 0, 18,   0,    19,   0,    0xFE, 0xFF, 1,  0, 2,  0};
  const auto bytes = EncodeRecord(kRecord);
  for (std::size_t i = 0; i < kRecordBytes; ++i) {
    EXPECT_EQ(kBytes[i], std::to_integer<unsigned char>(bytes[i])) << "byte " << i;
  }
  EXPECT_EQ(kRecord, DecodeRecord(bytes));
  SettingsRecord half;
  half.Date = kRecord.Date;
  half.Source = 2;
  EXPECT_EQ(half, DecodeRecord(std::span(bytes).first(10)));
}

TEST(Selection, TakesARecordByFieldAndGivesItBack) {
  const SimulatorTree tree;
  platform::SetClock([] { return 40000.25; });
  RecordToSelection(kRecord);
  constexpr Selection kExpected{{{10, 12, 11, 13}, {17, 18, 19, -2}, {14, 15, 16, 0}}};
  EXPECT_EQ(kExpected, CurrentSelection) << "stratus and wispy must not be crossed";
  EXPECT_EQ(1, Switches().chk_Sun.Value());
  EXPECT_EQ(0, Switches().chk_Contrails.Value()) << "a switch is on at exactly 1";
  EXPECT_EQ(1, Recorded.refreshes);

  SettingsRecord expected = kRecord;
  expected.Date = 40000.25;
  expected.Source = 0;
  expected.Contrails = 0;
  EXPECT_EQ(expected, SelectionToRecord(0));
  RandomizerRecord.Date = 39000;
  EXPECT_EQ(39000, SelectionToRecord(1).Date);
  EXPECT_EQ(40000.25, SelectionToRecord(2).Date);

  SettingsRecord other;
  other.Sun = 2;
  other.Contrails = 1;
  RecordToSelection(other);
  EXPECT_EQ(0, Switches().chk_Sun.Value());
  EXPECT_EQ(1, Switches().chk_Contrails.Value());
}

}  // namespace
