#include "ShellWorld.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QListWidget>
#include <QtTest>
#include <cstdlib>
#include <iostream>

#include "shell/Pages.h"
#include "shell/State.h"
#include "shell/dialogs/frm_Msg.h"
#include "shell/pages/frm_Preview.h"

namespace {

constexpr const char* kTreeOfParent = "NIMBREL_TEST_TREE";

std::filesystem::path TreeOfParent() {
  return testing::internal::InDeathTestChild() ? std::getenv(kTreeOfParent) : "";
}

}  // namespace

ShellWorld::ShellWorld() : World(TreeOfParent()) {
  if (!testing::internal::InDeathTestChild()) {
    setenv(kTreeOfParent, Simulator("..").c_str(), 1);
    MakeFolders();
    WritePack(Program(), 2);
    MarkUnchanged();
  }
  nimbrel::ui.folders = folders();
}

ShellWorld::~ShellWorld() {
  nimbrel::ReleasePreview();
  nimbrel::HidePage(nimbrel::ui.CurrentPage);
  nimbrel::ui = {};
}

std::string OptionTitle(nimbrel::Group group, int option) {
  return nimbrel::kGroups[group].prefix + std::string(" title ") + std::to_string(option);
}

std::uint32_t ColorAt(const toolkit::Container& surface, QPoint at) {
  const platform::ColorRef color = platform::GetPixel(surface.hDC(), at.x(), at.y());
  return (color & 0xFFU) << 16U | (color & 0xFF00U) | (color >> 16U & 0xFFU);
}

QWidget* Window(std::string_view form, std::string_view control) {
  for (QWidget* window : QApplication::allWidgets()) {
    if (window->objectName() == QString::fromStdString(std::string(form))) {
      return control.empty()
                 ? window
                 : window->findChild<QWidget*>(QString::fromStdString(std::string(control)));
    }
  }
  ADD_FAILURE() << "no window " << form;
  return nullptr;
}

void Press(std::string_view form, std::string_view control) {
  QWidget* pressed = Window(form, control);
  ASSERT_NE(nullptr, pressed) << control;
  QWidget* strip = control.empty() ? nullptr : pressed->findChild<QWidget*>("pic_BG");
  QTest::mouseClick(strip != nullptr ? strip : pressed, Qt::LeftButton, {}, {6, 6});
}

void PressAndThen(std::string_view form, std::string_view button, std::function<void()> then) {
  QTimer::singleShot(0, std::move(then));
  Press(form, button);
}

void ClickRow(std::string_view form, std::string_view list, int row, int right) {
  auto* widget = qobject_cast<QListWidget*>(Window(form, list));
  ASSERT_NE(nullptr, widget) << list;
  const QRect place = widget->visualItemRect(widget->item(row));
  QTest::mouseClick(widget->viewport(), Qt::LeftButton, {},
                    {place.left() + right, place.center().y()});
}

Answers::Answers() {
  QObject::connect(&timer_, &QTimer::timeout, [this] { Answer(); });
  timer_.start(0);
}

void Answers::Answer() {
  const auto& dialog = nimbrel::ui.forms.message;
  if (!pressing_ && dialog != nullptr && dialog->form.Visible() && dialog->btn_OK.Visible()) {
    titles.push_back(dialog->lbl_Title.Caption());
    texts.push_back(dialog->lbl_Message.Caption());
    std::cerr << texts.back() << '\n';
    if (on_text) {
      on_text(texts.back());
    }
    // A timer does not fire inside its own slot, and an OK may open the next message.
    pressing_ = true;
    QTimer::singleShot(0, &timer_, [this] {
      pressing_ = false;
      Press("frm_Msg", "btn_OK");
    });
  }
}
