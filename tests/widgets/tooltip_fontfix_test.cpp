#include <gtest/gtest.h>

#include <map>

#include "platform/gdi.h"
#include "support/real_widgets.h"
#include "toolkit/forms.h"
#include "widgets/SkinnedButtons.h"
#include "widgets/SmallFontFix.h"
#include "widgets/cls_Tooltip.h"

namespace nimbrel {
namespace {

TEST(Tooltip, TimesAreClampedForTheCallerAndTheWindow) {
  toolkit::Form form("frm_Tip");
  cls_Tooltip tip;
  tip.Create(form.hWnd());
  for (const auto& [asked, kept] :
       std::map<std::int32_t, std::int32_t>{{40000, 32767}, {-5, 0}, {32767, 32767}, {250, 250}}) {
    std::int32_t visible = asked;
    std::int32_t delay = asked;
    tip.SetVisibleTime(visible);
    EXPECT_EQ(kept, visible);
    EXPECT_EQ(kept, tip.VisibleTime());
    tip.SetDelayTime(delay);
    EXPECT_EQ(kept, delay);
    EXPECT_EQ(kept, tip.DelayTime());
  }
}

TEST(Tooltip, PropertiesWorkBeforeCreateAndAfterDestroy) {
  toolkit::Form form("frm_Tip");
  toolkit::Label label(form, "lbl_Tool");
  cls_Tooltip tip;
  EXPECT_EQ(300, tip.MaxWidth());
  tip.SetBackColor(2);
  const toolkit::Font font;
  tip.SetFont(&font);
  tip.Create(form.hWnd());
  tip.AddControl(label, "text");
  tip.SetFont(nullptr);
  tip.SetFont(&font);
  tip.SetFont(&font);
  EXPECT_NE(nullptr, tip.hWnd());
  tip.Destroy();
  tip.Destroy();
  EXPECT_EQ(nullptr, tip.hWnd());
  tip.SetMaxWidth(5);
  EXPECT_EQ(0, tip.VisibleTime());
}

class FontFix : public testing::Test {
 protected:
  FontFix() {
    form_.SetWidth(6000);
    form_.SetHeight(4500);
    label_.PlacePixels(20, 10, 134, 30);
    label_.SetFont({.size = 12});
    picture_.PlacePixels(50, 5, 100, 60);
    button_.SetLeft(1500);
  }
  ~FontFix() override { toolkit::SetDeviceDpi(0); }

  toolkit::Form form_{"frm_Fix"};
  toolkit::Label label_{form_, "lbl"};
  toolkit::PictureBox picture_{form_, "pic"};
  StandardButton button_{form_, "btn"};
};

TEST_F(FontFix, ChangesNothingAt96) {
  EXPECT_TRUE(IsSmallFonts());
  FixFormForFontSize(form_);
  EXPECT_EQ(1.0F, FontScaleFactor);
  EXPECT_EQ(6000, form_.Width());
  EXPECT_EQ(2010, label_.Width());
  EXPECT_EQ(12, label_.GetFont().size);
  EXPECT_EQ(750, picture_.Left());
}

TEST_F(FontFix, ScalesByFourFifthsAt120ButButtonsKeepTheirSize) {
  toolkit::SetDeviceDpi(120);
  EXPECT_FALSE(IsSmallFonts());
  EXPECT_EQ(120, ScreenDpi);
  FixFormForFontSize(form_);
  EXPECT_FLOAT_EQ(0.8F, FontScaleFactor);
  EXPECT_FLOAT_EQ(4800, form_.Width());
  EXPECT_FLOAT_EQ(1608, label_.Width());
  EXPECT_FLOAT_EQ(120, label_.Top());
  EXPECT_FLOAT_EQ(9.6F, label_.GetFont().size);
  EXPECT_FLOAT_EQ(1200, picture_.Width());
  EXPECT_FLOAT_EQ(1200, button_.Left());
  EXPECT_FLOAT_EQ(toolkit::Twips(44), button_.Width());
  EXPECT_EQ(QSize(44, 4 * 44), Widget("btn").findChild<QWidget*>("pic_BG")->size());
}

}  // namespace
}  // namespace nimbrel
