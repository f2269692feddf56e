#include "toolkit/window.h"

#include <gtest/gtest.h>

#include <QTimer>
#include <string>
#include <vector>

#include "support/real_widgets.h"
#include "toolkit/forms.h"

namespace toolkit {
using namespace platform;
namespace {

using Lines = std::vector<std::string>;

void ShowSmall(Form& form) {
  form.PlacePixels(10, 20, 200, 150);
  form.Show();
  DoEvents();
}

/// Every top-level window that ever comes up while this lives.
class WindowWatch : public QObject {
 public:
  WindowWatch() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Show && object->isWidgetType() &&
        static_cast<QWidget*>(object)->isWindow()) {
      shown << object->objectName();
    }
    return false;
  }
  QStringList shown;
};

TEST(Parents, PageLivesInsideTheWindowAndGoesBackWithoutAFlash) {
  Form main("frm_Main");
  ShowSmall(main);
  Form page("frm_Page");
  page.PlacePixels(30, 40, 50, 60);
  const WindowWatch watch;
  page.Show();
  const HWND saved = SetParent(page.hWnd(), main.hWnd());
  EXPECT_EQ(nullptr, saved);
  EXPECT_EQ(main.hWnd(), GetParent(page.hWnd()));
  EXPECT_TRUE(Widget("frm_Page").isVisible());
  EXPECT_EQ(QRect(30, 40, 50, 60), Widget("frm_Page").geometry());
  DoEvents();
  main.SetLeft(Twips(70));
  EXPECT_EQ(QPoint(100, 60), Widget("frm_Page").mapToGlobal(QPoint(0, 0)));

  EXPECT_EQ(main.hWnd(), SetParent(page.hWnd(), saved));
  page.Hide();
  DoEvents();
  EXPECT_FALSE(page.Visible());
  EXPECT_EQ(nullptr, GetParent(page.hWnd()));
  page.Show();
  SetParent(page.hWnd(), main.hWnd());
  DoEvents();
  EXPECT_TRUE(Widget("frm_Page").isVisible());
  EXPECT_TRUE(watch.shown.isEmpty()) << watch.shown.join(' ').toStdString();
}

TEST(Parents, ImpossibleOnesAreRefused) {
  Form outer("frm_Outer");
  Form inner("frm_Inner");
  SetParent(inner.hWnd(), outer.hWnd());
  EXPECT_EQ(nullptr, SetParent(outer.hWnd(), inner.hWnd()));
  EXPECT_EQ(nullptr, GetParent(outer.hWnd()));
  EXPECT_EQ(nullptr, SetParent(outer.hWnd(), outer.hWnd()));
  EXPECT_EQ(nullptr, SetParent(nullptr, outer.hWnd()));
}

bool FocusComesTo(const char* name) {
  return QTest::qWaitFor([name] { return QApplication::focusWidget() == &Widget(name); });
}

TEST(Parents, HidingAPageHandsTheKeyboardToNoOtherControl) {
  Form main("frm_Keys");
  CheckBox box(main, "chk_Keys");
  ShowSmall(main);
  Form page("frm_KeysPage");
  page.Show();
  SetParent(page.hWnd(), main.hWnd());
  page.SetFocus();
  EXPECT_TRUE(FocusComesTo("frm_KeysPage"));
  SetParent(page.hWnd(), nullptr);
  page.Hide();
  main.SetFocus();
  EXPECT_TRUE(FocusComesTo("frm_Keys"));
}

TEST(Windows, FollowTheWindowManagersMoves) {
  Form form("frm_Moved");
  ShowSmall(form);
  Widget("frm_Moved").windowHandle()->setPosition(77, 66);
  EXPECT_TRUE(QTest::qWaitFor([&] { return form.Left() == Twips(77); }));
  EXPECT_EQ(Twips(66), form.Top());
}

TEST(Windows, ClosingIsOnlyAsked) {
  Form form("frm_Close");
  ShowSmall(form);
  int asked = 0;
  form.QueryUnload = [&] { ++asked; };
  Widget("frm_Close").close();
  EXPECT_EQ(1, asked);
  {
    const InputGuard guard;
    Widget("frm_Close").close();
  }
  EXPECT_EQ(1, asked);
  EXPECT_TRUE(Widget("frm_Close").isVisible());
}

TEST(Windows, RegionIsTheOutline) {
  Form form("frm_Region");
  ShowSmall(form);
  HRGN whole = CreateRectRgn(0, 0, 200, 150);
  const HRGN corner = CreateRectRgn(0, 0, 20, 10);
  ASSERT_TRUE(CombineRgn(whole, whole, corner, RGN_DIFF));
  EXPECT_TRUE(SetWindowRgn(form.hWnd(), whole, true));
  const QRegion mask = Widget("frm_Region").mask();
  EXPECT_FALSE(mask.contains(QPoint(19, 9)));
  EXPECT_TRUE(mask.contains(QPoint(20, 9)));
  EXPECT_TRUE(mask.contains(QPoint(0, 10)));
  EXPECT_FALSE(mask.contains(QPoint(200, 149)));
  EXPECT_TRUE(SetWindowRgn(form.hWnd(), HRGN(), true));
  EXPECT_TRUE(Widget("frm_Region").mask().isEmpty());
}

/// A button-like control whose strip hangs out below, watched for the pointer's leaving.
struct Sniffed {
  explicit Sniffed(Form& form) : clip(form, "clip"), strip(clip, "strip") {
    clip.PlacePixels(10, 10, 40, 40);
    strip.PlacePixels(0, 0, 40, 160);
    sniff.SetSubclassing(strip.hWnd(), true);
    sniff.NewMessage = [this](HWND window, std::uint32_t& message, std::uintptr_t&, std::intptr_t&,
                              bool&) {
      EXPECT_EQ(strip.hWnd(), window);
      leaves += message == WM_MOUSELEAVE ? 1 : 0;
    };
  }
  void Arm() { EXPECT_TRUE(TrackMouseEvent({.hwndTrack = strip.hWnd()})); }
  UserControl clip;
  PictureBox strip;
  SmartSubClass sniff;
  int leaves = 0;
};

TEST(MouseLeave, ComesOnceForEachArming) {
  Form form("frm_Leave");
  Sniffed button(form);
  ShowSmall(form);
  QWidget& window = Widget("frm_Leave");
  for (int round = 1; round <= 2; ++round) {
    MoveTo(window, {20, 20});
    button.Arm();
    MoveTo(window, {25, 25});
    EXPECT_EQ(round - 1, button.leaves);
    MoveTo(window, {100, 100});
    EXPECT_EQ(round, button.leaves);
    MoveTo(window, {20, 20});
    MoveTo(window, {100, 100});
    EXPECT_EQ(round, button.leaves);
  }
  MoveTo(window, {20, 20});
  button.Arm();
  button.sniff.SetSubclassing(button.strip.hWnd(), false);
  MoveTo(window, {100, 100});
  EXPECT_EQ(2, button.leaves);
}

TEST(MouseLeave, ComesWithTheButtonHeldBehindTheEdgeOfTheContainer) {
  Form form("frm_Held");
  Sniffed button(form);
  ShowSmall(form);
  QWidget& window = Widget("frm_Held");
  Press(window, {20, 20});
  button.Arm();
  MoveTo(window, {20, 49});
  EXPECT_EQ(0, button.leaves);
  MoveTo(window, {20, 50});
  EXPECT_EQ(1, button.leaves);
  Release(window, {20, 50});
}

TEST(MouseLeave, ComesWhenADialogOpensOrThePageGoes) {
  Form form("frm_Taken");
  Sniffed button(form);
  ShowSmall(form);
  Form dialog("frm_Dialog");
  MoveTo(Widget("frm_Taken"), {20, 20});
  button.Arm();
  QTimer::singleShot(0, [&] {
    EXPECT_EQ(1, button.leaves);
    dialog.Hide();
  });
  dialog.ShowModal();
  button.Arm();
  form.Hide();
  EXPECT_EQ(2, button.leaves);
}

TEST(Dragging, MovesTheWindowWithThePointerUntilTheRelease) {
  Form form("frm_Drag");
  ShowSmall(form);
  QWidget& window = Widget("frm_Drag");
  QWindow* handle = window.windowHandle();
  Lines diary;
  form.MouseUp = [&](const MouseEvent&) { diary.emplace_back("up"); };
  form.MouseMove = [&](const MouseEvent& event) {
    if (event.button != kLeftButton) {
      return;
    }
    // The user's hand during the loop: the window moves below a pointer that goes on.
    QTimer::singleShot(0, [&] { QTest::mouseMove(handle, QPoint(45, 60)); });
    QTimer::singleShot(0, [&] { QTest::mouseRelease(handle, Qt::LeftButton, {}, QPoint(15, 15)); });
    ReleaseCapture();
    SendMessageA(form.hWnd(), WM_NCLBUTTONDOWN, HTCAPTION, 0);
    diary.emplace_back("moved");
  };
  Press(window, {10, 10});
  MoveTo(window, {15, 15});
  EXPECT_EQ(Lines{"moved"}, diary);
  EXPECT_EQ(QPoint(40, 65), window.pos());
  EXPECT_EQ(Twips(40), form.Left());
  // The pointer is free again: the next press works, and a request without one moves nothing.
  form.MouseMove = nullptr;
  PressAndRelease(window, {30, 30});
  EXPECT_EQ((Lines{"moved", "up"}), diary);
  SendMessageA(form.hWnd(), WM_NCLBUTTONDOWN, HTCAPTION, 0);
  EXPECT_EQ(QPoint(40, 65), window.pos());
}

TEST(Modal, TakesTheInputOfOtherWindowsAndEndsWithHide) {
  Form main("frm_Below");
  ShowSmall(main);
  int presses = 0;
  main.MouseDown = [&](const MouseEvent&) { ++presses; };
  Form dialog("frm_Ask");
  dialog.MouseUp = [&](const MouseEvent&) { dialog.Hide(); };
  QTimer::singleShot(0, [&] {
    EXPECT_TRUE(dialog.Visible());
    EXPECT_EQ(Widget("frm_Below").windowHandle(),
              Widget("frm_Ask").windowHandle()->transientParent());
    PressAndRelease(Widget("frm_Below"));
    EXPECT_EQ(0, presses);
    PressAndRelease(Widget("frm_Ask"));
  });
  dialog.ShowModal();
  EXPECT_FALSE(dialog.Visible());
  EXPECT_EQ(Qt::NonModal, Widget("frm_Ask").windowModality());
  PressAndRelease(Widget("frm_Below"));
  EXPECT_EQ(1, presses);
}

/// The question whose OK runs the work: progress on the same form, then the closing message on it.
TEST(Modal, NestsOnTheSameForm) {
  Form main("frm_Under");
  ShowSmall(main);
  Form dialog("frm_Msg");
  Lines order;
  const auto answer = [&](const char* what) {
    QTimer::singleShot(0, [&order, what] {
      order.emplace_back(what);
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
      order.emplace_back("progress");
      dialog.Hide();
      answer("second");
      dialog.ShowModal();
      order.emplace_back("inner returned");
    }
    dialog.Hide();
  };
  answer("first");
  dialog.ShowModal();
  order.emplace_back("outer returned");
  EXPECT_EQ((Lines{"first", "progress", "second", "inner returned", "outer returned"}), order);
  EXPECT_FALSE(dialog.Visible());
}

TEST(Modal, EndsWhenItsFormIsDestroyed) {
  auto dialog = std::make_unique<Form>("frm_Doomed");
  QTimer::singleShot(0, [&] { dialog.reset(); });
  Form& doomed = *dialog;
  doomed.ShowModal();
  EXPECT_EQ(nullptr, dialog);
}

TEST(Guard, DropsWhatTheUserDidWhileItStood) {
  Form form("frm_Guard");
  ShowSmall(form);
  Lines diary;
  form.MouseDown = [&](const MouseEvent&) { diary.emplace_back("down"); };
  form.MouseUp = [&](const MouseEvent&) { diary.emplace_back("up"); };
  QWidget& window = Widget("frm_Guard");
  {
    const InputGuard outer;
    {
      const InputGuard inner;
      PressAndRelease(window);
    }
    PressAndRelease(window);
    Press(window);
  }
  Release(window);
  EXPECT_TRUE(diary.empty()) << diary.front();
  PressAndRelease(window);
  EXPECT_EQ((Lines{"down", "up"}), diary);
}

TEST(Guard, StartedByAReleaseLeavesNoButtonStuck) {
  Form form("frm_Run");
  PictureBox button(form, "pic_Run");
  PictureBox other(form, "pic_Next");
  button.PlacePixels(0, 0, 40, 40);
  other.PlacePixels(60, 0, 40, 40);
  ShowSmall(form);
  Lines diary;
  QWidget& window = Widget("frm_Run");
  button.MouseUp = [&](const MouseEvent&) {
    const InputGuard guard;
    diary.emplace_back("run");
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, QPoint(5, 5));
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, QPoint(5, 5));
    DoEvents();
  };
  other.MouseDown = [&](const MouseEvent&) { diary.emplace_back("other down"); };
  other.MouseUp = [&](const MouseEvent&) { diary.emplace_back("other up"); };
  PressAndRelease(window, {5, 5});
  PressAndRelease(window, {65, 5});
  PressAndRelease(window, {5, 5});
  EXPECT_EQ((Lines{"run", "other down", "other up", "run"}), diary);
}

TEST(Guard, DialogWithinCanBeAnswered) {
  Form dialog("frm_Inside");
  dialog.MouseUp = [&](const MouseEvent&) { dialog.Hide(); };
  const InputGuard guard;
  QTimer::singleShot(0, [&] { PressAndRelease(Widget("frm_Inside")); });
  dialog.ShowModal();
  EXPECT_FALSE(dialog.Visible());
}

}  // namespace
}  // namespace toolkit
