#include <gtest/gtest.h>

#include <QApplication>
#include <QWidget>

#include "platform/forms.h"
#include "platform/gdi.h"
#include "widgets/SkinnedButtons.h"
#include "widgets/SmallFontFix.h"
#include "widgets/cls_Tooltip.h"

namespace nimbrel {
namespace {

TEST(Tooltip, TimesAreClampedForTheCallerAndTheWindow) {
  struct Row {
    std::int32_t asked;
    std::int32_t kept;
  };
  platform::Form form("frm_Tip");
  cls_Tooltip tip;
  tip.Create(form.hWnd());
  for (const Row row : {Row{40000, 32767}, Row{-5, 0}, Row{32767, 32767}, Row{250, 250}}) {
    std::int32_t visible = row.asked;
    std::int32_t delay = row.asked;
    tip.SetVisibleTime(visible);
    EXPECT_EQ(row.kept, visible);
    EXPECT_EQ(row.kept, tip.VisibleTime());
    tip.SetDelayTime(delay);
    EXPECT_EQ(row.kept, delay);
    EXPECT_EQ(row.kept, tip.DelayTime());
  }
}

TEST(Tooltip, PropertiesWorkBeforeCreateAndAfterDestroy) {
  platform::Form form("frm_Tip");
  platform::Label label(form, "lbl_Tool");
  cls_Tooltip tip;
  EXPECT_EQ(300, tip.MaxWidth());
  tip.SetMaxWidth(123);
  tip.SetForeColor(1);
  tip.SetBackColor(2);
  const platform::Font font;
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
  FontFix()
      : form_("frm_Fix"), label_(form_, "lbl"), picture_(form_, "pic"), button_(form_, "btn") {
    form_.SetWidth(6000);
    form_.SetHeight(4500);
    label_.SetLeft(300);
    label_.SetTop(150);
    label_.SetWidth(2010);
    label_.SetHeight(450);
    label_.SetFont({.size = 12});
    picture_.SetLeft(750);
    picture_.SetTop(75);
    picture_.SetWidth(1500);
    picture_.SetHeight(900);
    button_.SetLeft(1500);
  }
  ~FontFix() override { platform::SetDeviceDpi(0); }

  platform::Form form_;
  platform::Label label_;
  platform::PictureBox picture_;
  StandardButton button_;
};

TEST_F(FontFix, ChangesNothingAt96) {
  EXPECT_TRUE(IsSmallFonts());
  FixFormForFontSize(form_);
  EXPECT_EQ(1.0F, FontScaleFactor);
  EXPECT_EQ(6000, form_.Width());
  EXPECT_EQ(4500, form_.Height());
  EXPECT_EQ(2010, label_.Width());
  EXPECT_EQ(12, label_.GetFont().size);
  EXPECT_EQ(750, picture_.Left());
}

TEST_F(FontFix, ScalesByFourFifthsAt120ButButtonsKeepTheirSize) {
  platform::SetDeviceDpi(120);
  EXPECT_FALSE(IsSmallFonts());
  EXPECT_EQ(120, ScreenDpi);
  FixFormForFontSize(form_);
  EXPECT_FLOAT_EQ(0.8F, FontScaleFactor);
  EXPECT_FLOAT_EQ(4800, form_.Width());
  EXPECT_FLOAT_EQ(3600, form_.Height());
  EXPECT_FLOAT_EQ(1608, label_.Width());
  EXPECT_FLOAT_EQ(240, label_.Left());
  EXPECT_FLOAT_EQ(120, label_.Top());
  EXPECT_FLOAT_EQ(360, label_.Height());
  EXPECT_FLOAT_EQ(9.6F, label_.GetFont().size);
  EXPECT_FLOAT_EQ(1200, picture_.Width());
  EXPECT_FLOAT_EQ(600, picture_.Left());
  EXPECT_FLOAT_EQ(1200, button_.Left());
  EXPECT_FLOAT_EQ(platform::Twips(44), button_.Width());
  platform::SetDeviceDpi(0);
  FixFormForFontSize(form_);
  EXPECT_EQ(1.0F, FontScaleFactor);
}

}  // namespace
}  // namespace nimbrel
