#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QImage>
#include <QScreen>

#include "support/real_widgets.h"
#include "toolkit/forms.h"
#include "toolkit/window.h"

namespace toolkit {
using namespace platform;
namespace {

constexpr const char* kClass = "tooltips_class32";

/// A form with one control that has a tip of its own.
class TooltipTest : public testing::Test {
 protected:
  TooltipTest() : form_("frm_Tip"), button_(form_, "btn_Tip"), tool_(button_, "pic_Tip") {
    form_.PlacePixels(50, 50, 200, 150);
    button_.PlacePixels(10, 10, 40, 40);
    tool_.PlacePixels(0, 0, 40, 40);
    form_.Show();
    DoEvents();
    tip_ =
        CreateWindowExA(WS_EX_TOPMOST, kClass, nullptr, TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT,
                        CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, button_.hWnd());
    Send(TTM_SETDELAYTIME, TTDT_INITIAL, 1);
    MoveTo(Widget("frm_Tip"), {150, 140});
  }

  std::intptr_t Send(std::uint32_t message, std::uintptr_t wparam, std::intptr_t lparam = 0) {
    return SendMessageA(tip_, message, wparam, lparam);
  }
  void AddTool(const char* text, std::uint32_t flags = TTF_IDISHWND | TTF_SUBCLASS) {
    const ToolInfo tool{flags, tool_.hWnd(), tool_.hWnd(), GetClientRect(tool_.hWnd()), text};
    EXPECT_EQ(1, Send(TTM_ADDTOOLA, 0, reinterpret_cast<std::intptr_t>(&tool)));
  }
  static bool Appears() {
    return QTest::qWaitFor([] { return Widget(kClass).isVisible(); }, 3000);
  }

  Form form_;
  UserControl button_;
  PictureBox tool_;
  HWND tip_ = nullptr;
};

TEST_F(TooltipTest, AppearsBelowTheRestingPointerInItsColours) {
  AddTool("Click & be done");
  Send(TTM_SETTIPBKCOLOR, RGB(0, 0, 255));
  EXPECT_FALSE(Widget(kClass).isVisible());
  MoveTo(Widget("frm_Tip"), {20, 20});
  ASSERT_TRUE(Appears());
  QWidget& tip = Widget(kClass);
  EXPECT_GT(tip.y(), 70);
  EXPECT_TRUE(tip.screen()->availableGeometry().contains(tip.geometry()));
  EXPECT_EQ(qRgb(0, 0, 255), PixelOf(tip, 1, 1));
  EXPECT_EQ(QStringLiteral("Click & be done"), Widget("btn_Tip").accessibleName());
  MoveTo(Widget("frm_Tip"), {150, 140});
  EXPECT_FALSE(tip.isVisible());
}

TEST_F(TooltipTest, PressDismissesItUntilThePointerComesBack) {
  AddTool("text");
  MoveTo(Widget("frm_Tip"), {20, 20});
  ASSERT_TRUE(Appears());
  PressAndRelease(Widget("frm_Tip"), {20, 20});
  EXPECT_FALSE(Widget(kClass).isVisible());
  MoveTo(Widget("frm_Tip"), {21, 21});
  EXPECT_FALSE(QTest::qWaitFor([] { return Widget(kClass).isVisible(); }, 50));
  MoveTo(Widget("frm_Tip"), {150, 140});
  MoveTo(Widget("frm_Tip"), {20, 20});
  EXPECT_TRUE(Appears());
}

TEST_F(TooltipTest, GoesAfterItsTime) {
  AddTool("text");
  Send(TTM_SETDELAYTIME, TTDT_AUTOPOP, 1);
  MoveTo(Widget("frm_Tip"), {20, 20});
  ASSERT_TRUE(QTest::qWaitFor([] { return Widget(kClass).testAttribute(Qt::WA_WState_Created); }));
  EXPECT_TRUE(QTest::qWaitFor([] { return !Widget(kClass).isVisible(); }, 3000));
}

TEST_F(TooltipTest, ShowsOverALabelOnTheTool) {
  Label label(tool_, "lbl_Tip");
  label.PlacePixels(5, 5, 30, 30);
  label.MouseDown = [](const MouseEvent&) {};
  AddTool("text");
  MoveTo(Widget("frm_Tip"), {25, 25});
  EXPECT_TRUE(Appears());
}

TEST_F(TooltipTest, WrapsAtTheLargestWidth) {
  AddTool("many words that do not fit into one line of a tip that may not be wide");
  EXPECT_EQ(-1, Send(TTM_SETMAXTIPWIDTH, 0, 100));
  EXPECT_EQ(100, Send(TTM_SETMAXTIPWIDTH, 0, 120));
  const HFONT font = CreateFontA(-13, 0, 0, 0, 400, false, false, false, 0, "Tahoma");
  Send(WM_SETFONT, reinterpret_cast<std::uintptr_t>(&font), 1);
  MoveTo(Widget("frm_Tip"), {20, 20});
  ASSERT_TRUE(Appears());
  EXPECT_LE(Widget(kClass).width(), 130);
  EXPECT_GE(Widget(kClass).height(), 3 * 13);
  EXPECT_EQ(13, Widget(kClass).font().pixelSize());
}

TEST_F(TooltipTest, CentredTipStandsBelowTheToolAndOnTheScreen) {
  AddTool("text", TTF_IDISHWND | TTF_SUBCLASS | TTF_CENTERTIP);
  MoveTo(Widget("frm_Tip"), {12, 12});
  ASSERT_TRUE(Appears());
  const QRect tip = Widget(kClass).geometry();
  EXPECT_EQ(100, tip.top());
  EXPECT_NEAR(80, tip.center().x(), 2);
  MoveTo(Widget("frm_Tip"), {150, 140});
  const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
  form_.PlacePixels(room.right() - 45, room.bottom() - 45, 200, 150);
  DoEvents();
  MoveTo(Widget("frm_Tip"), {12, 12});
  ASSERT_TRUE(Appears());
  EXPECT_TRUE(room.contains(Widget(kClass).geometry()));
}

TEST_F(TooltipTest, TimesCanBeAskedFor) {
  EXPECT_EQ(1, Send(TTM_GETDELAYTIME, TTDT_INITIAL));
  EXPECT_EQ(5000, Send(TTM_GETDELAYTIME, TTDT_AUTOPOP));
  Send(TTM_SETDELAYTIME, TTDT_AUTOPOP, 32767);
  EXPECT_EQ(32767, Send(TTM_GETDELAYTIME, TTDT_AUTOPOP));
}

TEST_F(TooltipTest, GoesWithItsParentOrWhenDestroyed) {
  EXPECT_EQ(nullptr, CreateWindowExA(0, "BUTTON", "", 0, 0, 0, 0, 0, nullptr));
  EXPECT_TRUE(DestroyWindow(tip_));
  EXPECT_FALSE(DestroyWindow(tip_));
  EXPECT_EQ(0, Send(TTM_GETDELAYTIME, TTDT_INITIAL));
  EXPECT_EQ(nullptr, FindWidget(kClass));
  EXPECT_FALSE(DestroyWindow(form_.hWnd()));
  {
    const PictureBox owner(form_, "pic_Owner");
    EXPECT_NE(nullptr, CreateWindowExA(0, kClass, nullptr, 0, 0, 0, 0, 0, owner.hWnd()));
  }
  EXPECT_EQ(nullptr, FindWidget(kClass));
}

}  // namespace
}  // namespace toolkit
