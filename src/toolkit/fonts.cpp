#include "toolkit/fonts.h"

#include <QString>
#include <QStringList>
#include <algorithm>
#include <cmath>

#include "toolkit/forms.h"

namespace toolkit {

namespace {

constexpr int kMaxPixelSize = 512;

QStringList WithFallbacks(std::string_view family) {
  const QString name = QString::fromUtf8(family.data(), static_cast<qsizetype>(family.size()));
  QStringList families{name};
  if (name.compare(QStringLiteral("Tahoma"), Qt::CaseInsensitive) == 0) {
    families << QStringLiteral("DejaVu Sans Condensed");
  }
  return families << QStringLiteral("DejaVu Sans");
}

}  // namespace

QFont MakeFont(const FontRequest& request) {
  QFont font;
  font.setFamilies(WithFallbacks(request.family));
  font.setPixelSize(
      std::clamp(static_cast<int>(std::lround(request.pixel_size)), 1, kMaxPixelSize));
  font.setBold(request.bold);
  font.setItalic(request.italic);
  font.setUnderline(request.underline);
  font.setStrikeOut(request.strikeout);
  return font;
}

QFont MakeFont(const Font& font) {
  return MakeFont({.family = font.name,
                   .pixel_size = static_cast<double>(PixelSize(font.size)),
                   .bold = font.bold || font.weight >= 600,
                   .italic = font.italic,
                   .underline = font.underline,
                   .strikeout = font.strikethrough});
}

int PixelSize(double points) {
  const double pixels = std::clamp(points * 96.0 / 72.0, 1.0, 1.0 * kMaxPixelSize);
  return static_cast<int>(std::lround(pixels));
}

}  // namespace toolkit
