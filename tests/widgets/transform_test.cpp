#include <gtest/gtest.h>

#include <QRegion>
#include <cstring>
#include <ostream>

#include "platform/system.h"
#include "support/BmpFile.h"
#include "support/TempFolder.h"
#include "support/real_widgets.h"
#include "widgets/clsTransForm.h"

namespace nimbrel {
namespace {

constexpr platform::ColorRef kKey = platform::RGB(255, 0, 255);
constexpr int kWidth = 8;
constexpr int kHeight = 4;

/// A form of 8 by 4 pixels whose picture is drawn with letters: '#' is the key colour.
class TransFormTest : public testing::Test {
 protected:
  TransFormTest() : form_("frm_Shaped") {
    form_.SetWidth(toolkit::Twips(kWidth));
    form_.SetHeight(toolkit::Twips(kHeight));
    platform::SetApplicationFolder(folder_.string());
  }
  ~TransFormTest() override { platform::SetApplicationFolder(""); }

  void Draw(std::string_view rows) {
    const auto color = [rows](int x, int y) {
      return rows[static_cast<std::size_t>(y * kWidth + x)] == '#' ? 0xFF00FFU : 0xFF00FEU;
    };
    WriteText(File("bg.bmp"), ColorBmp(kWidth, kHeight, color).Bytes());
    ASSERT_TRUE(form_.SetPicture(File("bg.bmp")));
  }
  static QRegion Mask() { return Widget("frm_Shaped").mask(); }
  std::string File(std::string_view name) const { return (folder_ / name).string(); }

  TempFolder folder_;
  toolkit::Form form_;
  clsTransForm shape_;
};

std::string Record(std::uint32_t count, std::vector<toolkit::Rect> rects) {
  std::vector<std::uint32_t> words = {32, 1, count, count * 16, 0, 0, 8, 4};
  for (const toolkit::Rect& rect : rects) {
    for (const int side : {rect.left, rect.top, rect.right, rect.bottom}) {
      words.push_back(static_cast<std::uint32_t>(side));
    }
  }
  std::string bytes(words.size() * 4, '\0');
  std::memcpy(bytes.data(), words.data(), bytes.size());
  return bytes;
}

/// The pixels of the region in a file, drawn as letters; '.' lies inside.
std::string Outline(const std::string& file) {
  const std::string bytes = ReadText(file);
  const toolkit::HRGN region = toolkit::ExtCreateRegion(std::as_bytes(std::span(bytes)));
  std::string rows;
  for (int i = 0; region && i < kWidth * kHeight; ++i) {
    rows += region->Contains(i % kWidth, i / kWidth) ? '.' : '#';
  }
  return rows;
}

TEST_F(TransFormTest, ScanLeavesOutExactlyTheKeyColour) {
  for (const char* rows : {"................................", "....####....####....####....####",
                           "####....########............####", "#.#.#.#..#.#.#.##.#.#.#..#.#.#.#",
                           "................#######........."}) {
    Draw(rows);
    WriteText(File("out.dat"), "an older and longer file than what comes to stand in its place");
    shape_.ShapeMe(form_, kKey, false, File("out.dat"));
    EXPECT_EQ(rows, Outline(File("out.dat")));
  }
}

TEST_F(TransFormTest, WritesTheRecordByteForByte) {
  Draw("################..######..######");
  shape_.ShapeMe(form_, kKey, false, File("out.dat"));
  std::string expected = Record(1, {{0, 2, 2, 4}});
  const std::uint32_t bounds[] = {0, 2, 2, 4};
  std::memcpy(expected.data() + 16, bounds, sizeof bounds);
  EXPECT_EQ(expected, ReadText(File("out.dat")));
}

TEST_F(TransFormTest, ALoadedFileShapesTheWindowAndNoNameScans) {
  WriteText(File("in.dat"), Record(2, {{2, 1, 6, 4}, {0, 0, 8, 1}}));
  shape_.ShapeMe(form_, 0, true, File("in.dat"));
  EXPECT_EQ(QRegion(0, 0, 8, 1) + QRegion(2, 1, 4, 3), Mask());
  EXPECT_EQ(Record(2, {{2, 1, 6, 4}, {0, 0, 8, 1}}), ReadText(File("in.dat")));
  Draw("################..######..######");
  shape_.ShapeMe(form_, kKey, true, "");
  EXPECT_EQ(QRegion(0, 2, 2, 2), Mask());
}

struct BadFile {
  const char* name;
  std::string bytes;
  std::uint32_t number;
};
std::ostream& operator<<(std::ostream& out, const BadFile& bad) { return out << bad.name; }

class BadRegion : public TransFormTest, public testing::WithParamInterface<BadFile> {};

TEST_P(BadRegion, RaisesAndLeavesTheWindowRectangular) {
  if (GetParam().number != 53) {
    WriteText(folder_ / "Media/bad.dat", GetParam().bytes);
  }
  try {
    shape_.ShapeMe(form_, 0, true, folder_.string() + "\\Media\\bad.dat");
    FAIL() << "no error";
  } catch (const TransFormError& error) {
    EXPECT_EQ(GetParam().number, error.number());
    EXPECT_EQ("Nimbrel.cDIBSectionRegion", error.source());
    EXPECT_STRNE("", error.what());
  }
  EXPECT_NO_THROW(ShapeFromFile(shape_, form_, "\\Media\\bad.dat"));
  EXPECT_TRUE(Mask().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Files, BadRegion,
    testing::Values(BadFile{"missing", "", 53}, BadFile{"empty", "", 5},
                    BadFile{"header cut", Record(1, {}).substr(0, 31), 5},
                    BadFile{"rectangles cut", Record(2, {{0, 0, 8, 2}}), 5},
                    BadFile{"huge count", Record(0x10000001, {{0, 0, 8, 2}}), 5},
                    BadFile{"greatest count", Record(0xFFFFFFFF, {{0, 0, 8, 2}}), 5},
                    BadFile{"shows nothing", Record(0, {}), 5},
                    BadFile{"shows nothing of the form", Record(1, {{8, 0, 20, 4}}), 5}));

TEST_F(TransFormTest, SavingWhereNoFolderIsRaises) {
  Draw("................................");
  try {
    shape_.ShapeMe(form_, kKey, false, File("no folder/out.dat"));
    FAIL() << "no error";
  } catch (const TransFormError& error) {
    EXPECT_EQ("TransForm", error.source());
    EXPECT_EQ(76U, error.number());
  }
}

TEST_F(TransFormTest, DragWithAnotherButtonOnlyResetsThePointer) {
  DraggedForm = &form_;
  form_.SetMousePointer(toolkit::kPointerCustom);
  const float left = form_.Left();
  clsTransForm::DragForm(form_.hWnd(), toolkit::kRightButton);
  EXPECT_EQ(left, form_.Left());
  EXPECT_EQ(toolkit::kPointerDefault, form_.MousePointer());
  form_.SetMousePointer(toolkit::kPointerHourglass);
  clsTransForm::DragForm(form_.hWnd(), toolkit::kRightButton);
  EXPECT_EQ(toolkit::kPointerHourglass, form_.MousePointer());
  DraggedForm = nullptr;
}

}  // namespace
}  // namespace nimbrel
