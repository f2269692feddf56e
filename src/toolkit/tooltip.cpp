#include "toolkit/tooltip.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QTimer>
#include <QWindow>
#include <algorithm>

#include "toolkit/fonts.h"

namespace toolkit {

namespace {

constexpr int kInitialDelay = 500;   // milliseconds
constexpr int kAutopopTime = 5000;   // milliseconds
constexpr int kLongestTime = 32767;  // milliseconds
constexpr int kSideMargin = 4;       // pixels, with the frame
constexpr int kEdgeMargin = 3;       // pixels, with the frame
constexpr QPoint kBelowPointer{0, 20};
constexpr int kUnbounded = 16384;  // pixels

class Tip : public QWidget {
 public:
  explicit Tip(NativeWindow* parent)
      : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint), parent_(parent) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setFont(MakeFont({.family = "Tahoma"}));
    initial_.setSingleShot(true);
    autopop_.setSingleShot(true);
    QObject::connect(&initial_, &QTimer::timeout, this, [this] { Appear(); });
    QObject::connect(&autopop_, &QTimer::timeout, this, [this] { hide(); });
  }

  std::intptr_t Message(std::uint32_t message, std::uintptr_t wparam, std::intptr_t lparam);
  bool BelongsTo(const NativeWindow* window) const { return parent_ == window; }
  bool Serves(const NativeWindow* window) const { return FindTool(window) != tools_.end(); }
  void Forget(const NativeWindow* window);

  void PointerOn(const NativeWindow* tool, QPoint position);
  void PointerGone();
  void Pressed();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  using Tools = std::vector<ToolInfo>;
  Tools::const_iterator FindTool(const NativeWindow* window) const {
    return std::find_if(tools_.begin(), tools_.end(),
                        [window](const ToolInfo& tool) { return tool.uId == window; });
  }
  bool AddTool(const ToolInfo* tool);
  void SetFont(const HFONT* font);
  int& Delay(std::uintptr_t kind) { return kind == TTDT_AUTOPOP ? autopop_time_ : initial_delay_; }
  void Appear();
  QPoint Corner(const ToolInfo& tool, QSize size) const;

  NativeWindow* parent_;
  Tools tools_;
  const NativeWindow* at_ = nullptr;  ///< the tool that the pointer is on
  bool done_ = false;                 ///< was shown or pressed away; waits for the pointer to leave
  QPoint position_;
  QString text_;
  QColor back_{255, 255, 225};
  QColor fore_{0, 0, 0};
  int max_width_ = -1;  ///< pixels; -1: one line
  int initial_delay_ = kInitialDelay;
  int autopop_time_ = kAutopopTime;
  QTimer initial_;
  QTimer autopop_;
};

std::vector<Tip*>& Tips() {
  static std::vector<Tip*> tips;
  return tips;
}

Tip* TipOf(const NativeWindow& window) {
  const auto found = std::find(Tips().begin(), Tips().end(), window.widget.data());
  return found == Tips().end() ? nullptr : *found;
}

bool Tip::AddTool(const ToolInfo* tool) {
  if (tool == nullptr || !IsWindow(tool->uId)) {
    return false;
  }
  tools_.push_back(*tool);
  const QString text = QString::fromStdString(tool->lpszText);
  for (QWidget* named = tool->uId->widget; named != nullptr; named = named->parentWidget()) {
    const NativeWindow* window = NativeOf(named);
    if (window == nullptr || window->form_state != nullptr || window->control == nullptr) {
      break;
    }
    named->setAccessibleName(text);
    if (window->control->Kind() == ControlKind::kUserControl) {
      break;
    }
  }
  return true;
}

void Tip::SetFont(const HFONT* font) {
  if (font == nullptr || *font == nullptr) {
    return;
  }
  const LogFont& asked = **font;
  setFont(MakeFont({.family = asked.face,
                    .pixel_size = static_cast<double>(std::abs(asked.height)),
                    .bold = asked.weight >= 600,
                    .italic = asked.italic,
                    .underline = asked.underline,
                    .strikeout = asked.strikeout}));
}

std::intptr_t Tip::Message(std::uint32_t message, std::uintptr_t wparam, std::intptr_t lparam) {
  switch (message) {
    case TTM_SETDELAYTIME:
      Delay(wparam) = static_cast<int>(std::clamp<std::intptr_t>(lparam, 0, kLongestTime));
      return 0;
    case TTM_GETDELAYTIME:
      return Delay(wparam);
    case TTM_ADDTOOLA:
      return AddTool(reinterpret_cast<const ToolInfo*>(lparam)) ? 1 : 0;
    case TTM_SETTIPBKCOLOR:
      back_ = ToColor(static_cast<platform::ColorRef>(wparam));
      return 0;
    case TTM_SETTIPTEXTCOLOR:
      fore_ = ToColor(static_cast<platform::ColorRef>(wparam));
      return 0;
    case TTM_SETMAXTIPWIDTH:
      return std::exchange(max_width_,
                           static_cast<int>(std::clamp<std::intptr_t>(lparam, -1, kUnbounded)));
    case WM_SETFONT:
      SetFont(reinterpret_cast<const HFONT*>(wparam));
      return 0;
    default:
      return 0;
  }
}

void Tip::Forget(const NativeWindow* window) {
  if (at_ == window) {
    PointerGone();
  }
  std::erase_if(tools_, [window](const ToolInfo& tool) { return tool.uId == window; });
}

void Tip::PointerOn(const NativeWindow* tool, QPoint position) {
  position_ = position;
  if (at_ != tool) {
    PointerGone();
    at_ = tool;
  }
  if (!done_) {
    initial_.start(initial_delay_);
  }
}

void Tip::PointerGone() {
  at_ = nullptr;
  done_ = false;
  initial_.stop();
  autopop_.stop();
  hide();
}

void Tip::Pressed() {
  done_ = true;
  initial_.stop();
  autopop_.stop();
  hide();
}

QPoint Tip::Corner(const ToolInfo& tool, QSize size) const {
  QPoint corner = position_ + kBelowPointer;
  if ((tool.uFlags & TTF_CENTERTIP) != 0) {
    const QRect seen = VisibleRect(*tool.uId->widget);
    const QPoint below =
        tool.uId->widget->mapToGlobal(QPoint(seen.center().x(), seen.bottom() + 1));
    corner = {below.x() - size.width() / 2, below.y()};
  }
  const QScreen* screen = QGuiApplication::screenAt(position_);
  const QRect room =
      (screen != nullptr ? screen : QGuiApplication::primaryScreen())->availableGeometry();
  if (corner.y() + size.height() > room.bottom() + 1) {
    corner.setY(position_.y() - size.height() - 1);
  }
  corner.setX(std::max(room.left(), std::min(corner.x(), room.right() + 1 - size.width())));
  corner.setY(std::max(room.top(), corner.y()));
  return corner;
}

void Tip::Appear() {
  const auto tool = FindTool(at_);
  if (tool == tools_.end() || tool->lpszText.empty() || !tool->uId->widget->isVisible()) {
    return;
  }
  done_ = true;
  text_ = QString::fromStdString(tool->lpszText);
  const int width = max_width_ > 0 ? max_width_ : kUnbounded;
  const QRect needed = fontMetrics().boundingRect(QRect(0, 0, width, kUnbounded),
                                                  Qt::AlignLeft | Qt::TextWordWrap, text_);
  const QSize size(needed.width() + 2 * kSideMargin, needed.height() + 2 * kEdgeMargin);
  setGeometry(QRect(Corner(*tool, size), size));
  create();
  windowHandle()->setTransientParent(tool->uId->widget->window()->windowHandle());
  show();
  raise();
  autopop_.start(autopop_time_);
}

void Tip::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), back_);
  painter.setPen(fore_);
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  painter.drawText(rect().adjusted(kSideMargin, kEdgeMargin, -kSideMargin, -kEdgeMargin),
                   Qt::AlignLeft | Qt::TextWordWrap, text_);
}

}  // namespace

NativeWindow* CreateTooltip(NativeWindow* parent) {
  auto* tip = new Tip(IsWindow(parent) ? parent : nullptr);
  auto* window = new NativeWindow(tip, nullptr, "tooltips_class32");
  Tips().push_back(tip);
  return window;
}

bool DestroyTooltip(NativeWindow& tooltip) {
  Tip* tip = TipOf(tooltip);
  if (tip == nullptr) {
    return false;
  }
  std::erase(Tips(), tip);
  delete &tooltip;
  return true;
}

std::intptr_t TooltipMessage(NativeWindow& window, std::uint32_t message, std::uintptr_t wparam,
                             std::intptr_t lparam) {
  Tip* tip = TipOf(window);
  return tip == nullptr ? 0 : tip->Message(message, wparam, lparam);
}

namespace {

/// A label is painted on its container, and the pointer on it is on that container too.
const NativeWindow* ToolUnder(const Tip& tip, const NativeWindow& window) {
  const NativeWindow* tool = &window;
  while (tool != nullptr && !tip.Serves(tool)) {
    const bool label = tool->control != nullptr && tool->control->Kind() == ControlKind::kLabel;
    tool = label ? NativeOf(tool->widget->parentWidget()) : nullptr;
  }
  return tool;
}

void Show(Tip& tip, const NativeWindow* tool, QEvent::Type type, QPoint position) {
  switch (type) {
    case QEvent::MouseMove:
      return tip.PointerOn(tool, position);
    case QEvent::Leave:
    case QEvent::Hide:
      return tip.PointerGone();
    default:
      return tip.Pressed();
  }
}

}  // namespace

void TipsSeeMouse(const NativeWindow& window, QEvent::Type type, QPoint position) {
  for (Tip* tip : Tips()) {
    // Leaving a label for its container, or the other way round, leaves no tool.
    const bool leaving = type == QEvent::Leave || type == QEvent::Hide;
    const NativeWindow* tool =
        leaving ? (tip->Serves(&window) ? &window : nullptr) : ToolUnder(*tip, window);
    if (tool != nullptr) {
      Show(*tip, tool, type, position);
    }
  }
}

void ForgetTool(NativeWindow& window) {
  const std::vector<Tip*> tips = Tips();
  for (Tip* tip : tips) {
    if (tip->BelongsTo(&window)) {
      DestroyTooltip(*NativeOf(tip));
    } else {
      tip->Forget(&window);
    }
  }
}

}  // namespace toolkit
