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
using namespace platform;
namespace {

using Strings = std::vector<std::string>;

Strings Rows(const ListBox& list) {
  Strings rows;
  for (int row = 0; row < list.ListCount(); ++row) {
    rows.push_back(list.List(row));
  }
  return rows;
}

/// A shown form with one list of 200 by 120 pixels.
struct ListForm {
  explicit ListForm(unsigned style) : list(form, "lst_Test", style) {
    form.PlacePixels(0, 0, 220, 140);
    list.PlacePixels(5, 5, 200, 120);
    form.Show();
    DoEvents();
    list.Click = [this] { events.push_back("click " + std::to_string(list.ListIndex())); };
    list.ItemCheck = [this](int row) { events.push_back("check " + std::to_string(row)); };
  }
  QWidget& View() { return *static_cast<QListWidget&>(Widget("lst_Test")).viewport(); }
  QRect Place(int row) {
    auto& widget = static_cast<QListWidget&>(Widget("lst_Test"));
    return widget.visualItemRect(widget.item(row));
  }
  QPoint Middle(int row) { return Place(row).center(); }
  QPoint Box(int row) { return {Place(row).left() + 9, Place(row).center().y()}; }

  Form form{"frm_List"};
  ListBox list;
  Strings events;
};

TEST(ListBox, SortsWithoutCaseAndTellsWhereTheItemWent) {
  Form form("frm_Sorted");
  ListBox list(form, "lst_Sorted", kSortedList);
  struct Step {
    const char* text;
    int row;
  };
  constexpr Step kSteps[] = {{"pear", 0}, {"Apple", 0}, {"zoo", 2},       {"PEAR", 2},
                             {"", 0},     {"apple", 2}, {"\xC3\x84x", 6}, {"_mark", 1}};
  std::int32_t data = 100;
  for (const Step& step : kSteps) {
    EXPECT_EQ(step.row, list.AddItem(step.text, ++data)) << step.text;
    EXPECT_EQ(data, list.ItemData(step.row));
  }
  EXPECT_EQ((Strings{"", "_mark", "Apple", "apple", "pear", "PEAR", "zoo", "\xC3\x84x"}),
            Rows(list));
  EXPECT_EQ(-1, list.ListIndex());
}

TEST(ListBox, PlacesOutsideTheListAreEmptyAndChangeNothing) {
  Form form("frm_Outside");
  ListBox list(form, "lst_Outside", kCheckedList);
  list.AddItem("a\nb", 7);
  for (const int row : {-2, -1, 1, 30000}) {
    list.SetItemData(row, 9);
    list.SetSelected(row, true);
    list.SetListIndex(row);
    list.SetTopIndex(row);
    EXPECT_EQ("", list.List(row));
    EXPECT_EQ(0, list.ItemData(row));
    EXPECT_FALSE(list.Selected(row));
  }
  EXPECT_EQ((Strings{"a\nb"}), Rows(list));
  EXPECT_EQ(-1, list.ListIndex());
}

TEST(ListBox, PickTellsClickAndTheProgramsOwnChangesDoNot) {
  ListForm world(kPlainList);
  for (const char* text : {"one", "two", "three"}) {
    world.list.AddItem(text);
  }
  world.list.SetListIndex(2);
  EXPECT_TRUE(world.list.Selected(2));
  PressAndRelease(world.View(), world.Middle(1));
  PressAndRelease(world.View(), world.Middle(1) + QPoint(20, 0));
  QTest::keyClick(&Widget("lst_Test"), Qt::Key_Up);
  QTest::keyClick(&Widget("lst_Test"), Qt::Key_Up);
  QTest::mouseClick(&world.View(), Qt::LeftButton, Qt::ControlModifier, world.Middle(0));
  EXPECT_TRUE(world.list.Selected(0)) << "a pick is never taken back";
  PressAndRelease(world.View(), {100, 110});
  EXPECT_EQ((Strings{"click 1", "click 1", "click 0", "click 0"}), world.events);
  EXPECT_EQ(0, world.list.ListIndex());
}

TEST(ListBox, HandlerMayRebuildTheListAndDropIt) {
  ListForm world(kPlainList);
  auto passing = std::make_unique<ListBox>(world.form, "lst_Passing");
  passing->PlacePixels(0, 0, 100, 100);
  passing->AddItem("only");
  world.list.AddItem("old");
  world.list.Click = [&] {
    world.list.Clear();
    world.list.AddItem("new");
    world.list.SetListIndex(0);
  };
  passing->Click = [&] { passing.reset(); };
  auto* view = static_cast<QListWidget&>(Widget("lst_Passing")).viewport();
  DoEvents();
  PressAndRelease(*view, {20, 8});
  EXPECT_EQ(nullptr, passing);
  DoEvents();
  PressAndRelease(world.View(), world.Middle(0));
  EXPECT_EQ((Strings{"new"}), Rows(world.list));
}

TEST(ListBox, BoxIsToggledByTheUserAlone) {
  ListForm world(kCheckedList | kSortedList);
  world.list.AddItem("b");
  const int row = world.list.AddItem("a");
  world.list.SetSelected(row, true);
  EXPECT_TRUE(world.events.empty());
  PressAndRelease(world.View(), world.Box(0));
  EXPECT_FALSE(world.list.Selected(0));
  PressAndRelease(world.View(), world.Box(1));
  EXPECT_TRUE(world.list.Selected(1));
  QTest::keyClick(&Widget("lst_Test"), Qt::Key_Space);
  EXPECT_FALSE(world.list.Selected(1));
  EXPECT_EQ((Strings{"check 0", "click 0", "check 1", "click 1", "check 1"}), world.events);
}

TEST(ListBox, ThousandRowsKeepTheirFirstRowInSight) {
  ListForm world(kPlainList);
  for (int row = 0; row < 1000; ++row) {
    world.list.AddItem("row " + std::to_string(row), row);
  }
  world.list.SetListIndex(703);
  world.list.SetTopIndex(700);
  EXPECT_EQ(700, world.list.TopIndex());
  EXPECT_EQ(703, world.list.ListIndex());
}

struct TextForm {
  TextForm() {
    form.PlacePixels(0, 0, 240, 160);
    line.PlacePixels(5, 5, 200, 24);
    lines.PlacePixels(5, 40, 200, 60);
    line.GotFocus = [this] { ++focused; };
    form.Show();
    DoEvents();
  }
  Form form{"frm_Text"};
  TextBox line{form, "txt_Line"};
  TextBox lines{form, "txt_Lines", TextLines::kSeveral};
  int focused = 0;
};

QString Many(const QString& piece, int count) { return piece.repeated(count); }

/// As the user pastes it.
void Paste(QWidget& widget, const QString& text) {
  QGuiApplication::clipboard()->setText(text);
  QTest::keyClick(&widget, Qt::Key_V, Qt::ControlModifier);
}

TEST(TextBox, LimitBoundsWhatIsStoredHoweverItComes) {
  TextForm world;
  world.line.SetMaxLength(10);
  world.lines.SetMaxLength(10);
  const QString emoji = QStringLiteral("\U0001F600");
  const QString lone(QChar(0xDC00));
  struct Row {
    QString text;
    const char* line;  ///< null: its length alone counts
    const char* lines;
  };
  const Row rows[] = {{"0123456789A", "0123456789", "0123456789"},
                      {"abcd\nefghijk", "abcd efghi", "abcd\r\nefgh"},
                      {"abcdefghi\nj", "abcdefghi ", "abcdefghi"},
                      {Many(emoji, 12), nullptr, nullptr},
                      {Many(lone, 12), nullptr, nullptr},
                      {Many(QStringLiteral("\u20ac"), 12), nullptr, nullptr},
                      {Many("x", 200000), "xxxxxxxxxx", "xxxxxxxxxx"}};
  for (const Row& row : rows) {
    for (const bool paste : {true, false}) {
      world.line.SetText("");
      world.lines.SetText("");
      if (paste) {
        Paste(Widget("txt_Line"), row.text);
        Paste(Widget("txt_Lines"), row.text);
      } else {
        world.line.SetText(row.text.toStdString());
        world.lines.SetText(row.text.toStdString());
      }
      const std::string line = world.line.Text();
      const std::string lines = world.lines.Text();
      EXPECT_GE(10U, ToAnsi(line).size());
      EXPECT_GE(10U, ToAnsi(lines).size());
      if (row.line != nullptr) {
        EXPECT_EQ(row.line, line);
        EXPECT_EQ(row.lines, lines);
      } else {
        EXPECT_EQ(10U, ToAnsi(line).size()) << row.text.toStdString();
      }
    }
  }
}

TEST(TextBox, WhatWasThereStaysWhenMoreIsEnteredInTheMiddle) {
  TextForm world;
  for (TextBox* box : {&world.line, &world.lines}) {
    box->SetMaxLength(8);
    box->SetText("abcdef");
    box->Select(3, 0);
    Paste(Widget(box->Name()), "12345");
    EXPECT_EQ("abc12def", box->Text());
    QTest::keyClicks(&Widget(box->Name()), "9");
    EXPECT_EQ("abc12def", box->Text());
    box->Select(0, 8);
    QTest::keyClicks(&Widget(box->Name()), "9");
    EXPECT_EQ("9", box->Text());
  }
}

TEST(TextBox, KeepsEveryCharacterOfThePageAndCountsALineEndAsTwo) {
  TextForm world;
  world.lines.SetText(
      "a\xC2\xA0"
      "b\rc\nd\r\n");
  EXPECT_EQ(
      "a\xC2\xA0"
      "b\r\nc\r\nd\r\n",
      world.lines.Text());
  world.lines.Select(4, 4);
  EXPECT_EQ(3, world.lines.SelStart()) << "never inside a line end";
  EXPECT_EQ(5, world.lines.SelLength());
}

TEST(TextBox, PressThatBringsTheKeyboardKeepsWhatGotFocusSelects) {
  TextForm world;
  world.line.SetText("Enter a Title");
  world.lines.SetFocus();
  world.focused = 0;
  world.line.GotFocus = [&] {
    ++world.focused;
    world.line.Select(0, 99);
  };
  QWidget& widget = Widget("txt_Line");
  Press(widget, {30, 10});
  MoveTo(widget, {36, 11});
  Release(widget, {36, 11});
  EXPECT_EQ(1, world.focused);
  EXPECT_EQ(13, world.line.SelLength());
  QTest::keyClicks(&widget, "x");
  EXPECT_EQ("x", world.line.Text());
}

TEST(TextBox, DoubleClickIsToldAfterTheWordIsSelected) {
  TextForm world;
  for (TextBox* box : {&world.line, &world.lines}) {
    box->SetText("two words");
    int told = 0;
    box->DblClick = [&] {
      ++told;
      box->Select(0, 99);
    };
    QWidget& widget = Widget(box->Name());
    DoublePress(widget, {12, 10});
    EXPECT_EQ(1, told);
    EXPECT_EQ(9, box->SelLength());
  }
}

TEST(TextBox, ComingBackFromAnotherWindowSelectsNothingAnew) {
  TextForm world;
  world.lines.SetFocus();
  world.line.SetFocus();
  const int before = world.focused;
  Form other("frm_Other");
  other.PlacePixels(300, 0, 50, 50);
  other.Show();
  DoEvents();
  Widget("frm_Other").activateWindow();
  DoEvents();
  Widget("frm_Text").activateWindow();
  DoEvents();
  ASSERT_TRUE(Widget("txt_Line").hasFocus());
  EXPECT_EQ(before, world.focused);
}

TEST(TextBox, ReturnIsALineEndInSeveralLinesAndNothingInOne) {
  TextForm world;
  int changes = 0;
  world.lines.Change = [&] { ++changes; };
  for (TextBox* box : {&world.line, &world.lines}) {
    QTest::keyClick(&Widget(box->Name()), Qt::Key_Return);
  }
  EXPECT_EQ("", world.line.Text());
  EXPECT_EQ("\r\n", world.lines.Text());
  EXPECT_EQ(1, changes);
  EXPECT_TRUE(world.form.Visible());
}

}  // namespace
}  // namespace toolkit
