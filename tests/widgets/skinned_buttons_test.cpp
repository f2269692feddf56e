#include "widgets/SkinnedButtons.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QTest>
#include <QWidget>
#include <QWindow>
#include <memory>
#include <ostream>
#include <stdexcept>

#include "platform/system.h"
#include "support/TempFolder.h"

namespace nimbrel {
namespace {

struct Clicked {
  ButtonClass button_class;
  std::string form;
  std::string type;
};
std::vector<Clicked> clicks;
std::function<void()> action;

void Record(ButtonClass button_class, const std::string& form, const std::string& type) {
  clicks.push_back({button_class, form, type});
  if (action) {
    action();
  }
}

constexpr QRgb kFrameColors[] = {0xFFC81010, 0xFF10C810, 0xFF1010C8, 0xFF606060};
constexpr QPoint kPlace(20, 30);
constexpr QPoint kOutside(5, 5);

/// A form with one button of each kind that matters, its artwork four plain colours.
class SkinnedButtonTest : public testing::Test {
 protected:
  SkinnedButtonTest() {
    platform::SetApplicationFolder(folder_.string());
    WriteText(folder_ / "Media/none.txt", "");
    QImage strip(44, 4 * 44, QImage::Format_RGB32);
    for (int y = 0; y < strip.height(); ++y) {
      for (int x = 0; x < strip.width(); ++x) {
        strip.setPixel(x, y, kFrameColors[y / 44]);
      }
    }
    EXPECT_TRUE(strip.save(QString::fromStdString((folder_ / "Media/strip.bmp").string())));
    clicks.clear();
    action = nullptr;
    DispatchClick = Record;
    form_ = std::make_unique<platform::Form>("frm_Test");
    form_->SetWidth(platform::Twips(300));
    form_->SetHeight(platform::Twips(150));
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

  QWidget* Window() const {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == "frm_Test") {
        return widget;
      }
    }
    return nullptr;
  }
  QWidget* Picture() const {
    return Window()->findChild<QWidget*>("btn_Test")->findChild<QWidget*>("pic_BG");
  }
  QRgb Pixel(QPoint place) const { return Window()->grab().toImage().pixel(place); }

  /// One event for each letter: m move in, i move inside, l leave, p press, o press of the right
  /// button, r release, d double click, D and E owner disables and enables, X owner writes
  /// nonsense.
  void Play(std::string_view events) {
    for (const char event : events) {
      Play(event);
    }
  }
  void Play(char event) {
    QWindow* window = Window()->windowHandle();
    const QPoint middle = kPlace + QPoint(22, 22);
    switch (event) {
      case 'm':
        QTest::mouseMove(window, at_ = middle);
        break;
      case 'i':
        QTest::mouseMove(window, at_ = middle + QPoint(3, 2));
        break;
      case 'l':
        QTest::mouseMove(window, at_ = kOutside);
        break;
      case 'p':
        QTest::mousePress(window, held_ = Qt::LeftButton, {}, at_);
        break;
      case 'o':
        QTest::mousePress(window, held_ = Qt::RightButton, {}, at_);
        break;
      case 'r':
        QTest::mouseRelease(window, held_, {}, at_);
        break;
      case 'd':
        QTest::mouseDClick(window, Qt::LeftButton, {}, at_);
        break;
      case 'D':
        button_->Setstate("disabled");
        break;
      case 'E':
        button_->Setstate("enabled");
        break;
      case 'X':
        button_->Setstate("odd");
        break;
      default:
        FAIL() << event;
    }
    QApplication::processEvents();
  }

  TempFolder folder_;
  std::unique_ptr<platform::Form> form_;
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
  EXPECT_EQ(QColor(kFrameColors[course.frame]), QColor(Pixel(kPlace + QPoint(22, 22))));
  EXPECT_EQ(course.dispatches, clicks.size());
}

INSTANTIATE_TEST_SUITE_P(
    Mouse, StateTable,
    testing::Values(Course{"", "enabled", 0, 0}, Course{"m", "highlight", 1, 0},
                    Course{"ml", "enabled", 0, 0}, Course{"mp", "down", 2, 0},
                    Course{"mpi", "down", 2, 0}, Course{"mpl", "enabled", 0, 0},
                    Course{"mpr", "highlight", 1, 1}, Course{"mor", "highlight", 1, 1},
                    Course{"mplr", "highlight", 1, 1}, Course{"mprl", "enabled", 0, 1},
                    Course{"mprmpr", "highlight", 1, 2}, Course{"md", "highlight", 1, 2},
                    Course{"D", "disabled", 3, 0}, Course{"Dmpr", "disabled", 3, 0},
                    Course{"Dml", "disabled", 3, 0}, Course{"mDl", "disabled", 3, 0},
                    Course{"DE", "enabled", 0, 0}, Course{"X", "odd", 0, 0},
                    Course{"DX", "odd", 3, 0}, Course{"Xmp", "down", 2, 0}));

TEST_F(SkinnedButtonTest, DispatchGetsClassFormAndLowerCaseType) {
  Play("mpr");
  ASSERT_EQ(1U, clicks.size());
  EXPECT_EQ(ButtonClass::kStandard, clicks[0].button_class);
  EXPECT_EQ("frm_Test", clicks[0].form);
  EXPECT_EQ("some_type", clicks[0].type);
}

TEST_F(SkinnedButtonTest, StateDuringDispatchIsHighlightAndFailureEndsThere) {
  std::string during;
  action = [&] {
    during = button_->state();
    throw std::runtime_error("fails");
  };
  Play("mpr");
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
  EXPECT_EQ(platform::Twips(44), button_->Width());
  EXPECT_EQ(platform::Twips(44), button_->Height());
  EXPECT_EQ(QColor(kFrameColors[0]), QColor(Pixel(kPlace + QPoint(1, 1))));
  EXPECT_EQ("disabled", button_->state());
}

TEST_F(SkinnedButtonTest, StateWrittenBeforeTheFirstShowIsShown) {
  StandardButton late(*form_, "btn_Late");
  SetUpButton(late, *form_, {100, 30, "late", "strip", "Click to wait."});
  late.Setstate("disabled");
  form_->Hide();
  form_->Show();
  QApplication::processEvents();
  EXPECT_EQ(QColor(kFrameColors[3]), QColor(Pixel({120, 50})));
}

TEST_F(SkinnedButtonTest, MissingStripKeepsThePictureThere) {
  button_->Setpicture("no such strip");
  EXPECT_EQ("no such strip", button_->picture());
  EXPECT_EQ(QColor(kFrameColors[0]), QColor(Pixel(kPlace + QPoint(22, 22))));
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
  ASSERT_EQ(1U, clicks.size());
  EXPECT_EQ("home", clicks[0].type);
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
