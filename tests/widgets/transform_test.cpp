#include "widgets/clsTransForm.h"

#include <gtest/gtest.h>

#include <QRegion>

#include "support/BmpFile.h"
#include "support/TempFolder.h"
#include "support/real_widgets.h"
#include "toolkit/forms.h"
#include "toolkit/region.h"

namespace nimbrel {
namespace {

constexpr platform::ColorRef kKey = platform::RGB(255, 0, 255);
constexpr int kWidth = 8;
constexpr int kHeight = 4;

/// A form of 8 by 4 pixels whose picture is drawn with letters: '#' is the key colour.
class TransFormTest : public testing::Test {
 protected:
  TransFormTest() {
    form_.SetWidth(toolkit::Twips(kWidth));
    form_.SetHeight(toolkit::Twips(kHeight));
  }

  void Draw(std::string_view rows) {
    const auto color = [rows](int x, int y) {
      return *(rows.begin() + y * kWidth + x) == '#' ? 0xFF00FFU : 0xFF00FEU;
    };
    WriteText(File("bg.bmp"), ColorBmp(kWidth, kHeight, color).Bytes());
    ASSERT_TRUE(form_.SetPicture(File("bg.bmp")));
  }
  static QRegion Mask() { return Widget("frm_Shaped").mask(); }
  std::string File(std::string_view name) const { return (folder_ / name).string(); }

  TempFolder folder_;
  toolkit::Form form_{"frm_Shaped"};
  clsTransForm shape_;
};

std::string Record(std::uint32_t count, const std::vector<toolkit::Rect>& rects,
                   const toolkit::Rect& bounds = {0, 0, 8, 4}) {
  std::string bytes;
  for (const std::uint32_t word : {32U, 1U, count, count * 16}) {
    BmpFile::Put(bytes, word, 4);
  }
  const auto put = [&bytes](const toolkit::Rect& rect) {
    for (const int side : {rect.left, rect.top, rect.right, rect.bottom}) {
      BmpFile::Put(bytes, static_cast<std::uint32_t>(side), 4);
    }
  };
  put(bounds);
  std::for_each(rects.begin(), rects.end(), put);
  return bytes;
}

/// The pixels of the region in a file, drawn as letters; '.' is inside.
std::string Outline(const std::string& file) {
  const std::string bytes = ReadText(file);
  const toolkit::HRGN region = toolkit::ExtCreateRegion(std::as_bytes(std::span(bytes)));
  std::string rows;
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      rows += toolkit::RectInRegion(region, {x, y, x + 1, y + 1}) ? '.' : '#';
    }
  }
  return rows;
}

TEST_F(TransFormTest, ScanLeavesOutExactlyTheKeyColour) {
  for (const char* rows : {"................................", "....####....####....####....####",
                           "####....########............####", "#.#.#.#..#.#.#.##.#.#.#..#.#.#.#",
                           "................#######........."}) {
    Draw(rows);
    WriteText(File("out.dat"), "an older and longer file than the one that takes its place");
    shape_.ShapeMe(form_, kKey, false, File("out.dat"));
    EXPECT_EQ(rows, Outline(File("out.dat")));
  }
  Draw("################..######..######");
  shape_.ShapeMe(form_, kKey, false, File("out.dat"));
  EXPECT_EQ(Record(1, {{0, 2, 2, 4}}, {0, 2, 2, 4}), ReadText(File("out.dat")));
}

TEST_F(TransFormTest, ALoadedFileShapesTheWindowAndNoNameScans) {
  const std::string record = Record(2, {{2, 1, 6, 4}, {0, 0, 8, 1}});
  WriteText(File("in.dat"), record);
  shape_.ShapeMe(form_, 0, true, File("in.dat"));
  EXPECT_EQ(QRegion(0, 0, 8, 1) + QRegion(2, 1, 4, 3), Mask());
  EXPECT_EQ(record, ReadText(File("in.dat")));
  Draw("################..######..######");
  shape_.ShapeMe(form_, kKey, true, "");
  EXPECT_EQ(QRegion(0, 2, 2, 2), Mask());
  ShapeFromFile(shape_, form_, File("in.dat"));
  EXPECT_EQ(QRegion(0, 0, 8, 1) + QRegion(2, 1, 4, 3), Mask());
}

TEST_F(TransFormTest, BadFilesRaiseAndLeaveTheWindowRectangular) {
  const std::string file = folder_.string() + "\\Media\\bad.dat";
  const auto expect = [&](const std::string& source, std::uint32_t number, bool load) {
    try {
      shape_.ShapeMe(form_, 0, load, file);
      FAIL() << "no error";
    } catch (const TransFormError& error) {
      EXPECT_EQ(number, error.number());
      EXPECT_EQ(source, error.source());
      EXPECT_NE(std::string::npos, std::string(error.what()).find("bad.dat "));
    }
    EXPECT_NO_THROW(ShapeFromFile(shape_, form_, file));
    EXPECT_TRUE(Mask().isEmpty());
  };
  expect("Nimbrel.cDIBSectionRegion", 53, true);
  expect("TransForm", 76, false);
  for (const std::string& bad :
       {std::string(), Record(2, {{0, 0, 8, 2}}), Record(0, {}), Record(1, {{8, 0, 20, 4}})}) {
    WriteText(folder_ / "Media/bad.dat", bad);
    expect("Nimbrel.cDIBSectionRegion", 5, true);
  }
}

TEST_F(TransFormTest, DragMovesWithTheLeftButtonAndGivesTheDefaultPointerBack) {
  form_.PlacePixels(10, 20, 100, 80);
  form_.Show();
  toolkit::DoEvents();
  form_.MouseMove = [this](const toolkit::MouseEvent& event) {
    form_.SetMousePointer(toolkit::kPointerCustom);
    clsTransForm::DragForm(form_, event.button);
    EXPECT_EQ(toolkit::kPointerDefault, form_.MousePointer());
  };
  QWidget& window = Widget("frm_Shaped");
  for (const auto& [button, place] :
       {std::pair{Qt::RightButton, QPoint(10, 20)}, {Qt::LeftButton, QPoint(15, 27)}}) {
    Press(window, {30, 30}, button);
    MoveTo(window, {35, 37});
    EXPECT_EQ(place, window.pos());
    Release(window, {30, 30}, button);
  }
  form_.SetMousePointer(toolkit::kPointerHourglass);
  clsTransForm::DragForm(form_, toolkit::kNoButton);
  EXPECT_EQ(toolkit::kPointerHourglass, form_.MousePointer());
}

}  // namespace
}  // namespace nimbrel
