#include "toolkit/forms.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QLabel>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/TempFolder.h"
#include "support/real_widgets.h"
#include "toolkit/gdiplus.h"

namespace toolkit {
namespace {

constexpr QRgb kRed = 0xFFFF0000;
constexpr QRgb kBlue = 0xFF0000FF;
constexpr platform::ColorRef kRedColor = platform::RGB(255, 0, 0);

using Lines = std::vector<std::string>;

/// A shown form of 100 by 80 pixels with a picture box of 20 by 20, and everything they say.
class FormsTest : public testing::Test {
 protected:
  FormsTest() {
    form_.PlacePixels(10, 20, 100, 80);
    box_.PlacePixels(10, 10, 20, 20);
    form_.Show();
    DoEvents();
  }

  void Keep(Control& control) {
    control.MouseDown = [this](const MouseEvent& e) { Note("down", e); };
    control.MouseMove = [this](const MouseEvent& e) { Note("move", e); };
    control.MouseUp = [this](const MouseEvent& e) { Note("up", e); };
    control.Click = [this] { said_.emplace_back("click"); };
    control.DblClick = [this] { said_.emplace_back("dblclick"); };
  }
  void Note(const char* what, const MouseEvent& e) {
    said_.push_back(std::string(what) + " " + std::to_string(e.button) + " " + std::to_string(e.x) +
                    "," + std::to_string(e.y));
  }
  Lines Said() { return std::exchange(said_, {}); }
  QWidget& Window() { return Widget("frm"); }

  std::string SavePicture(int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(kBlue);
    std::string path = (folder_ / "picture.bmp").string();
    EXPECT_TRUE(picture.save(QString::fromStdString(path)));
    return path;
  }

  TempFolder folder_;
  Lines said_;
  Form form_{"frm"};
  PictureBox box_{form_, "pic"};
};

TEST_F(FormsTest, PlacesAreTwipsAndResizeComesOnceForEachChange) {
  UserControl control(form_, "ctl");
  int calls = 0;
  control.Resize = [&] {
    ++calls;
    control.PlacePixels(7, 9, 44, 44);
  };
  control.PlacePixels(0, 0, 90, 10);
  EXPECT_EQ(1, calls);
  EXPECT_EQ(QRect(7, 9, 44, 44), Widget("ctl").geometry());
  control.SetWidth(control.Width());
  control.SetLeft(163.0F);
  EXPECT_EQ(1, calls);
  EXPECT_EQ(163.0F, control.Left());
  EXPECT_EQ(11, Widget("ctl").x());
  EXPECT_EQ(44.0F, control.ScaleHeight());
}

TEST_F(FormsTest, MouseIsToldInPixelsOfThePressedControlAndAClickEndsInsideIt) {
  Keep(box_);
  MoveTo(Widget("pic"), {5, 6});
  PressAndRelease(Widget("pic"), {5, 6});
  EXPECT_EQ((Lines{"move 0 5,6", "down 1 5,6", "up 1 5,6", "click"}), Said());
  Press(Widget("pic"), {5, 6});
  MoveTo(Widget("pic"), {45, 46});
  Release(Widget("pic"), {45, 46});
  EXPECT_EQ((Lines{"down 1 5,6", "move 1 45,46", "up 1 45,46"}), Said());
  box_.MouseMove = nullptr;
  Press(Widget("pic"), {5, 6}, Qt::RightButton);
  Release(Widget("pic"), {5, 6}, Qt::RightButton);
  EXPECT_EQ((Lines{"down 2 5,6", "up 2 5,6"}), Said());
}

TEST_F(FormsTest, HandlerMayThrowOrDestroyItsOwnForm) {
  auto doomed = std::make_unique<Form>("frm_Gone");
  auto box = std::make_unique<PictureBox>(*doomed, "pic_Gone");
  box->PlacePixels(0, 0, 50, 50);
  doomed->Show();
  DoEvents();
  int clicks = 0;
  box->Click = [&] { ++clicks; };
  box->MouseUp = [](const MouseEvent&) { throw std::runtime_error("no"); };
  QWidget& window = Widget("frm_Gone");
  PressAndRelease(window, {5, 5});
  EXPECT_EQ(1, clicks);
  const std::string kept = "what the handler holds outlives its control";
  std::string seen;
  box->MouseUp = [&, kept](const MouseEvent&) {
    box.reset();
    doomed.reset();
    seen = kept;
  };
  Press(window, {60, 60});
  Release(window, {60, 60});
  Press(window, {5, 5});
  Release(window, {5, 5});
  EXPECT_EQ(kept, seen);
  EXPECT_EQ(1, clicks) << "a click of a control that is gone";
  EXPECT_EQ(nullptr, FindWidget("frm_Gone"));
}

TEST_F(FormsTest, PictureStandsOverTheBackgroundAndDrawingStaysUntilCls) {
  Form form("frm_Draw");
  form.PlacePixels(0, 0, 60, 50);
  form.SetBackColor(kRedColor);
  WriteText(folder_ / "text.bmp", "BM but nothing more");
  EXPECT_FALSE(form.SetPicture((folder_ / "text.bmp").string()));
  EXPECT_FALSE(form.HasPicture());
  ASSERT_TRUE(form.SetPicture(SavePicture(40, 90)));
  EXPECT_FALSE(form.SetPicture((folder_ / "missing.bmp").string()));
  QWidget& widget = Widget("frm_Draw");
  EXPECT_EQ(kBlue, PixelOf(widget, 39, 29));
  EXPECT_EQ(kRed, PixelOf(widget, 40, 29));
  const platform::HDC dc = form.hDC();
  EXPECT_EQ(platform::RGB(0, 0, 255), platform::GetPixel(dc, 39, 29));
  EXPECT_EQ(kRedColor, platform::GetPixel(dc, 59, 0));
  EXPECT_EQ(platform::kInvalidColor, platform::GetPixel(dc, 60, 0));
  GpGraphics graphics;
  GpBrush blue;
  GdipCreateFromHDC(dc, graphics);
  GdipCreateSolidFill(kBlue, blue);
  GdipFillRectangle(graphics, blue, 0, 0, 60, 50);
  EXPECT_EQ(kBlue, PixelOf(widget, 59, 49));
  form.PlacePixels(0, 0, 70, 50);
  EXPECT_EQ(kBlue, PixelOf(widget, 59, 49));
  EXPECT_EQ(kRed, PixelOf(widget, 69, 49));
  form.Cls();
  EXPECT_EQ(kRed, PixelOf(widget, 59, 49));
  EXPECT_EQ(dc, form.hDC());
}

/// Paints that reach the widget, without asking it to paint.
class PaintCount : public QObject {
 public:
  bool eventFilter(QObject*, QEvent* event) override {
    count += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
  int count = 0;
};

TEST_F(FormsTest, RefreshPaintsAtOnceWithTheControlsAbove) {
  Form form("frm_Refresh");
  Label label(form, "lbl_Refresh");
  label.SetTransparent(true);
  label.PlacePixels(0, 0, 50, 20);
  form.Show();
  EXPECT_TRUE(form.Visible());
  EXPECT_FALSE(Widget("frm_Refresh").isVisible());
  PaintCount on_form;
  PaintCount on_label;
  Widget("frm_Refresh").installEventFilter(&on_form);
  Widget("lbl_Refresh").installEventFilter(&on_label);
  form.Refresh();
  EXPECT_TRUE(Widget("frm_Refresh").isVisible());
  const int first = on_form.count;
  EXPECT_GT(first, 0);
  form.Refresh();
  EXPECT_GT(on_form.count, first);
  EXPECT_GT(on_label.count, 1);
}

TEST_F(FormsTest, CursorFileGivesItsOwnHotSpot) {
  // Two pictures of 1 bit, 8 by 8: directory, header, two colours, 8 rows of picture, 8 of mask.
  // The first is named as 64 pixels wide, the second has the hot spot (3, 5).
  std::string file{"\0\0\2\0\2\0", 6};
  file += std::string{"\100\100\2\0\1\0\1\0\160\0\0\0\46\0\0\0", 16};
  file += std::string{"\10\10\2\0\3\0\5\0\160\0\0\0\46\0\0\0", 16};
  file += std::string{"\50\0\0\0\10\0\0\0\20\0\0\0\1\0\1\0", 16} + std::string(24, '\0');
  file += std::string{"\0\0\0\0\377\377\377\0", 8};
  for (int row = 0; row < 16; ++row) {
    file += std::string{row < 8 ? "\360\0\0\0" : "\0\0\0\0", 4};
  }
  const auto load = [this](const std::string& bytes) {
    WriteText(folder_ / "a.cur", bytes);
    return LoadCursorFile((folder_ / "a.cur").string());
  };
  form_.SetMouseIcon(load(file));
  EXPECT_EQ(Qt::ArrowCursor, Window().cursor().shape());
  form_.SetMousePointer(kPointerCustom);
  EXPECT_EQ(QPoint(3, 5), Window().cursor().hotSpot());
  form_.SetMouseIcon(HandCursor());
  EXPECT_EQ(QPoint(12, 1), Window().cursor().hotSpot());
  EXPECT_EQ(QSize(32, 32), Window().cursor().pixmap().size());
  for (const std::size_t length : {0U, 5U, 21U, 50U, 86U}) {
    EXPECT_EQ(nullptr, load(file.substr(0, length))) << length;
  }
  file[26] = '\11';  // a hot spot outside the picture
  EXPECT_EQ(nullptr, load(file));
}

TEST(Pointers, ScreenPointerOverridesAllWindows) {
  Screen::SetMousePointer(kPointerHourglass);
  Screen::SetMousePointer(kPointerHourglass);
  ASSERT_NE(nullptr, QGuiApplication::overrideCursor());
  EXPECT_EQ(Qt::WaitCursor, QGuiApplication::overrideCursor()->shape());
  Screen::SetMousePointer(kPointerDefault);
  EXPECT_EQ(nullptr, QGuiApplication::overrideCursor());
}

}  // namespace
}  // namespace toolkit
