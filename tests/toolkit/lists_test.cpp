#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <string>
#include <vector>

#include "platform/text.h"
#include "support/real_widgets.h"
#include "toolkit/forms.h"

namespace toolkit {
namespace {

using Strings = std::vector<std::string>;

/// A shown form with one list of 200 by 120 pixels.
struct ListForm {
  explicit ListForm(unsigned style = kPlainList) : list(form, "lst", style) {
    form.PlacePixels(0, 0, 220, 140);
    list.PlacePixels(5, 5, 200, 120);
    form.Show();
    DoEvents();
    list.Click = [this] { events.push_back("click " + std::to_string(list.ListIndex())); };
    list.ItemCheck = [this](int row) { events.push_back("check " + std::to_string(row)); };
  }
  static QListWidget& Native() { return static_cast<QListWidget&>(Widget("lst")); }
  static QWidget& View() { return *Native().viewport(); }
  static QPoint Middle(int row) { return Native().visualItemRect(Native().item(row)).center(); }
  static QPoint Box(int row) { return {9, Middle(row).y()}; }

  Form form{"frm_List"};
  ListBox list;
  Strings events;
};

struct TextForm {
  TextForm() {
    form.PlacePixels(0, 0, 240, 160);
    line.PlacePixels(5, 5, 200, 24);
    lines.PlacePixels(5, 40, 200, 60);
    line.GotFocus = [this] {
      ++focused;
      line.Select(0, 99);
    };
    form.Show();
    DoEvents();
  }
  static QLineEdit& Line() { return static_cast<QLineEdit&>(Widget("line")); }
  static QPlainTextEdit& Lines() { return static_cast<QPlainTextEdit&>(Widget("lines")); }

  Form form{"frm_Text"};
  TextBox line{form, "line"};
  TextBox lines{form, "lines", TextLines::kSeveral};
  int focused = 0;
};

void Paste(QWidget& widget, const QString& text) {
  QGuiApplication::clipboard()->setText(text);
  QTest::keyClick(&widget, Qt::Key_V, Qt::ControlModifier);
}

TEST(TextBox, LimitBoundsWhatIsStoredHoweverItComes) {
  TextForm world;
  world.line.SetMaxLength(10);
  world.lines.SetMaxLength(10);
  struct Row {
    QString text;
    const char* line;  ///< null: ten characters, whatever they are
    const char* lines;
  };
  const Row rows[] = {{"0123456789A", "0123456789", "0123456789"},
                      {"abcd\nefghijk", "abcd efghi", "abcd\r\nefgh"},
                      {"abcdefghi\nj", "abcdefghi ", "abcdefghi"},
                      {QStringLiteral("\U0001F600").repeated(12), nullptr, nullptr},
                      {QString(QChar(0xDC00)).repeated(12), nullptr, nullptr},
                      {QStringLiteral("\u20ac").repeated(12), nullptr, nullptr},
                      {QStringLiteral("x").repeated(200000), "xxxxxxxxxx", "xxxxxxxxxx"}};
  for (const Row& row : rows) {
    for (const bool paste : {true, false}) {
      for (TextBox* box : {&world.line, &world.lines}) {
        box->SetText(paste ? "" : row.text.toStdString());
        if (paste) {
          Paste(Widget(box->Name()), row.text);
        }
        const char* expected = box == &world.line ? row.line : row.lines;
        if (expected != nullptr) {
          EXPECT_EQ(expected, box->Text());
        } else {
          EXPECT_EQ(10U, platform::ToAnsi(box->Text()).size()) << row.text.toStdString();
        }
      }
    }
  }
}

TEST(TextBox, GotFocusAndDoubleClickKeepWhatTheySelect) {
  TextForm world;
  world.line.SetText("two words");
  world.lines.SetFocus();
  world.focused = 0;
  Press(Widget("line"), {30, 10});
  MoveTo(Widget("line"), {36, 11});
  Release(Widget("line"), {36, 11});
  EXPECT_EQ(1, world.focused);
  EXPECT_EQ("two words", TextForm::Line().selectedText().toStdString());
  for (TextBox* box : {&world.line, &world.lines}) {
    box->SetText("two words");
    box->DblClick = [box] { box->Select(0, 99); };
    DoublePress(Widget(box->Name()), {12, 10});
    EXPECT_EQ("two words", (box == &world.line ? TextForm::Line().selectedText()
                                               : TextForm::Lines().textCursor().selectedText())
                               .toStdString());
  }
}

}  // namespace
}  // namespace toolkit
