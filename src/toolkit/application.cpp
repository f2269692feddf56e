#include <QApplication>
#include <QPalette>
#include <QProxyStyle>
#include <QScreen>
#include <QVariant>

#include "toolkit/fonts.h"
#include "toolkit/forms.h"
#include "toolkit/forms_shown.h"
#include "toolkit/native_window.h"
#include "toolkit/tip.h"

namespace toolkit {

namespace {

constexpr int kCheckMark = 14;  // pixels, the size of the check boxes without a caption
constexpr const char* kName = "nimbrel";

MousePointerCode screen_pointer = kPointerDefault;

/// The delay of the tip that shows when the pointer rests on `widget`.
int TipDelay(const QWidget* widget, int usual) {
  for (; widget != nullptr; widget = widget->parentWidget()) {
    if (const QVariant delay = widget->property(kTipDelay); delay.isValid()) {
      return delay.toInt();
    }
  }
  return usual;
}

/// Check marks of one size at every density, drop-down lists below their box, and each tip after
/// its own delay.
class Style : public QProxyStyle {
 public:
  Style() : QProxyStyle(QStringLiteral("Fusion")) {}

  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override {
    const bool mark = metric == PM_IndicatorWidth || metric == PM_IndicatorHeight;
    return mark ? kCheckMark : QProxyStyle::pixelMetric(metric, option, widget);
  }

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* result) const override {
    switch (hint) {
      case SH_ComboBox_Popup:
      case SH_ToolTip_FallAsleepDelay:
        return 0;
      case SH_ToolTip_WakeUpDelay:
        return TipDelay(widget, QProxyStyle::styleHint(hint, option, widget, result));
      default:
        return QProxyStyle::styleHint(hint, option, widget, result);
    }
  }
};

/// Light whatever the desktop's theme: the artwork is light and its texts are dark.
QPalette LightPalette() {
  const QColor grey(160, 160, 160);
  QPalette palette(Qt::black, QColor(240, 240, 240), QColor(255, 255, 255), grey,
                   QColor(200, 200, 200), Qt::black, Qt::white, Qt::white, QColor(240, 240, 240));
  palette.setColor(QPalette::Highlight, QColor(0, 101, 161));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, grey);
  }
  return palette;
}

void DressUp() {
  QApplication::setStyle(new Style());
  QApplication::setPalette(LightPalette());
  QApplication::setFont(MakeFont({.family = "Verdana"}));
}

/// Forms that still exist at the end lose their widgets before the toolkit goes.
void DropWidgets() {
  for (const NativeWindow* window : AllWindows()) {
    delete window->widget.data();
  }
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QRect WorkArea() { return QGuiApplication::primaryScreen()->availableGeometry(); }

}  // namespace

Application::Application(int& argc, char** argv) {
  new QApplication(argc, argv);  // reached through qApp; ended by the destructor
  QCoreApplication::setApplicationName(QString::fromLatin1(kName));
  QGuiApplication::setDesktopFileName(QString::fromLatin1(kName));
  QGuiApplication::setQuitOnLastWindowClosed(false);
  DressUp();
}

Application::~Application() {
  DropWidgets();
  delete qApp;
}

int Application::Run() { return QApplication::exec(); }

void DoEvents() {
  FlushPendingShows();
  QCoreApplication::processEvents();
}

float Screen::Width() { return Twips(WorkArea().width()); }
float Screen::Height() { return Twips(WorkArea().height()); }

void Screen::SetMousePointer(MousePointerCode code) {
  if (code == screen_pointer) {
    return;
  }
  if (screen_pointer != kPointerDefault) {
    QGuiApplication::restoreOverrideCursor();
  }
  if (code != kPointerDefault) {
    QGuiApplication::setOverrideCursor(code == kPointerHourglass ? Qt::WaitCursor
                                                                 : Qt::ArrowCursor);
  }
  screen_pointer = code;
}

MousePointerCode Screen::MousePointer() { return screen_pointer; }

}  // namespace toolkit
