#include "toolkit/tip.h"

#include <QEvent>
#include <QPalette>
#include <QPointer>
#include <QTextLayout>
#include <QToolTip>
#include <algorithm>
#include <utility>
#include <vector>

#include "toolkit/fonts.h"
#include "toolkit/native_window.h"

namespace toolkit {

namespace {

/// The toolkit wraps rich texts only, at widths of its own.
QString Wrapped(const QString& text, const TipLook& look) {
  QTextLayout layout(text, MakeFont(look.font));
  QStringList lines;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(look.max_width);
    lines << text.mid(line.textStart(), line.textLength()).trimmed();
  }
  layout.endLayout();
  return lines.join(QLatin1Char('\n'));
}

QPalette PaletteOf(const TipLook& look) {
  QPalette palette = QToolTip::palette();
  palette.setColor(QPalette::ToolTipBase, ToColor(look.back_color));
  palette.setColor(QPalette::ToolTipText, ToColor(look.fore_color));
  return palette;
}

}  // namespace

/// Sees the events of the tools and of the controls painted on them.
class Tip::Watch : public QObject {
 public:
  Watch(QWidget* owner, TipLook look) : owner_(owner), look_(std::move(look)) {}
  ~Watch() override {
    for (const Tool& tool : tools_) {
      if (tool.widget != nullptr) {
        tool.widget->setToolTip(QString());
      }
    }
  }

  void SetLook(const TipLook& look) {
    look_ = look;
    std::for_each(tools_.begin(), tools_.end(), [this](const Tool& tool) { Apply(tool); });
  }

  void Add(QWidget& widget, const QString& text) {
    tools_.push_back({&widget, text});
    Apply(tools_.back());
    widget.installEventFilter(this);
    for (QWidget* part : widget.findChildren<QWidget*>()) {
      part->installEventFilter(this);
    }
    for (QWidget* named = &widget; named != nullptr; named = named->parentWidget()) {
      named->setAccessibleName(text);
      if (named == owner_) {
        break;
      }
    }
  }

  bool eventFilter(QObject* object, QEvent* event) override {
    const QEvent::Type type = event->type();
    if (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick) {
      done_ = true;
    } else if (IsTool(object) && (type == QEvent::Leave || type == QEvent::Hide)) {
      done_ = false;
    } else if (IsTool(object) && type == QEvent::ToolTip) {
      QToolTip::setPalette(PaletteOf(look_));
      QToolTip::setFont(MakeFont(look_.font));
      return std::exchange(done_, true);
    }
    return false;
  }

 private:
  struct Tool {
    QPointer<QWidget> widget;
    QString text;
  };

  bool IsTool(const QObject* object) const {
    return std::any_of(tools_.begin(), tools_.end(),
                       [object](const Tool& tool) { return tool.widget == object; });
  }

  void Apply(const Tool& tool) const {
    if (tool.widget != nullptr) {
      tool.widget->setToolTip(Wrapped(tool.text, look_));
      tool.widget->setToolTipDuration(look_.visible_time);
      tool.widget->setProperty(kTipDelay, look_.delay);
    }
  }

  const QPointer<QWidget> owner_;
  TipLook look_;
  std::vector<Tool> tools_;
  bool done_ = false;  ///< was shown or pressed away; waits for the pointer to leave
};

Tip::Tip(HWND owner, TipLook look)
    : watch_(std::make_unique<Watch>(owner->widget, std::move(look))) {}

Tip::~Tip() = default;

void Tip::SetLook(const TipLook& look) { watch_->SetLook(look); }

void Tip::Add(const Control& control, std::string_view text) {
  watch_->Add(*control.hWnd()->widget,
              QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

}  // namespace toolkit
