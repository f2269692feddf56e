#include <gtest/gtest.h>

#include <QTimer>
#include <functional>
#include <map>
#include <string>

#include "platform/system.h"
#include "shell/FormLoaded.h"
#include "shell/frm_Msg.h"
#include "support/BmpFile.h"
#include "support/TempFolder.h"
#include "support/real_widgets.h"
#include "toolkit/desktop.h"

namespace nimbrel {
namespace {

constexpr QRgb kBackground = 0xFFD0E0F0;
constexpr QRgb kBar = 0xFF0372AC;

std::string heard;
std::function<void()> pending;

/// The two actions of the dialog's buttons, as the shell's dispatch has them.
void Answer(ButtonClass button_class, const std::string& form, const std::string& type) {
  EXPECT_EQ(ButtonClass::kStandard, button_class);
  EXPECT_EQ("frm_Msg", form);
  MessageAnswer = type == "ok" ? 1 : 0;
  if (type == "ok" && pending) {
    std::exchange(pending, nullptr)();
  }
  HideMessage();
}

QWidget& Window() { return Widget("frm_Msg"); }

void Click(const char* button) { PressAndRelease(*Widget(button).findChild<QWidget*>("pic_BG")); }

/// What runs once the modal loop that is entered next does.
void WhenShown(std::function<void()> step) { QTimer::singleShot(0, std::move(step)); }

class MessageTest : public testing::Test {
 protected:
  MessageTest() {
    const auto plain = [](int, int) { return kBackground; };
    WriteText(folder_ / "Media/Msg_BG.bmp", ColorBmp(400, 300, plain).Bytes());
    WriteText(folder_ / "Media/icon_Error.bmp", ColorBmp(100, 100, plain).Bytes());
    platform::SetApplicationFolder(folder_.string());
    toolkit::SetSoundListener([](std::string_view alias) { heard += alias; });
    heard.clear();
    pending = nullptr;
    MessageAnswer = -1;
    DispatchClick = Answer;
  }
  ~MessageTest() override {
    ReleaseMessageForm();
    MessageOwner = nullptr;
    DispatchClick = nullptr;
    toolkit::SetSoundListener(nullptr);
    platform::SetApplicationFolder("");
  }

  TempFolder folder_;
};

TEST_F(MessageTest, KindChoosesSoundAndIcon) {
  const std::map<std::string, std::string> sounds = {{"Information", "SystemNotification"},
                                                     {"Exclamation", "SystemExclamation"},
                                                     {"Error", "SystemAsterisk"},
                                                     {"Question", "SystemQuestion"},
                                                     {"Progress", ""},
                                                     {"error", ""}};
  for (const auto& [kind, sound] : sounds) {
    heard.clear();
    bool icon = false;
    WhenShown([&] {
      icon = MessageForm().pic_Icon.Visible();
      Click("btn_OK");
    });
    ShowMessage(kind, "Title", "Text", true, false, false);
    EXPECT_EQ(sound, heard) << kind;
    EXPECT_EQ(kind == "Error" || kind == "error", icon) << kind;
  }
  EXPECT_TRUE(IsFormLoaded(FormId::kMsg));
}

struct Offer {
  bool ok;
  bool cancel;
  std::int16_t close_answers;
};

TEST_F(MessageTest, ShowsTheButtonsAskedForAndCloseTakesTheSaferOne) {
  for (const Offer offer : {Offer{true, false, 1}, Offer{true, true, 0}, Offer{false, true, 0}}) {
    MessageAnswer = -1;
    WhenShown([&] {
      EXPECT_EQ(" One.\r\rTwo. ", MessageForm().lbl_Message.Caption());
      EXPECT_EQ(offer.ok, MessageForm().btn_OK.Visible());
      EXPECT_EQ(offer.cancel, MessageForm().btn_Cancel.Visible());
      EXPECT_EQ(offer.ok ? "enabled" : "disabled", MessageForm().btn_OK.state());
      EXPECT_EQ(offer.cancel ? "enabled" : "disabled", MessageForm().btn_Cancel.state());
      Window().close();
    });
    ShowMessage("Question", "Title", " One.\r\rTwo. ", offer.ok, offer.cancel, false);
    EXPECT_EQ(offer.close_answers, MessageAnswer);
    EXPECT_FALSE(MessageForm().form.Visible());
  }
}

TEST_F(MessageTest, ProgressReturnsAtOnceAndCanNotBeAnswered) {
  ShowMessage("Progress", "Copying", "Text", true, true, true);
  EXPECT_TRUE(MessageForm().form.Visible());
  EXPECT_FALSE(MessageForm().btn_OK.Visible());
  EXPECT_FALSE(MessageForm().btn_Cancel.Visible());
  EXPECT_EQ("disabled", MessageForm().btn_OK.state());
  Window().close();
  EXPECT_TRUE(MessageForm().form.Visible());
  EXPECT_EQ(-1, MessageAnswer);
  UpdateProgress("  Copying ", " Water  ", 50);
  EXPECT_EQ("Copying", MessageForm().lbl_Title.Caption());
  EXPECT_EQ("Water", MessageForm().lbl_Message.Caption());
  EXPECT_EQ(kBar, PixelOf(Window(), 60, 253));
  EXPECT_EQ(kBackground, PixelOf(Window(), 232, 253));
}

TEST_F(MessageTest, QuestionProgressAndClosingMessageNestInOneStack) {
  std::string order;
  pending = [&] {
    ShowMessage("Progress", "Copying", "", false, false, true);
    DrawProgress(80);
    order += "copied ";
    WhenShown([&] {
      EXPECT_EQ(kBackground, PixelOf(Window(), 60, 253)) << "trace of the bar";
      EXPECT_TRUE(MessageForm().btn_OK.Visible());
      EXPECT_FALSE(MessageForm().btn_Cancel.Visible());
      order += "closing ";
      Click("btn_OK");
    });
    ShowMessage("Information", "Copying", "All done.", true, false, false);
    order += "told ";
  };
  WhenShown([] { Click("btn_OK"); });
  ShowMessage("Question", "Randomize Settings?", "Do you wish to continue?", true, true, false);
  order += "asked";
  EXPECT_EQ("copied closing told asked", order);
  EXPECT_FALSE(MessageForm().form.Visible());
  EXPECT_EQ(1, MessageAnswer);
  EXPECT_EQ("SystemQuestionSystemNotification", heard);
}

toolkit::Form* owner;

TEST_F(MessageTest, StandsInTheMiddleOfItsOwner) {
  toolkit::Form main("frm_Main");
  main.SetWidth(11970);
  main.SetHeight(9045);
  main.SetLeft(1500);
  main.SetTop(600);
  owner = &main;
  MessageOwner = []() -> toolkit::Form& { return *owner; };
  ShowMessage("Progress", "Copying", "", false, false, true);
  const toolkit::Form& form = MessageForm().form;
  EXPECT_EQ(6000, form.Width());
  EXPECT_EQ(4500, form.Height());
  EXPECT_NEAR(1500 + (11970 - 6000) / 2.0, form.Left(), toolkit::kTwipsPerPixel);
  EXPECT_NEAR(600 + (9045 - 4500) / 2.0, form.Top(), toolkit::kTwipsPerPixel);
}

TEST_F(MessageTest, HelpOpensTheManualInTheProgramsFolder) {
  static std::string opened;
  toolkit::SetOpenListener([](std::string_view file) { opened = file; });
  OpenHelpFile();
  toolkit::SetOpenListener(nullptr);
  EXPECT_EQ(folder_.string() + "\\Nimbrel Help.pdf", opened);
}

}  // namespace
}  // namespace nimbrel
