#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QStyle>
#include <QToolTip>

#include "platform/gdi.h"
#include "support/real_widgets.h"
#include "widgets/cls_Tooltip.h"

namespace nimbrel {
namespace {

/// A button-like control whose part has the tip, and a label on that part.
class TooltipTest : public testing::Test {
 protected:
  TooltipTest() {
    form_.PlacePixels(50, 50, 200, 150);
    tool_.PlacePixels(0, 0, 40, 40);
    label_.PlacePixels(5, 5, 30, 30);
    label_.Click = [] {};
    form_.Show();
    toolkit::DoEvents();
    tip_.SetBackColor(platform::RGB(0, 0, 255));
    tip_.Create(button_.hWnd());
  }
  ~TooltipTest() override { QToolTip::hideText(); }

  /// What the toolkit does once the pointer has rested on the label for the delay.
  void Rest() {
    QHelpEvent help(QEvent::ToolTip, {3, 3}, Widget("lbl").mapToGlobal(QPoint(3, 3)));
    QApplication::sendEvent(&Widget("lbl"), &help);
  }
  static QWidget& Shown() { return Widget("qtooltip_label"); }

  toolkit::Form form_{"frm_Tip"};
  toolkit::UserControl button_{form_, "btn"};
  toolkit::PictureBox tool_{button_, "pic"};
  toolkit::Label label_{tool_, "lbl"};
  cls_Tooltip tip_;
};

TEST_F(TooltipTest, ShowsInItsColoursAndFontWrappedAtItsWidth) {
  tip_.SetMaxWidth(120);
  tip_.AddControl(tool_, "Click & see many words that do not fit into one line");
  tip_.SetForeColor(platform::RGB(255, 0, 0));
  const toolkit::Font font{.name = "Tahoma", .size = 9.75F, .weight = 700};
  tip_.SetFont(&font);
  tip_.SetFont(nullptr);
  Rest();
  ASSERT_TRUE(QToolTip::isVisible());
  EXPECT_EQ(13, Shown().font().pixelSize());
  EXPECT_TRUE(Shown().font().bold());
  EXPECT_LE(Shown().width(), 130);
  EXPECT_GE(Shown().height(), 3 * 13);
  EXPECT_EQ(qRgb(0, 0, 255), PixelOf(Shown(), 2, 1));
  EXPECT_EQ(QColor(255, 0, 0), QToolTip::palette().color(QPalette::ToolTipText));
  for (const char* name : {"pic", "btn"}) {
    EXPECT_TRUE(Widget(name).accessibleName().startsWith(QStringLiteral("Click & see"))) << name;
  }
  EXPECT_EQ("", Widget("frm_Tip").accessibleName().toStdString());
}

TEST_F(TooltipTest, ComesAgainOnlyAfterThePointerHasLeft) {
  tip_.AddControl(tool_, "text");
  const auto appears = [this] {
    Rest();
    const bool visible = QToolTip::isVisible();
    delete FindWidget("qtooltip_label");
    return visible;
  };
  MoveTo(Widget("lbl"), {3, 3});
  EXPECT_TRUE(appears());
  EXPECT_FALSE(appears());
  MoveTo(Widget("frm_Tip"), {150, 140});
  EXPECT_TRUE(appears());
  MoveTo(Widget("lbl"), {3, 3});
  MoveTo(Widget("frm_Tip"), {150, 140});
  PressAndRelease(Widget("lbl"), {3, 3});
  EXPECT_FALSE(appears());
}

}  // namespace
}  // namespace nimbrel
