#include "toolkit/window.h"

#include <gtest/gtest.h>

#include <QTimer>
#include <string>
#include <vector>

#include "support/real_widgets.h"
#include "toolkit/forms.h"
#include "toolkit/region.h"

namespace toolkit {
namespace {

using Lines = std::vector<std::string>;

class WindowTest : public testing::Test {
 protected:
  WindowTest() {
    form_.PlacePixels(10, 20, 200, 150);
    form_.Show();
    DoEvents();
  }
  QWidget& Window() { return Widget("frm"); }
  /// Does it once the modal loop that comes next runs.
  template <typename Action>
  static void Soon(Action action) {
    QTimer::singleShot(0, action);
  }

  Form form_{"frm"};
  Lines diary_;
};

/// Records every top-level window that is shown.
class WindowWatch : public QObject {
 public:
  WindowWatch() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Show && object->isWidgetType() &&
        static_cast<QWidget*>(object)->isWindow()) {
      shown += object->objectName().toStdString() + " ";
    }
    return false;
  }
  std::string shown;
};

TEST_F(WindowTest, PageLivesInsideTheWindowAndGoesBackWithoutAFlash) {
  Form page("frm_Page");
  page.PlacePixels(30, 40, 50, 60);
  const WindowWatch watch;
  page.Show();
  EXPECT_EQ(nullptr, SetParent(page.hWnd(), form_.hWnd()));
  EXPECT_EQ(form_.hWnd(), GetParent(page.hWnd()));
  EXPECT_TRUE(Widget("frm_Page").isVisible());
  EXPECT_EQ(QRect(30, 40, 50, 60), Widget("frm_Page").geometry());
  form_.SetLeft(Twips(70));
  EXPECT_EQ(QPoint(100, 60), Widget("frm_Page").mapToGlobal(QPoint(0, 0)));
  EXPECT_EQ(form_.hWnd(), SetParent(page.hWnd(), nullptr));
  page.Hide();
  DoEvents();
  EXPECT_FALSE(page.Visible());
  EXPECT_EQ(nullptr, GetParent(page.hWnd()));
  page.Show();
  SetParent(page.hWnd(), form_.hWnd());
  DoEvents();
  EXPECT_TRUE(Widget("frm_Page").isVisible());
  EXPECT_EQ("", watch.shown);
}

TEST_F(WindowTest, FollowsTheWindowManagerAndLetsItOnlyAskToClose) {
  Window().windowHandle()->setPosition(77, 66);
  EXPECT_TRUE(QTest::qWaitFor([&] { return form_.Left() == Twips(77); }));
  EXPECT_EQ(Twips(66), form_.Top());
  int asked = 0;
  form_.QueryUnload = [&] { ++asked; };
  Window().close();
  EXPECT_EQ(1, asked);
  {
    const InputGuard guard;
    Window().close();
  }
  EXPECT_EQ(1, asked);
  EXPECT_TRUE(Window().isVisible());
  form_.Minimize();
  EXPECT_TRUE(Window().isMinimized());
}

TEST_F(WindowTest, RegionIsTheOutline) {
  HRGN whole = CreateRectRgn(0, 0, 200, 150);
  ASSERT_TRUE(CombineRgn(whole, whole, CreateRectRgn(0, 0, 20, 10), RGN_DIFF));
  EXPECT_TRUE(SetWindowRgn(form_.hWnd(), whole, true));
  EXPECT_EQ(QRegion(0, 0, 200, 150) - QRegion(0, 0, 20, 10), Window().mask());
  EXPECT_TRUE(SetWindowRgn(form_.hWnd(), CreateRectRgn(5, 5, 5, 5), true));
  EXPECT_FALSE(Window().mask().isEmpty()) << "would show the whole window";
  EXPECT_FALSE(Window().mask().intersects(Window().rect()));
  EXPECT_TRUE(SetWindowRgn(form_.hWnd(), HRGN(), true));
  EXPECT_TRUE(Window().mask().isEmpty());
}

/// A button-like control whose strip hangs out below, watched for the pointer's leaving.
class LeaveTest : public WindowTest {
 protected:
  LeaveTest() {
    clip_.PlacePixels(10, 10, 40, 40);
    strip_.PlacePixels(0, 0, 40, 160);
    sniff_.SetSubclassing(strip_.hWnd(), true);
    sniff_.NewMessage = [this](HWND window, std::uint32_t& message, std::uintptr_t&, std::intptr_t&,
                               bool&) {
      leaves_ += window == strip_.hWnd() && message == WM_MOUSELEAVE ? 1 : 0;
    };
  }
  void Arm() { EXPECT_TRUE(TrackMouseEvent({.hwndTrack = strip_.hWnd()})); }

  UserControl clip_{form_, "clip"};
  PictureBox strip_{clip_, "strip"};
  SmartSubClass sniff_;
  int leaves_ = 0;
};

TEST_F(LeaveTest, ComesOnceForEachArming) {
  for (int round = 1; round <= 2; ++round) {
    MoveTo(Window(), {20, 20});
    Arm();
    MoveTo(Window(), {25, 25});
    EXPECT_EQ(round - 1, leaves_);
    MoveTo(Window(), {100, 100});
    EXPECT_EQ(round, leaves_);
    MoveTo(Window(), {20, 20});
    MoveTo(Window(), {100, 100});
    EXPECT_EQ(round, leaves_);
  }
  MoveTo(Window(), {20, 20});
  Arm();
  sniff_.SetSubclassing(strip_.hWnd(), false);
  MoveTo(Window(), {100, 100});
  EXPECT_EQ(2, leaves_);
}

/// The question whose OK runs the work: progress on the same form, then the closing message on it.
TEST_F(WindowTest, ModalFormTakesTheInputOfOthersAndNestsOnItself) {
  Form dialog("frm_Msg");
  form_.MouseDown = [&](const MouseEvent&) { diary_.emplace_back("below"); };
  const auto answer = [&](const char* what) {
    Soon([this, what] {
      diary_.emplace_back(what);
      EXPECT_EQ(Window().windowHandle(), Widget("frm_Msg").windowHandle()->transientParent());
      PressAndRelease(Window());
      PressAndRelease(Widget("frm_Msg"));
    });
  };
  int releases = 0;
  dialog.MouseUp = [&](const MouseEvent&) {
    if (++releases == 1) {
      dialog.Hide();
      dialog.Show();
      dialog.Refresh();
      EXPECT_EQ(Qt::NonModal, Widget("frm_Msg").windowModality());
      diary_.emplace_back("progress");
      dialog.Hide();
      answer("second");
      dialog.ShowModal();
      diary_.emplace_back("inner returned");
    }
    dialog.Hide();
  };
  answer("first");
  dialog.ShowModal();
  EXPECT_FALSE(dialog.Visible());
  PressAndRelease(Window());
  EXPECT_EQ((Lines{"first", "progress", "second", "inner returned", "below"}), diary_);
}

TEST_F(WindowTest, GuardDropsWhatTheUserDidAndADialogWithinCanBeAnswered) {
  form_.MouseDown = [&](const MouseEvent&) { diary_.emplace_back("down"); };
  form_.MouseUp = [&](const MouseEvent&) { diary_.emplace_back("up"); };
  Form dialog("frm_Inside");
  dialog.MouseUp = [&](const MouseEvent&) { dialog.Hide(); };
  {
    const InputGuard outer;
    {
      const InputGuard inner;
      PressAndRelease(Window());
    }
    PressAndRelease(Window());
    Soon([&] { PressAndRelease(Widget("frm_Inside")); });
    dialog.ShowModal();
    EXPECT_FALSE(dialog.Visible());
    Press(Window());
  }
  Release(Window());
  EXPECT_EQ(Lines{}, diary_);
  PressAndRelease(Window());
  EXPECT_EQ((Lines{"down", "up"}), diary_);
}

}  // namespace
}  // namespace toolkit
