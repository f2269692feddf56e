#include <QCheckBox>
#include <QComboBox>
#include <QLabel>

#include "toolkit/forms.h"
#include "toolkit/handlers.h"
#include "toolkit/native_window.h"

namespace toolkit {

namespace {

QString ToText(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// Without mark-up and shortcuts, so that what the user's files say is what is shown.
QLabel* NewLabel(QWidget* container) {
  auto* label = new QLabel(container);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  label->setAutoFillBackground(true);
  return label;
}

template <typename Widget>
Widget& Of(NativeWindow& window) {
  return *static_cast<Widget*>(window.widget.data());
}

void TellClick(const QWidget* widget) {
  if (const NativeWindow* window = NativeOf(widget); window != nullptr) {
    Call(window->control->Click);
  }
}

}  // namespace

Label::Label(Container& container, std::string_view name)
    : Control(WindowOwner(
          new NativeWindow(NewLabel(container.hWnd()->widget), container.hWnd(), name))) {
  SetBackColor(BackColor());
  SetForeColor(platform::RGB(0, 0, 0));
}

const std::string& Label::Caption() const { return Native().caption; }

void Label::SetCaption(std::string_view caption) {
  Native().caption = caption;
  QString text = ToText(caption);
  text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  Of<QLabel>(Native()).setText(text);
}

void Label::SetForeColor(platform::ColorRef color) {
  Native().fore_color = color;
  QPalette palette = Native().widget->palette();
  palette.setColor(QPalette::WindowText, ToColor(color));
  Native().widget->setPalette(palette);
}

platform::ColorRef Label::ForeColor() const { return Native().fore_color; }

void Label::SetAlignment(Alignment alignment) {
  const Qt::AlignmentFlag side = alignment == kAlignCenter ? Qt::AlignHCenter : Qt::AlignLeft;
  Of<QLabel>(Native()).setAlignment(side | Qt::AlignTop);
}

void Label::SetTransparent(bool transparent) {
  Native().widget->setAutoFillBackground(!transparent);
}

CheckBox::CheckBox(Container& container, std::string_view name)
    : Control(WindowOwner(
          new NativeWindow(new QCheckBox(container.hWnd()->widget), container.hWnd(), name))) {
  auto& box = Of<QCheckBox>(Native());
  box.setAutoFillBackground(true);
  SetBackColor(BackColor());
  QObject::connect(&box, &QCheckBox::clicked, &box, [&box] { TellClick(&box); });
}

std::int16_t CheckBox::Value() const { return Of<QCheckBox>(Native()).isChecked() ? 1 : 0; }

void CheckBox::SetValue(std::int16_t value) { Of<QCheckBox>(Native()).setChecked(value == 1); }

void CheckBox::SetCaption(std::string_view caption) {
  QString text = ToText(caption);
  Of<QCheckBox>(Native()).setText(text.replace(QLatin1Char('&'), QStringLiteral("&&")));
}

void CheckBox::SetTransparent(bool transparent) {
  Native().widget->setAutoFillBackground(!transparent);
}

ComboBox::ComboBox(Container& container, std::string_view name)
    : Control(WindowOwner(
          new NativeWindow(new QComboBox(container.hWnd()->widget), container.hWnd(), name))) {
  auto& box = Of<QComboBox>(Native());
  QObject::connect(&box, &QComboBox::activated, &box, [&box] { TellClick(&box); });
}

void ComboBox::Clear() { Of<QComboBox>(Native()).clear(); }

// The toolkit selects the first row of a list by itself; here only the program and the user do.
void ComboBox::AddItem(std::string_view text, std::int32_t item_data) {
  auto& box = Of<QComboBox>(Native());
  const int selected = box.currentIndex();
  box.addItem(ToText(text), item_data);
  box.setCurrentIndex(selected);
}

int ComboBox::ListCount() const { return Of<QComboBox>(Native()).count(); }

std::string ComboBox::List(int row) const {
  return Of<QComboBox>(Native()).itemText(row).toStdString();
}

std::int32_t ComboBox::ItemData(int row) const {
  return Of<QComboBox>(Native()).itemData(row).toInt();
}

int ComboBox::ListIndex() const { return Of<QComboBox>(Native()).currentIndex(); }

void ComboBox::SetListIndex(int row) {
  auto& box = Of<QComboBox>(Native());
  if (row >= -1 && row < box.count()) {
    box.setCurrentIndex(row);
  }
}

}  // namespace toolkit
