#include "widgets/SkinnedButtons.h"

#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QStyle>
#include <QToolTip>
#include <algorithm>
#include <memory>
#include <stdexcept>
#include <vector>

#include "support/BmpFile.h"
#include "support/TempFolder.h"
#include "support/real_widgets.h"

namespace nimbrel {
namespace {

constexpr QRgb kFrameColors[] = {0xFFC81010, 0xFF10C810, 0xFF1010C8, 0xFF606060};
constexpr QPoint kMiddle(42, 52);
constexpr QPoint kOutside(5, 5);

/// A form with one button at (20, 30), its artwork four plain colours.
class SkinnedButtonTest : public testing::Test {
 protected:
  SkinnedButtonTest() {
    const auto color = [](int, int y) { return kFrameColors[y / 44]; };
    WriteText(folder_ / "Media/strip.bmp", ColorBmp(44, 4 * 44, color).Bytes());
    form_->PlacePixels(0, 0, 300, 150);
    SetUpButton(*button_, *form_, context_, {20, 30, "Some_Type", " strip ", "Click to do it."});
    form_->Show();
    toolkit::DoEvents();
  }
  /// The toolkit remembers buttons held and the pointer's place from one test to the next.
  ~SkinnedButtonTest() override {
    context_.dispatch = nullptr;
    if (form_ != nullptr) {
      Play("lr");
    }
  }

  static QWidget& Window() { return Widget("frm_Test"); }
  static QRgb Pixel(QPoint at = kMiddle) { return PixelOf(Window(), at.x(), at.y()); }

  /// One event for each letter: m move in, i move inside, l leave, p press, o press of the right
  /// button, r release, d double click, D and E owner disables and enables, X owner writes
  /// nonsense.
  void Play(std::string_view events) {
    for (const char event : events) {
      Play(event);
      toolkit::DoEvents();
    }
  }
  void Play(char event) {
    QWindow* window = Window().windowHandle();
    switch (event) {
      case 'm':
        return QTest::mouseMove(window, at_ = kMiddle);
      case 'i':
        return QTest::mouseMove(window, at_ = kMiddle + QPoint(3, 2));
      case 'l':
        return QTest::mouseMove(window, at_ = kOutside);
      case 'p':
        return QTest::mousePress(window, held_ = Qt::LeftButton, {}, at_);
      case 'o':
        return QTest::mousePress(window, held_ = Qt::RightButton, {}, at_);
      case 'r':
        return QTest::mouseRelease(window, held_, {}, at_);
      case 'd':
        return QTest::mouseDClick(window, Qt::LeftButton, {}, at_);
      default:
        button_->Setstate(event == 'D' ? "disabled" : event == 'E' ? "enabled" : "odd");
    }
  }

  TempFolder folder_;
  std::vector<std::string> clicks_;
  std::function<void()> action_ = [] {};
  ButtonContext context_{
      (folder_ / "Media").string(),
      [this](ButtonClass button_class, const std::string& form, const std::string& type) {
        clicks_.push_back(std::to_string(static_cast<int>(button_class)) + " " + form + " " + type);
        action_();
      }};
  std::unique_ptr<toolkit::Form> form_ = std::make_unique<toolkit::Form>("frm_Test");
  std::unique_ptr<StandardButton> button_ = std::make_unique<StandardButton>(*form_, "btn_Test");
  QPoint at_ = kOutside;
  Qt::MouseButton held_ = Qt::LeftButton;
};

struct Course {
  const char* events;
  const char* state;
  int frame;
  std::size_t dispatches;
};
constexpr Course kCourses[] = {
    {"", "enabled", 0, 0},      {"m", "highlight", 1, 0},      {"ml", "enabled", 0, 0},
    {"mp", "down", 2, 0},       {"mpi", "down", 2, 0},         {"mpl", "enabled", 0, 0},
    {"mpr", "highlight", 1, 1}, {"mor", "highlight", 1, 1},    {"mplr", "highlight", 1, 1},
    {"mprl", "enabled", 0, 1},  {"mprmpr", "highlight", 1, 2}, {"md", "highlight", 1, 2},
    {"D", "disabled", 3, 0},    {"Dmpr", "disabled", 3, 0},    {"Dml", "disabled", 3, 0},
    {"mDl", "disabled", 3, 0},  {"DE", "enabled", 0, 0},       {"X", "odd", 0, 0},
    {"DX", "odd", 3, 0},        {"Xmp", "down", 2, 0}};

class StateTable : public SkinnedButtonTest, public testing::WithParamInterface<Course> {};

TEST_P(StateTable, EndsInStateAndFrame) {
  SCOPED_TRACE(GetParam().events);
  Play(GetParam().events);
  EXPECT_EQ(GetParam().state, button_->state());
  EXPECT_EQ(kFrameColors[GetParam().frame], Pixel());
  EXPECT_EQ(GetParam().dispatches, clicks_.size());
}

INSTANTIATE_TEST_SUITE_P(Mouse, StateTable, testing::ValuesIn(kCourses));

TEST_F(SkinnedButtonTest, DispatchRunsInHighlightAndItsFailureEndsThere) {
  std::string during;
  action_ = [&] {
    during = button_->state();
    throw std::runtime_error("fails");
  };
  Play("mpr");
  EXPECT_EQ(std::vector<std::string>{"2 frm_Test some_type"}, clicks_);
  EXPECT_EQ("highlight", during);
  Play("l");
  EXPECT_EQ("enabled", button_->state());
}

TEST_F(SkinnedButtonTest, OperationMayDisableOrDestroyTheButton) {
  action_ = [this] { button_->Setstate("disabled"); };
  Play("mpr");
  EXPECT_EQ("disabled", button_->state());
  action_ = [this] {
    button_.reset();
    form_.reset();
  };
  Play("Elmp");
  Play('r');
  EXPECT_EQ(2U, clicks_.size());
  EXPECT_EQ(nullptr, FindWidget("frm_Test"));
}

TEST_F(SkinnedButtonTest, KeepsItsSizeAndShowsTheFirstFrameAfterAResize) {
  Play("D");
  button_->PlacePixels(20, 30, 333, 1);
  EXPECT_EQ(QSize(44, 44), Widget("btn_Test").size());
  EXPECT_EQ(kFrameColors[0], Pixel({21, 31}));
  EXPECT_EQ("disabled", button_->state());
  button_->Setpicture("no such strip");
  EXPECT_EQ("no such strip", button_->picture());
  EXPECT_EQ(kFrameColors[0], Pixel()) << "a missing strip keeps the picture";
}

TEST_F(SkinnedButtonTest, ButtonWithoutArtworkTellsItsStatesApartAndSaysWhatItDoes) {
  LargeButton plain(*form_, "btn_Plain");
  SetUpButton(plain, *form_, context_, {100, 30, "plain", "none", "Click to install everything."});
  std::vector<QImage> shown;
  const auto look = [] { return Window().grab({100, 30, 128, 43}).toImage(); };
  for (const char* state : {"enabled", "highlight", "down", "disabled"}) {
    plain.Setstate(state);
    EXPECT_EQ(0, std::count(shown.begin(), shown.end(), look())) << state;
    shown.push_back(look());
  }
  plain.SetToolTip("Click install nothing.");
  plain.Setstate("enabled");
  EXPECT_NE(shown.front(), look());
  plain.SetToolTip("install everything.");
  EXPECT_EQ(shown.front(), look()) << "the opening is left out";
}

}  // namespace
}  // namespace nimbrel
