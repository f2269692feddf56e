#include "widgets/SkinnedButtons.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <tuple>
#include <vector>

#include "platform/system.h"
#include "support/BmpFile.h"
#include "support/TempFolder.h"
#include "support/real_widgets.h"

namespace nimbrel {
namespace {

using Clicked = std::tuple<ButtonClass, std::string, std::string>;
std::vector<Clicked> clicks;
std::function<void()> action;

void Record(ButtonClass button_class, const std::string& form, const std::string& type) {
  clicks.emplace_back(button_class, form, type);
  if (action) {
    action();
  }
}

constexpr QRgb kFrameColors[] = {0xFFC81010, 0xFF10C810, 0xFF1010C8, 0xFF606060};
constexpr QPoint kPlace(20, 30);
constexpr QPoint kMiddle(42, 52);
constexpr QPoint kOutside(5, 5);

/// A form with one button of each kind that matters, its artwork four plain colours.
class SkinnedButtonTest : public testing::Test {
 protected:
  SkinnedButtonTest() {
    platform::SetApplicationFolder(folder_.string());
    const auto color = [](int, int y) { return kFrameColors[y / 44]; };
    WriteText(folder_ / "Media/strip.bmp", ColorBmp(44, 4 * 44, color).Bytes());
    clicks.clear();
    action = nullptr;
    DispatchClick = Record;
    form_ = std::make_unique<toolkit::Form>("frm_Test");
    form_->SetWidth(toolkit::Twips(300));
    form_->SetHeight(toolkit::Twips(150));
    button_ = std::make_unique<StandardButton>(*form_, "btn_Test");
    SetUpButton(*button_, *form_, {20, 30, "Some_Type", "strip", "Click to do it."});
    form_->Show();
    QApplication::processEvents();
  }
  /// The toolkit remembers buttons held and the pointer's place from one test to the next.
  ~SkinnedButtonTest() override {
    DispatchClick = nullptr;
    if (Window() != nullptr) {
      Play("lr");
    }
    platform::SetApplicationFolder("");
  }

  static QWidget* Window() { return FindWidget("frm_Test"); }
  static QColor Pixel(QPoint at) { return PixelOf(*Window(), at.x(), at.y()); }

  /// One event for each letter: m move in, i move inside, l leave, p press, o press of the right
  /// button, r release, d double click, D and E owner disables and enables, X owner writes
  /// nonsense.
  void Play(std::string_view events) {
    for (const char event : events) {
      Play(event);
    }
  }
  void Play(char event) {
    const std::map<char, QPoint> moves = {
        {'m', kMiddle}, {'i', kMiddle + QPoint(3, 2)}, {'l', kOutside}};
    const std::map<char, Qt::MouseButton> presses = {{'p', Qt::LeftButton}, {'o', Qt::RightButton}};
    const std::map<char, const char*> writes = {{'D', "disabled"}, {'E', "enabled"}, {'X', "odd"}};
    QWindow* window = Window()->windowHandle();
    if (moves.contains(event)) {
      QTest::mouseMove(window, at_ = moves.at(event));
    } else if (presses.contains(event)) {
      QTest::mousePress(window, held_ = presses.at(event), {}, at_);
    } else if (writes.contains(event)) {
      button_->Setstate(writes.at(event));
    } else if (event == 'd') {
      QTest::mouseDClick(window, Qt::LeftButton, {}, at_);
    } else {
      QTest::mouseRelease(window, held_, {}, at_);
    }
    QApplication::processEvents();
  }

  TempFolder folder_;
  std::unique_ptr<toolkit::Form> form_;
  std::unique_ptr<StandardButton> button_;
  QPoint at_ = kOutside;
  Qt::MouseButton held_ = Qt::LeftButton;
};

struct Course {
  const char* events;
  const char* state;
  int frame;
  std::size_t dispatches;
};
std::ostream& operator<<(std::ostream& out, const Course& course) { return out << course.events; }

class StateTable : public SkinnedButtonTest, public testing::WithParamInterface<Course> {};

TEST_P(StateTable, EndsInStateAndFrame) {
  const Course& course = GetParam();
  Play(course.events);
  EXPECT_EQ(course.state, button_->state());
  EXPECT_EQ(QColor(kFrameColors[course.frame]), Pixel(kMiddle));
  EXPECT_EQ(course.dispatches, clicks.size());
}

constexpr Course kCourses[] = {
    {"", "enabled", 0, 0},      {"m", "highlight", 1, 0},      {"ml", "enabled", 0, 0},
    {"mp", "down", 2, 0},       {"mpi", "down", 2, 0},         {"mpl", "enabled", 0, 0},
    {"mpr", "highlight", 1, 1}, {"mor", "highlight", 1, 1},    {"mplr", "highlight", 1, 1},
    {"mprl", "enabled", 0, 1},  {"mprmpr", "highlight", 1, 2}, {"md", "highlight", 1, 2},
    {"D", "disabled", 3, 0},    {"Dmpr", "disabled", 3, 0},    {"Dml", "disabled", 3, 0},
    {"mDl", "disabled", 3, 0},  {"DE", "enabled", 0, 0},       {"X", "odd", 0, 0},
    {"DX", "odd", 3, 0},        {"Xmp", "down", 2, 0}};
INSTANTIATE_TEST_SUITE_P(Mouse, StateTable, testing::ValuesIn(kCourses));

TEST_F(SkinnedButtonTest, DispatchRunsInHighlightAndItsFailureEndsThere) {
  std::string during;
  action = [&] {
    during = button_->state();
    throw std::runtime_error("fails");
  };
  Play("mpr");
  EXPECT_EQ((std::vector<Clicked>{{ButtonClass::kStandard, "frm_Test", "some_type"}}), clicks);
  EXPECT_EQ("highlight", during);
  EXPECT_EQ("highlight", button_->state());
  Play("l");
  EXPECT_EQ("enabled", button_->state());
}

TEST_F(SkinnedButtonTest, OperationMayDisableHideOrDestroyTheButton) {
  action = [this] { button_->Setstate("disabled"); };
  Play("mpr");
  EXPECT_EQ("disabled", button_->state());
  action = [this] { form_->Hide(); };
  button_->Setstate("enabled");
  Play("pr");
  EXPECT_FALSE(form_->Visible());
  form_->Show();
  QApplication::processEvents();
  action = [this] {
    button_.reset();
    form_.reset();
  };
  Play("lmpr");
  EXPECT_EQ(3U, clicks.size());
  EXPECT_EQ(nullptr, Window());
}

TEST_F(SkinnedButtonTest, KeepsItsSizeAndShowsTheFirstFrameAfterAResize) {
  Play("D");
  button_->SetWidth(5000);
  button_->SetHeight(15);
  QApplication::processEvents();
  EXPECT_EQ(toolkit::Twips(44), button_->Width());
  EXPECT_EQ(toolkit::Twips(44), button_->Height());
  EXPECT_EQ(QColor(kFrameColors[0]), Pixel(kPlace + QPoint(1, 1)));
  EXPECT_EQ("disabled", button_->state());
}

TEST_F(SkinnedButtonTest, MissingStripKeepsThePictureThere) {
  button_->Setpicture("no such strip");
  EXPECT_EQ("no such strip", button_->picture());
  EXPECT_EQ(QColor(kFrameColors[0]), Pixel(kMiddle));
}

TEST_F(SkinnedButtonTest, ButtonWithoutArtworkTellsItsStatesApart) {
  LargeButton plain(*form_, "btn_Plain");
  SetUpButton(plain, *form_, {100, 30, "plain", "no such strip", "Click to install everything."});
  QApplication::processEvents();
  std::vector<QImage> shown;
  for (const char* state : {"enabled", "highlight", "down", "disabled"}) {
    plain.Setstate(state);
    QApplication::processEvents();
    shown.push_back(Window()->grab({100, 30, 128, 43}).toImage());
    for (std::size_t other = 0; other + 1 < shown.size(); ++other) {
      EXPECT_NE(shown[other], shown.back()) << state;
    }
  }
  plain.SetToolTip("Click to install nothing.");
  plain.Setstate("enabled");
  QApplication::processEvents();
  EXPECT_NE(shown[0], Window()->grab({100, 30, 128, 43}).toImage());
}

TEST_F(SkinnedButtonTest, CaptionStandsStillInAllStates) {
  MediumButton medium(*form_, "btn_Medium");
  SetUpButton(medium, *form_, {100, 30, "home", "strip", "Click to access it."});
  medium.SetButtonText("  Home  ");
  EXPECT_EQ("  Home  ", medium.ButtonText());
  QWidget* caption = Window()->findChild<QWidget*>("btn_Medium")->findChild<QWidget*>("Label1");
  ASSERT_NE(nullptr, caption);
  for (const char* state : {"enabled", "highlight", "down", "disabled"}) {
    medium.Setstate(state);
    EXPECT_EQ(QRect(QPoint(148, 45), QSize(85, 18)),
              QRect(caption->mapTo(Window(), QPoint(0, 0)), caption->size()))
        << state;
  }
  medium.Setstate("enabled");
  QTest::mouseClick(caption, Qt::LeftButton);
  EXPECT_EQ((std::vector<Clicked>{{ButtonClass::kMedium, "frm_Test", "home"}}), clicks);
}

TEST_F(SkinnedButtonTest, AfterEndSubClassLeavingIsNotNoticed) {
  Play("m");
  button_->end_sub_class();
  button_->end_sub_class();
  Play("l");
  EXPECT_EQ("highlight", button_->state());
}

}  // namespace
}  // namespace nimbrel
