#include "toolkit/forms.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/TempFolder.h"
#include "support/real_widgets.h"

namespace toolkit {
using namespace platform;
namespace {

constexpr QRgb kRed = qRgb(255, 0, 0);
constexpr QRgb kBlue = qRgb(0, 0, 255);

/// Shows a form of 100 by 80 pixels and lets its window come up.
void ShowSmall(Form& form) {
  form.PlacePixels(10, 20, 100, 80);
  form.Show();
  DoEvents();
}

std::string SavePicture(const TempFolder& folder, int width, int height, QRgb color) {
  QImage picture(width, height, QImage::Format_RGB32);
  picture.fill(color);
  std::string path = (folder / "picture.bmp").string();
  EXPECT_TRUE(picture.save(QString::fromStdString(path)));
  return path;
}

void FillContext(const HDC& dc, std::uint32_t word) {
  Bitmap& bitmap = *dc->bitmap;
  for (std::size_t at = 0; at < bitmap.bits.size(); at += 4) {
    std::memcpy(bitmap.bits.data() + at, &word, 4);
  }
}

/// Everything a control says, in order.
struct Diary {
  std::vector<std::string> lines;
  void Keep(Control& control) {
    control.MouseDown = [this](const MouseEvent& e) { Note("down", e); };
    control.MouseMove = [this](const MouseEvent& e) { Note("move", e); };
    control.MouseUp = [this](const MouseEvent& e) { Note("up", e); };
    control.Click = [this] { lines.emplace_back("click"); };
    control.DblClick = [this] { lines.emplace_back("dblclick"); };
  }
  void Note(const char* what, const MouseEvent& e) {
    lines.push_back(std::string(what) + " " + std::to_string(e.button) + " " + std::to_string(e.x) +
                    "," + std::to_string(e.y));
  }
};

using Lines = std::vector<std::string>;

TEST(Controls, StandInTwipsWhereTheyWerePut) {
  Form form("frm_Place");
  PictureBox box(form, "pic_Place");
  box.PlacePixels(7, 9, 30, 20);
  EXPECT_EQ(QRect(7, 9, 30, 20), Widget("pic_Place").geometry());
  box.SetLeft(163.0F);
  EXPECT_EQ(163.0F, box.Left());
  EXPECT_EQ(11, Widget("pic_Place").x());
  EXPECT_EQ(20.0F, box.ScaleHeight());
}

TEST(Controls, AreListedInTheOrderOfTheirMaking) {
  Form form("frm_List");
  PictureBox outer(form, "outer");
  Label inner(outer, "inner");
  {
    const CheckBox passing(form, "passing");
    EXPECT_EQ((std::vector<Control*>{&outer, &inner, const_cast<CheckBox*>(&passing)}),
              form.Controls());
  }
  EXPECT_EQ((std::vector<Control*>{&outer, &inner}), form.Controls());
}

TEST(Controls, ResizeComesOnceForEachChangeAndMayForceASize) {
  Form form("frm_Resize");
  UserControl control(form, "ctl");
  int calls = 0;
  control.Resize = [&] {
    ++calls;
    control.PlacePixels(0, 0, 44, 44);
  };
  control.PlacePixels(0, 0, 90, 10);
  EXPECT_EQ(1, calls);
  EXPECT_EQ(QSize(44, 44), Widget("ctl").size());
  control.SetWidth(control.Width());
  control.SetLeft(30);
  EXPECT_EQ(1, calls);
}

TEST(Mouse, TellsPressMoveReleaseAndClickInPixelsOfTheControl) {
  Form form("frm_Mouse");
  PictureBox box(form, "pic_Mouse");
  box.PlacePixels(10, 10, 50, 40);
  ShowSmall(form);
  Diary diary;
  diary.Keep(box);
  QWidget& widget = Widget("pic_Mouse");
  MoveTo(widget, {5, 6});
  PressAndRelease(widget, {5, 6});
  EXPECT_EQ((Lines{"move 0 5,6", "down 1 5,6", "up 1 5,6", "click"}), diary.lines);
}

TEST(Mouse, ReleaseAwayFromThePressedControlComesToItWithoutAClick) {
  Form form("frm_Away");
  PictureBox box(form, "pic_Away");
  PictureBox other(form, "pic_Other");
  box.PlacePixels(0, 0, 20, 20);
  other.PlacePixels(40, 40, 20, 20);
  ShowSmall(form);
  Diary diary;
  diary.Keep(box);
  diary.Keep(other);
  QWidget& widget = Widget("pic_Away");
  MoveTo(widget, {5, 5});
  diary.lines.clear();
  Press(widget, {5, 5});
  MoveTo(widget, {45, 46});
  Release(widget, {45, 46});
  EXPECT_EQ((Lines{"down 1 5,5", "move 1 45,46", "up 1 45,46"}), diary.lines);
}

TEST(Mouse, SecondFastPressIsADoubleClickAndNoSecondClick) {
  Form form("frm_Double");
  ShowSmall(form);
  Diary diary;
  diary.Keep(form);
  form.MouseMove = nullptr;
  DoublePress(Widget("frm_Double"), {5, 6});
  EXPECT_EQ((Lines{"down 1 5,6", "up 1 5,6", "click", "dblclick", "up 1 5,6"}), diary.lines);
  diary.lines.clear();
  form.DblClick = nullptr;
  DoublePress(Widget("frm_Double"), {60, 60});
  EXPECT_EQ((Lines{"down 1 60,60", "up 1 60,60", "click", "down 1 60,60", "up 1 60,60", "click"}),
            diary.lines);
}

TEST(Mouse, LabelWithoutHandlersIsPartOfItsContainer) {
  Form form("frm_Through");
  Label label(form, "lbl_Through");
  label.PlacePixels(10, 20, 40, 20);
  ShowSmall(form);
  Diary diary;
  diary.Keep(form);
  form.MouseMove = nullptr;
  PressAndRelease(Widget("lbl_Through"), {3, 4});
  EXPECT_EQ((Lines{"down 1 13,24", "up 1 13,24", "click"}), diary.lines);
  diary.lines.clear();
  label.Click = [&] { diary.lines.emplace_back("label"); };
  PressAndRelease(Widget("lbl_Through"), {3, 4});
  EXPECT_EQ(Lines{"label"}, diary.lines);
}

TEST(Mouse, ExceptionLeavingAHandlerIsDropped) {
  Form form("frm_Throw");
  ShowSmall(form);
  int clicks = 0;
  form.MouseUp = [](const MouseEvent&) { throw std::runtime_error("no"); };
  form.Click = [&] { ++clicks; };
  PressAndRelease(Widget("frm_Throw"));
  EXPECT_EQ(1, clicks);
}

TEST(Mouse, HandlerMayDestroyItsOwnForm) {
  auto form = std::make_unique<Form>("frm_Gone");
  auto box = std::make_unique<PictureBox>(*form, "pic_Gone");
  box->PlacePixels(0, 0, 50, 50);
  ShowSmall(*form);
  const std::string kept = "what the handler holds outlives its control";
  std::string seen;
  box->Click = [] { ADD_FAILURE() << "a click of a control that is gone"; };
  box->MouseUp = [&, kept](const MouseEvent&) {
    box.reset();
    form.reset();
    seen = kept;
  };
  QWidget& window = *Widget("pic_Gone").window();
  Press(window, {5, 5});
  Release(window, {5, 5});
  EXPECT_EQ(kept, seen);
  EXPECT_EQ(nullptr, FindWidget("frm_Gone"));
}

TEST(RetainedBitmap, PictureStandsOverTheBackgroundColour) {
  const TempFolder folder;
  Form form("frm_Picture");
  form.PlacePixels(0, 0, 60, 50);
  form.SetBackColor(RGB(0, 0, 255));
  EXPECT_FALSE(form.SetPicture((folder / "missing.bmp").string()));
  WriteText(folder / "text.bmp", "BM but nothing more");
  EXPECT_FALSE(form.SetPicture((folder / "text.bmp").string()));
  EXPECT_FALSE(form.HasPicture());
  ASSERT_TRUE(form.SetPicture(SavePicture(folder, 40, 90, kRed)));
  EXPECT_FALSE(form.SetPicture((folder / "missing.bmp").string()));
  QWidget& widget = Widget("frm_Picture");
  EXPECT_EQ(kRed, PixelOf(widget, 39, 49));
  EXPECT_EQ(kBlue, PixelOf(widget, 40, 49));
  EXPECT_EQ(RGB(255, 0, 0), GetPixel(form.hDC(), 39, 49));
  EXPECT_EQ(RGB(0, 0, 255), GetPixel(form.hDC(), 59, 0));
  EXPECT_EQ(kInvalidColor, GetPixel(form.hDC(), 60, 0));
}

TEST(RetainedBitmap, DrawingStaysUntilClsAndThroughASizeChange) {
  Form form("frm_Draw");
  form.PlacePixels(0, 0, 20, 10);
  form.SetBackColor(RGB(255, 0, 0));
  const HDC dc = form.hDC();
  FillContext(dc, 0xFF0000FFU);
  QWidget& widget = Widget("frm_Draw");
  EXPECT_EQ(kBlue, PixelOf(widget, 19, 9));
  form.PlacePixels(0, 0, 30, 10);
  EXPECT_EQ(30, dc->bitmap->width);
  EXPECT_EQ(kBlue, PixelOf(widget, 19, 9));
  EXPECT_EQ(kRed, PixelOf(widget, 20, 9));
  form.Cls();
  EXPECT_EQ(kRed, PixelOf(widget, 19, 9));
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

TEST(RetainedBitmap, RefreshPaintsAtOnceWithTheControlsAboveAndRunsNoUserEvent) {
  Form form("frm_Refresh");
  Label label(form, "lbl_Refresh");
  label.SetTransparent(true);
  label.PlacePixels(0, 0, 50, 20);
  form.PlacePixels(0, 0, 100, 80);
  form.MouseDown = [](const MouseEvent&) { ADD_FAILURE() << "a press within Refresh"; };
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

/// A skinned button: frames one below the other in a picture that is moved behind the control.
TEST(RetainedBitmap, StripShowsTheFrameThatItIsMovedTo) {
  const TempFolder folder;
  QImage strip(10, 40, QImage::Format_RGB32);
  strip.fill(kRed);
  for (int y = 20; y < 30; ++y) {
    for (int x = 0; x < 10; ++x) {
      strip.setPixel(x, y, kBlue);
    }
  }
  const std::string path = (folder / "strip.bmp").string();
  ASSERT_TRUE(strip.save(QString::fromStdString(path)));
  Form form("frm_Strip");
  UserControl button(form, "btn_Strip");
  PictureBox strip_box(button, "pic_Strip");
  button.PlacePixels(5, 5, 10, 10);
  strip_box.PlacePixels(0, 0, 10, 40);
  ASSERT_TRUE(strip_box.SetPicture(path));
  EXPECT_EQ(kRed, PixelOf(Widget("frm_Strip"), 14, 14));
  strip_box.SetTop(Twips(-20));
  EXPECT_EQ(kBlue, PixelOf(Widget("frm_Strip"), 5, 5));
  EXPECT_EQ(kBlue, PixelOf(Widget("frm_Strip"), 14, 14));
  EXPECT_NE(kBlue, PixelOf(Widget("frm_Strip"), 14, 15));
}

TEST(Labels, CaptionIsPlainTextWithLineBreaks) {
  Form form("frm_Label");
  Label label(form, "lbl_Text");
  label.SetCaption("a & <b>b</b>\r\rc\r\nd");
  EXPECT_EQ("a & <b>b</b>\r\rc\r\nd", label.Caption());
  const auto& widget = dynamic_cast<QLabel&>(Widget("lbl_Text"));
  EXPECT_EQ(QStringLiteral("a & <b>b</b>\n\nc\nd"), widget.text());
  EXPECT_EQ(Qt::PlainText, widget.textFormat());
}

TEST(Labels, FontsAreCountedIn96DotsAnInch) {
  struct Row {
    float points;
    int pixels;
  };
  Form form("frm_Font");
  Label label(form, "lbl_Font");
  for (const Row& row : {Row{8.25F, 11}, Row{9.75F, 13}, Row{12, 16}, Row{0, 1}}) {
    label.SetFont({.size = row.points});
    EXPECT_EQ(row.pixels, Widget("lbl_Font").font().pixelSize()) << row.points;
  }
}

TEST(CheckBoxes, WholeMarkFitsInto14PixelsAndTheClickIsTold) {
  Form form("frm_Check");
  CheckBox box(form, "chk_Box");
  box.PlacePixels(10, 10, 14, 14);
  box.SetBackColor(RGB(255, 0, 0));
  ShowSmall(form);
  int clicks = 0;
  box.Click = [&] { ++clicks; };
  QWidget& widget = Widget("chk_Box");
  const QImage off = widget.grab().toImage();
  box.SetValue(1);
  EXPECT_EQ(0, clicks);
  EXPECT_NE(off, widget.grab().toImage());
  for (int i = 3; i < 11; ++i) {
    EXPECT_NE(kRed, off.pixel(i, 0)) << "the upper edge of the mark at " << i;
    EXPECT_NE(kRed, off.pixel(13, i)) << "the right edge of the mark at " << i;
  }
  PressAndRelease(widget, {7, 7});
  EXPECT_EQ(0, box.Value());
  EXPECT_EQ(1, clicks);
  box.SetValue(2);
  EXPECT_EQ(0, box.Value());
}

TEST(ComboBoxes, RowsCarryNumbersAndNothingIsSelectedByItself) {
  Form form("frm_Combo");
  ComboBox box(form, "combo_Box");
  EXPECT_EQ(-1, box.ListIndex());
  box.AddItem("first", 30);
  box.AddItem("sec & ond", -4);
  EXPECT_EQ(-1, box.ListIndex());
  box.SetListIndex(1);
  EXPECT_EQ(1, box.ListIndex());
  EXPECT_EQ(-4, box.ItemData(1));
  EXPECT_EQ("sec & ond", box.List(1));
  box.SetListIndex(2);
  EXPECT_EQ(1, box.ListIndex());
  EXPECT_EQ("", box.List(-1));
  EXPECT_EQ(0, box.ItemData(7));
  box.Clear();
  EXPECT_EQ(0, box.ListCount());
  EXPECT_EQ(-1, box.ListIndex());
}

TEST(Pointers, CursorFileGivesItsOwnHotSpot) {
  const TempFolder folder;
  // One 8 by 8 picture of 1 bit: directory, header, two colours, 8 rows of picture, 8 of mask.
  std::string file{"\0\0\2\0\1\0\10\10\2\0\3\0\5\0\160\0\0\0\26\0\0\0", 22};
  file += std::string{"\50\0\0\0\10\0\0\0\20\0\0\0\1\0\1\0", 16} + std::string(24, '\0');
  file += std::string{"\0\0\0\0\377\377\377\0", 8};
  for (int row = 0; row < 16; ++row) {
    file += std::string{row < 8 ? "\360\0\0\0" : "\0\0\0\0", 4};
  }
  WriteText(folder / "good.cur", file);
  Form form("frm_Cursor");
  const CursorHandle cursor = LoadCursorFile((folder / "good.cur").string());
  ASSERT_NE(nullptr, cursor);
  form.SetMouseIcon(cursor);
  EXPECT_EQ(Qt::ArrowCursor, Widget("frm_Cursor").cursor().shape());
  form.SetMousePointer(kPointerCustom);
  EXPECT_EQ(QPoint(3, 5), Widget("frm_Cursor").cursor().hotSpot());
  form.SetMouseIcon(HandCursor());
  EXPECT_EQ(QPoint(12, 1), Widget("frm_Cursor").cursor().hotSpot());
  EXPECT_EQ(QSize(32, 32), Widget("frm_Cursor").cursor().pixmap().size());

  EXPECT_EQ(nullptr, LoadCursorFile((folder / "none.cur").string()));
  for (const std::size_t length : {0U, 5U, 21U, 40U, 70U}) {
    WriteText(folder / "short.cur", file.substr(0, length));
    EXPECT_EQ(nullptr, LoadCursorFile((folder / "short.cur").string())) << length;
  }
  file[10] = '\11';
  WriteText(folder / "outside.cur", file);
  EXPECT_EQ(nullptr, LoadCursorFile((folder / "outside.cur").string()));
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
