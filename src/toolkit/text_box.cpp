#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextDocument>
#include <algorithm>
#include <climits>

#include "toolkit/forms.h"
#include "toolkit/handlers.h"
#include "toolkit/native_window.h"
#include "toolkit/text_edit.h"

namespace toolkit {

namespace {

bool IsBreak(QChar c) {
  return c == QLatin1Char('\n') || c == QChar::ParagraphSeparator || c == QChar::LineSeparator;
}

/// What code page 1252 stores for the unit at `at`: a line break is CR and LF, a surrogate pair one
/// character.
int StoredLength(QStringView text, qsizetype at) {
  if (IsBreak(text[at])) {
    return 2;
  }
  const bool pair = at > 0 && text[at].isLowSurrogate() && text[at - 1].isHighSurrogate();
  return pair ? 0 : 1;
}

int StoredLength(QStringView text) {
  int sum = 0;
  for (qsizetype at = 0; at < text.size(); ++at) {
    sum += StoredLength(text, at);
  }
  return sum;
}

/// The place in the toolkit's text after `characters` stored ones, never inside a pair.
int UnitsOf(QStringView text, int characters) {
  qsizetype at = 0;
  for (int sum = 0; at < text.size(); ++at) {
    sum += StoredLength(text, at);
    if (sum > characters) {
      break;
    }
  }
  return static_cast<int>(at);
}

/// Where to begin removing in front of `end`, so that `excess` stored characters go.
qsizetype RemovalStart(QStringView text, qsizetype end, int excess) {
  qsizetype at = end;
  while (at > 0 && excess > 0) {
    --at;
    excess -= StoredLength(text, at);
  }
  return at;
}

/// Enough of the text to fill `limit`: laying out a huge text only to cut it takes seconds.
QString Bounded(const QString& text, int limit) {
  constexpr int kMaxUnits = 2;  // of a character
  return limit > 0 ? text.left(qsizetype{kMaxUnits} * limit) : text;
}

class LineWidget : public EditWidget<QLineEdit> {
 public:
  using EditWidget::EditWidget;
  QString Raw() const override { return text(); }
  void SetRaw(const QString& raw) override { setText(raw); }
  int Caret() const override { return cursorPosition(); }
  /// A text pasted from several lines becomes one.
  void Tidy() override {
    QString tidied = text();
    for (QChar& c : tidied) {
      c = IsBreak(c) || c.category() == QChar::Other_Control ? QChar(QLatin1Char(' ')) : c;
    }
    if (tidied != text()) {
      const int caret = cursorPosition();
      setText(tidied);
      setCursorPosition(caret);
    }
  }
  void Mark(int from, int to) override { setSelection(from, to - from); }
  void Remove(int from, int to) override {
    setSelection(from, to - from);
    del();
  }
};

class LinesWidget : public EditWidget<QPlainTextEdit> {
 public:
  explicit LinesWidget(QWidget* container) : EditWidget(container) { setTabChangesFocus(true); }
  // The plain text would turn no-break spaces, which have a code of their own in the file, into
  // blanks.
  QString Raw() const override { return document()->toRawText(); }
  void SetRaw(const QString& raw) override { setPlainText(raw); }
  int Caret() const override { return textCursor().position(); }
  void Mark(int from, int to) override {
    QTextCursor cursor = textCursor();
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
  }
  void Remove(int from, int to) override {
    QTextCursor cursor = textCursor();
    cursor.joinPreviousEditBlock();
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    cursor.endEditBlock();
  }

 protected:
  void insertFromMimeData(const QMimeData* source) override {
    textCursor().insertText(Bounded(source->text(), limit));
    ensureCursorVisible();
  }
};

/// Cuts the excess in front of the caret, where it was entered; the older text stays.
void CutToLimit(EditText& edit) {
  const QString raw = edit.Raw();
  const int excess = edit.limit > 0 ? StoredLength(raw) - edit.limit : 0;
  if (excess <= 0) {
    return;
  }
  const qsizetype caret = edit.Caret();
  const qsizetype from = RemovalStart(raw, caret, excess);
  if (StoredLength(QStringView(raw).first(from)) + StoredLength(QStringView(raw).sliced(caret)) >
      edit.limit) {
    edit.Remove(UnitsOf(raw, edit.limit), static_cast<int>(raw.size()));
  } else {
    edit.Remove(static_cast<int>(from), static_cast<int>(caret));
  }
}

/// The toolkit reports its own cutting, too.
void OnTextChanged(EditText& edit) {
  if (!edit.cutting) {
    edit.cutting = true;
    edit.Tidy();
    CutToLimit(edit);
    edit.cutting = false;
  }
}

template <class Widget>
QWidget* NewEdit(QWidget* container) {
  auto* made = new Widget(container);
  QObject::connect(made, &Widget::textChanged, made, [made] { OnTextChanged(*made); });
  return made;
}

QWidget* NewEdit(QWidget* container, TextLines lines) {
  return lines == TextLines::kOne ? NewEdit<LineWidget>(container)
                                  : NewEdit<LinesWidget>(container);
}

EditText& Of(NativeWindow& window) { return dynamic_cast<EditText&>(*window.widget); }

QString WithLineFeeds(std::string_view utf8) {
  QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
  text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  return text;
}

void SetColor(NativeWindow& window, QPalette::ColorRole role, platform::ColorRef color) {
  QPalette palette = window.widget->palette();
  palette.setColor(role, ToColor(color));
  window.widget->setPalette(palette);
}

}  // namespace

TextBox::TextBox(Container& container, std::string_view name, TextLines lines)
    : Control(WindowOwner(
          new NativeWindow(NewEdit(container.hWnd()->widget, lines), container.hWnd(), name))) {
  TextBox::SetBackColor(platform::RGB(255, 255, 255));
  SetForeColor(platform::RGB(0, 0, 0));
}

std::string TextBox::Text() const {
  QString text = Of(Native()).Raw();
  text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
  text.replace(QChar::LineSeparator, QLatin1Char('\n'));
  return text.replace(QLatin1Char('\n'), QStringLiteral("\r\n")).toStdString();
}

void TextBox::SetText(std::string_view text) {
  EditText& edit = Of(Native());
  edit.SetRaw(Bounded(WithLineFeeds(text), edit.limit));
}

void TextBox::SetMaxLength(int characters) {
  EditText& edit = Of(Native());
  edit.limit = characters;
  OnTextChanged(edit);
}

void TextBox::Select(int start, int length) {
  EditText& edit = Of(Native());
  const QString raw = edit.Raw();
  const int first = std::clamp(start, 0, INT_MAX / 2);
  edit.Mark(UnitsOf(raw, first), UnitsOf(raw, first + std::clamp(length, 0, INT_MAX / 2)));
}

void TextBox::SetFocus() { Native().widget->setFocus(Qt::OtherFocusReason); }

void TextBox::SetForeColor(platform::ColorRef color) {
  Native().fore_color = color;
  SetColor(Native(), QPalette::Text, color);
}

void TextBox::SetBackColor(platform::ColorRef color) {
  Native().back_color = color;
  SetColor(Native(), QPalette::Base, color);
}

}  // namespace toolkit
