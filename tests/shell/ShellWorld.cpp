#include "ShellWorld.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QtTest>
#include <cstdlib>
#include <iostream>

#include "history/frm_AddFavorite.h"
#include "history/frm_Favorite.h"
#include "platform/system.h"
#include "randomizer/frm_RandomizerConstraints.h"
#include "randomizer/frm_RandomizerOverview.h"
#include "settings/Catalogue.h"
#include "settings/Selection.h"
#include "shell/Pages.h"
#include "shell/RingPage.h"
#include "shell/frm_About.h"
#include "shell/frm_Main.h"
#include "shell/frm_Msg.h"
#include "shell/frm_Preview.h"
#include "shell/frm_Sky.h"
#include "shell/frm_Splash.h"
#include "toolkit/desktop.h"

namespace fs = std::filesystem;
using nimbrel::kOptionGroups;

namespace {

constexpr int kOptions = 3;
constexpr const char* kTreeOfParent = "NIMBREL_TEST_TREE";
constexpr const char* kSections[] = {"CloudTextures", "SkyTextures", "WaterTextures"};
constexpr const char* kFamilyKeys[] = {
    "Destination=Texture\\cumulus01.bmp\r\nDestinationCirrus=Texture\r\n",
    "Destination=Texture\r\nsunInhibitRandomizer=0\r\ncontrailsInhibitRandomizer=1\r\n",
    "DestinationWater=Texture\r\nDestinationWaves=Waves\r\n"};

void AppendNumber(std::string& bytes, unsigned value, int count) {
  for (int i = 0; i < count; ++i) {
    bytes += static_cast<char>((value >> (8 * i)) & 0xFFU);
  }
}

/// A 24-bit picture of 4 by 4 pixels in one colour.
std::string FlatPicture(platform::ColorRef color) {
  std::string bytes = "BM";
  for (const unsigned value : {102U, 0U, 54U, 40U, 4U, 4U}) {
    AppendNumber(bytes, value, 4);
  }
  AppendNumber(bytes, 1, 2);
  AppendNumber(bytes, 24, 2);
  for (const unsigned value : {0U, 48U, 0U, 0U, 0U, 0U}) {
    AppendNumber(bytes, value, 4);
  }
  for (int i = 0; i < 16; ++i) {
    bytes += static_cast<char>((color >> 16U) & 0xFFU);
    bytes += static_cast<char>((color >> 8U) & 0xFFU);
    bytes += static_cast<char>(color & 0xFFU);
  }
  return bytes;
}

std::string Row(const nimbrel::OptionGroup& group, int option, const std::string& name) {
  const std::string prefix = group.prefix;
  const std::string end = "." + std::to_string(option) + "=";
  return prefix + "Preview" + end + "Media\\Screen Shots\\" + name + "\r\n" + prefix + "Textures" +
         end + "Sets\\" + name + "\r\n" + prefix + "Title" + end +
         OptionTitle(group.family, group.index, option) + "\r\n" + prefix + "InhibitRandomizer" +
         end + "0\r\n";
}

void WriteCatalogue(const fs::path& program) {
  std::string text = "; kept\r\n[Main]\r\nuseDXT=1\r\nuseLowRes=0\r\n";
  for (std::size_t family = 0; family < nimbrel::kFamilies; ++family) {
    text += std::string("[") + kSections[family] + "]\r\n" + kFamilyKeys[family];
    for (const nimbrel::OptionGroup& group : kOptionGroups) {
      if (static_cast<std::size_t>(group.family) != family) {
        continue;
      }
      text += std::string(group.highest_key) + "=" + std::to_string(kOptions - 1) + "\r\n";
      for (int option = 0; option < kOptions; ++option) {
        const std::string name = group.prefix + std::to_string(option);
        text += Row(group, option, name);
        WriteText(program / "Media" / "Screen Shots" / (name + ".bmp"),
                  FlatPicture(OptionColor(group.family, group.index, option)));
        WriteText(program / "Sets" / name / (std::string(group.prefix) + ".bmp"), name);
      }
    }
  }
  WriteText(program / "NB_Information.cfg", text);
}

}  // namespace

platform::ColorRef OptionColor(int family, int group, int option) {
  return platform::RGB(static_cast<unsigned>(40 + 60 * family),
                       static_cast<unsigned>(30 + 50 * group),
                       static_cast<unsigned>(20 + 70 * option));
}

std::string OptionTitle(int family, int group, int option) {
  return "Title " + std::to_string(family) + std::to_string(group) + std::to_string(option);
}

ShellWorld::ShellWorld() {
  if (testing::internal::InDeathTestChild()) {
    root_ = std::getenv(kTreeOfParent);
  } else {
    root_ = folder_.emplace().path();
    setenv(kTreeOfParent, root_.c_str(), 1);
    WriteCatalogue(Program());
  }
  for (const char* name : {"Texture", "Waves", "Effects"}) {
    fs::create_directories(Simulator() / name);
  }
  fs::create_directories(Program() / "Data");
  platform::SetApplicationFolder(Program().string());
  toolkit::SetSoundListener([](std::string_view) {});
  nimbrel::CurrentSelection = {};
  nimbrel::RandomizerRecord = {};
  nimbrel::CurrentPage.clear();
}

ShellWorld::~ShellWorld() {
  nimbrel::ReleasePreview();
  nimbrel::HidePage(nimbrel::CurrentPage);
  nimbrel::ReleaseCloudPage();
  nimbrel::ReleaseSkyPage();
  nimbrel::ReleaseWaterPage();
  nimbrel::ReleaseRandomizerOverview();
  for (const std::int16_t family : {nimbrel::kCloud, nimbrel::kSky, nimbrel::kWater}) {
    nimbrel::ReleaseRandomizerPage(family);
  }
  nimbrel::ReleaseFavoritePage();
  nimbrel::ReleaseAddFavoriteForm();
  nimbrel::ReleaseAboutPage();
  nimbrel::ReleaseMainForm();
  nimbrel::ReleaseMessageForm();
  nimbrel::ReleaseSplashForm();
  toolkit::SetSoundListener(nullptr);
  platform::SetApplicationFolder({});
}

std::map<std::string, std::string> ShellWorld::Files() const {
  std::map<std::string, std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(Simulator())) {
    if (entry.is_regular_file()) {
      files[entry.path().lexically_relative(Program()).string()] = ReadText(entry.path());
    }
  }
  return files;
}

std::vector<std::string> ShellWorld::Changes(
    const std::map<std::string, std::string>& before) const {
  const auto after = Files();
  std::vector<std::string> changed;
  for (const auto& [path, bytes] : before) {
    if (!after.contains(path) || after.at(path) != bytes) {
      changed.push_back(path);
    }
  }
  for (const auto& [path, bytes] : after) {
    if (!before.contains(path)) {
      changed.push_back(path);
    }
  }
  return changed;
}

QWidget* Window(std::string_view form, std::string_view control) {
  const auto form_name = QString::fromUtf8(form.data(), static_cast<int>(form.size()));
  const auto name = QString::fromUtf8(control.data(), static_cast<int>(control.size()));
  for (QWidget* window : QApplication::allWidgets()) {
    if (window->objectName() == form_name) {
      return name.isEmpty() ? window : window->findChild<QWidget*>(name);
    }
  }
  ADD_FAILURE() << "no window " << form << " " << control;
  return nullptr;
}

void Press(std::string_view form, std::string_view button) {
  QWidget* strip = Window(form, button)->findChild<QWidget*>("pic_BG");
  ASSERT_NE(nullptr, strip) << button;
  QTest::mouseClick(strip, Qt::LeftButton, {}, {6, 6});
}

void ClickOn(std::string_view form, std::string_view control) {
  QTest::mouseClick(Window(form, control), Qt::LeftButton, {}, {3, 3});
}

Answers::Answers() {
  QObject::connect(&timer_, &QTimer::timeout, [this] { Answer(); });
  timer_.start(0);
}

void Answers::Answer() {
  if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
    std::cerr << box->text().toStdString() << '\n';
    box->close();
    return;
  }
  nimbrel::frm_Msg& dialog = nimbrel::MessageForm();
  if (!pressing_ && dialog.form.Visible() && dialog.btn_OK.Visible()) {
    titles.push_back(dialog.lbl_Title.Caption());
    texts.push_back(dialog.lbl_Message.Caption());
    std::cerr << texts.back() << '\n';
    // A timer does not fire inside its own slot, and an OK may bring up the next message.
    pressing_ = true;
    QTimer::singleShot(0, &timer_, [this] {
      pressing_ = false;
      Press("frm_Msg", "btn_OK");
    });
  }
}
