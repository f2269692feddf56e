#include <gtest/gtest.h>

#include <QtTest>

#include "ShellWorld.h"
#include "app/mod_Main.h"
#include "shell/State.h"
#include "shell/dialogs/frm_Msg.h"
#include "shell/pages/frm_Main.h"
#include "support/BmpFile.h"

namespace nimbrel {
namespace {

constexpr std::uint32_t kBackground = 0xD0E0F0;
constexpr std::uint32_t kBar = 0x0372AC;

/// A started program with artwork in one colour.
struct Message : testing::Test {
  Message() {
    const auto plain = [](int, int) { return kBackground; };
    WriteText(world.Program("Media/Msg_BG.bmp"), ColorBmp(400, 300, plain).Bytes());
    WriteText(world.Program("Media/icon_Error.bmp"), ColorBmp(100, 100, plain).Bytes());
    StartProgram();
    Loaded(ui.forms.message);
    ui.MessageAnswer = -1;
  }
  static frm_Msg& Dialog() { return *ui.forms.message; }
  ShellWorld world;
};

struct Offer {
  const char* kind;
  bool ok;
  bool cancel;
  std::int16_t close_answers;
};

TEST_F(Message, OffersTheButtonsAskedForAndCloseTakesTheSaferOne) {
  for (const Offer& offer : {Offer{"Error", true, false, 1}, Offer{"Question", true, true, 0},
                             Offer{"Error", false, true, 0}}) {
    QTimer::singleShot(0, [&] {
      EXPECT_EQ(" One.\r\rTwo. ", Dialog().lbl_Message.Caption());
      EXPECT_EQ(offer.ok, Dialog().btn_OK.Visible());
      EXPECT_EQ(offer.cancel, Dialog().btn_Cancel.Visible());
      EXPECT_EQ(offer.ok ? "enabled" : "disabled", Dialog().btn_OK.state());
      EXPECT_EQ(offer.cancel ? "enabled" : "disabled", Dialog().btn_Cancel.state());
      EXPECT_EQ(offer.kind == std::string("Error"), Dialog().pic_Icon.Visible())
          << "without its file a kind has no icon";
      Window("frm_Msg")->close();
    });
    ShowMessage(offer.kind, "Title", " One.\r\rTwo. ", offer.ok, offer.cancel, false);
    EXPECT_EQ(offer.close_answers, ui.MessageAnswer);
    EXPECT_FALSE(Dialog().form.Visible());
  }
}

TEST_F(Message, ProgressReturnsAtOnceInTheMiddleOfTheWindowAndCanNotBeAnswered) {
  const toolkit::Form& form = Dialog().form;
  toolkit::Form& main = ui.forms.main->form;
  main.SetLeft(1500);
  main.SetTop(600);
  ShowMessage("Progress", "Copying", "Text", true, true, true);
  EXPECT_TRUE(form.Visible());
  EXPECT_NEAR(1500 + (main.Width() - form.Width()) / 2, form.Left(), toolkit::kTwipsPerPixel);
  EXPECT_NEAR(600 + (main.Height() - form.Height()) / 2, form.Top(), toolkit::kTwipsPerPixel);
  EXPECT_FALSE(Dialog().btn_OK.Visible());
  EXPECT_FALSE(Dialog().btn_Cancel.Visible());
  Window("frm_Msg")->close();
  EXPECT_TRUE(form.Visible());
  EXPECT_EQ(-1, ui.MessageAnswer);
  UpdateProgress("  Copying ", " Water  ", 50);
  EXPECT_EQ("Copying", Dialog().lbl_Title.Caption());
  EXPECT_EQ("Water", Dialog().lbl_Message.Caption());
  EXPECT_EQ(kBar, ColorAt(form, {60, 253}));
  EXPECT_EQ(kBackground, ColorAt(form, {232, 253}));
  QTimer::singleShot(0, [&form] {
    EXPECT_EQ(kBackground, ColorAt(form, {60, 253})) << "trace of the bar";
    Press("frm_Msg", "btn_OK");
  });
  ShowMessage("Information", "Copying", "All done.", true, false, false);
  EXPECT_FALSE(form.Visible());
}

}  // namespace
}  // namespace nimbrel
