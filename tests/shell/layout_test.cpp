#include <gtest/gtest.h>

#include <QtTest>
#include <fstream>
#include <sstream>

#include "ShellWorld.h"
#include "app/mod_Main.h"
#include "shell/Pages.h"
#include "shell/State.h"
#include "shell/dialogs/frm_AddFavorite.h"
#include "shell/dialogs/frm_Msg.h"
#include "shell/pages/frm_Preview.h"

namespace nimbrel {
namespace {

/// The text, or else the tooltip, in one line. The version is left out.
std::string TextOf(const QWidget& control) {
  const QString text = control.property("text").toString();
  return control.objectName() == "lbl_Version"
             ? ""
             : (text.isEmpty() ? control.toolTip() : text).simplified().toStdString();
}

/// The control with all that is in it, sorted by name and place: place and size in its container,
/// font in pixels, colour of the text, and text.
void Describe(const QWidget& control, const std::string& indent, std::ostream& out) {
  const QRect place = control.geometry();
  out << indent << control.objectName().toStdString() << ' ' << place.x() << ',' << place.y() << ' '
      << place.width() << 'x' << place.height() << ' ' << control.font().pixelSize()
      << (control.font().bold() ? " bold " : " ")
      << control.palette().color(QPalette::WindowText).name().toStdString() << ' '
      << TextOf(control) << '\n';
  std::map<std::tuple<QString, int, int>, const QWidget*> parts;
  for (const QObject* child : control.children()) {
    const auto* part = qobject_cast<const QWidget*>(child);
    if (part != nullptr && !part->objectName().isEmpty() && !part->objectName().startsWith("qt_")) {
      parts[{part->objectName(), part->y(), part->x()}] = part;
    }
  }
  for (const auto& [place_and_name, part] : parts) {
    Describe(*part, indent + "  ", out);
  }
}

/// layout.txt is what the artwork is drawn for. After a change that is meant, take the
/// layout_now.txt that the test writes into its folder.
TEST(Layout, PutsEveryControlWhereTheArtworkExpectsIt) {
  const ShellWorld world;
  StartProgram();
  for (const FormRow& form : FormRows()) {
    if (form.load != nullptr) {
      form.load();
    }
  }
  Loaded(ui.forms.message);
  Loaded(ui.forms.add_favorite);
  Loaded(ui.forms.preview);
  std::map<QString, QWidget*> forms;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName().startsWith("frm_")) {
      forms[window->objectName()] = window;
    }
  }
  std::ostringstream now;
  for (const auto& [name, form] : forms) {
    form->move(0, 0);
    Describe(*form, "", now);
  }
  EXPECT_EQ(ReadText(NIMBREL_LAYOUT), now.str());
  if (HasFailure()) {
    std::ofstream("layout_now.txt") << now.str();
  }
}

}  // namespace
}  // namespace nimbrel
