#include "Scenes.h"

#include <QPainter>
#include <QPainterPath>
#include <array>
#include <cmath>

#include "Noise.h"

namespace demo {

namespace {

/// The upper and lower colour of a scene and the look of what lies over it.
struct Look {
  QRgb top;
  QRgb bottom;
  QRgb over;
  NoiseShape shape;
  float low;  ///< noise below it shows nothing of `over`, above `high` nothing but it
  float high;
};

constexpr std::array<Look, kGroups> kLooks{{
    {0xFF3F7FBF, 0xFFBCD8EE, 0xFFFFFFFF, {6, 5, 5}, 0.46F, 0.56F},
    {0xFF6D8CAB, 0xFFC4D3E0, 0xFFF2F5F8, {3, 14, 4}, 0.36F, 0.60F},
    {0xFF4A86C2, 0xFFC5DDF0, 0xFFFFFFFF, {14, 10, 5}, 0.48F, 0.70F},
    {0xFF2F6DB3, 0xFF9CC4E6, 0xFFFFFFFF, {2, 22, 3}, 0.50F, 0.85F},
    {0xFF5B86B8, 0xFFF6B98A, 0xFFFFE3C2, {2, 10, 3}, 0.50F, 0.85F},
    {0xFF1F66B8, 0xFFB9DCF4, 0xFFFFFFFF, {3, 8, 4}, 0.55F, 0.95F},
    {0xFF4A3F74, 0xFFE8774A, 0xFFFFC48A, {2, 10, 3}, 0.50F, 0.85F},
    {0xFF060A1C, 0xFF22345C, 0xFF5A6C96, {3, 8, 3}, 0.60F, 0.95F},
    {0xFF0F4A63, 0xFF2E8C96, 0xFF7CC3C4, {6, 26, 4}, 0.52F, 0.90F},
    {0xFF3A7CA6, 0xFFBFDCEB, 0xFFFFFFFF, {4, 30, 4}, 0.52F, 0.78F},
    {0xFF2B6C8F, 0xFF123F5B, 0xFFE6F2F4, {5, 18, 4}, 0.55F, 0.75F},
}};

QRgb Mix(QRgb a, QRgb b, float t) {
  const auto channel = [t](int from, int to) {
    return static_cast<int>(
        std::lround(static_cast<float>(from) * (1.0F - t) + static_cast<float>(to) * t));
  };
  return qRgb(channel(qRed(a), qRed(b)), channel(qGreen(a), qGreen(b)),
              channel(qBlue(a), qBlue(b)));
}

/// Each option has its own hue and brightness round the group's colour.
QRgb Tint(QRgb color, int option) {
  constexpr std::array<int, kOptions + 1> kHue{0, 9, -9, 14, -16, 0};
  constexpr std::array<int, kOptions + 1> kValue{100, 115, 88, 106, 72, 60};
  const auto at = static_cast<std::size_t>(option);
  const QColor hsv = QColor(color).toHsv();
  const int hue = std::max(hsv.hsvHue(), 0) + kHue[at] + 360;
  const int saturation = option == kOriginal ? hsv.hsvSaturation() / 3 : hsv.hsvSaturation();
  return QColor::fromHsv(hue % 360, saturation, std::min(hsv.value() * kValue[at] / 100, 255))
      .rgb();
}

std::uint32_t Seed(const Group& group, int option) {
  return 100U + static_cast<std::uint32_t>(group.kind) * 16U + static_cast<std::uint32_t>(option);
}

/// Noise of `over` upon the gradient from top to bottom.
QImage PaintLook(const Group& group, int option, std::uint32_t seed, int width, int height) {
  const Look& look = kLooks[group.kind];
  const Noise noise(width, height, look.shape, seed);
  QImage picture(width, height, QImage::Format_RGB32);
  const float shift = 0.03F * static_cast<float>(option - 2);
  for (int y = 0; y < height; ++y) {
    const float depth = static_cast<float>(y) / static_cast<float>(height);
    const QRgb ground = Mix(Tint(look.top, option), Tint(look.bottom, option), depth);
    auto* row = reinterpret_cast<QRgb*>(picture.scanLine(y));
    for (int x = 0; x < width; ++x) {
      row[x] = Mix(ground, look.over, Slope(noise.At(x, y), look.low + shift, look.high + shift));
    }
  }
  return picture;
}

void DrawText(QPainter& painter, const QRect& box, int pixels, const QString& text) {
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(pixels);
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(QColor(0, 0, 0, 150));
  painter.drawText(box.translated(1, 1), Qt::AlignCenter, text);
  painter.setPen(Qt::white);
  painter.drawText(box, Qt::AlignCenter, text);
}

void DrawBall(QPainter& painter, const QPointF& centre, double radius, const QColor& color) {
  QRadialGradient glow(centre, radius * 3);
  glow.setColorAt(0, color);
  glow.setColorAt(1, QColor(color.red(), color.green(), color.blue(), 0));
  painter.setPen(Qt::NoPen);
  painter.setBrush(glow);
  painter.drawEllipse(centre, radius * 3, radius * 3);
  painter.setBrush(color);
  painter.drawEllipse(centre, radius, radius);
}

/// The sun or moon of a sky, and the horizon that water begins at.
void DrawSubject(QPainter& painter, const Group& group, int option, int width, int height) {
  const double x = width * (0.25 + 0.12 * option);
  if (group.kind == kSunrise || group.kind == kSunset) {
    DrawBall(painter, {x, height * 0.72}, height * 0.06, QColor(255, 226, 170));
  } else if (group.kind == kDay) {
    DrawBall(painter, {x, height * 0.25}, height * 0.06, QColor(255, 252, 236));
  } else if (group.kind == kNight && option > 0) {
    DrawBall(painter, {x, height * 0.3}, height * 0.05, QColor(226, 232, 244));
  }
  if (group.kind >= kBase) {
    QLinearGradient sky(0, 0, 0, height * 0.4);
    sky.setColorAt(0, QColor(96, 150, 200));
    sky.setColorAt(1, QColor(214, 230, 240));
    painter.fillRect(QRectF(0, 0, width, height * 0.4), sky);
  } else if (group.kind >= kSunrise) {
    QPainterPath hills(QPointF(0, height));
    for (int i = 0; i <= width; i += 4) {
      hills.lineTo(
          i, height * 0.88 - height * 0.03 * std::sin(i * 0.021 + static_cast<int>(group.kind)));
    }
    hills.lineTo(width, height);
    painter.fillPath(hills, QColor(30, 40, 52));
  }
}

}  // namespace

QImage PaintScene(const Group& group, int option, int width, int height) {
  QImage picture = PaintLook(group, option, Seed(group, option), width, height);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  DrawSubject(painter, group, option, width, height);
  const int strip = height / 9;
  painter.fillRect(0, height - strip, width, strip, QColor(3, 114, 172, 170));
  DrawText(painter, QRect(0, height - strip, width, strip), strip / 2,
           QString::number(option) + QStringLiteral("   ") +
               QString::fromUtf8(group.options[static_cast<std::size_t>(option)].title));
  return picture;
}

QImage PaintSkyMini(int hour) {
  struct Hour {
    QRgb top;
    QRgb bottom;
  };
  constexpr std::array<Hour, 14> kHours{{{0xFF0A1026, 0xFF1E2C50},
                                         {0xFF263A66, 0xFF8A6A84},
                                         {0xFF5B86B8, 0xFFF6B98A},
                                         {0xFF6C9ED0, 0xFFFAD9B0},
                                         {0xFF4C8CD0, 0xFFD0E6F4},
                                         {0xFF2F77C6, 0xFFBEDDF4},
                                         {0xFF1F66B8, 0xFFB9DCF4},
                                         {0xFF2A6EBC, 0xFFC4E0F2},
                                         {0xFF4C86C2, 0xFFDCE2DC},
                                         {0xFF5A6CA4, 0xFFF2C088},
                                         {0xFF4A3F74, 0xFFE8774A},
                                         {0xFF33305E, 0xFF9A5468},
                                         {0xFF151C3C, 0xFF3A3A64},
                                         {0xFF060A1C, 0xFF22345C}}};
  constexpr int kSide = 31;
  const Hour& sky = kHours[static_cast<std::size_t>(hour)];
  QImage picture(kSide, kSide, QImage::Format_RGB32);
  picture.fill(Qt::white);
  QLinearGradient gradient(0, 0, 0, kSide);
  gradient.setColorAt(0, sky.top);
  gradient.setColorAt(1, sky.bottom);
  QPainter painter(&picture);
  painter.setPen(Qt::NoPen);
  painter.setBrush(gradient);
  painter.drawEllipse(0, 0, kSide, kSide);
  return picture;
}

QImage PaintTexture(const Group& group, int option, int file, int side) {
  const auto seed = Seed(group, option) * 16U + static_cast<std::uint32_t>(file);
  QImage picture = PaintLook(group, option, seed, side, side);
  QPainter painter(&picture);
  if (option != kOriginal) {
    DrawText(painter, picture.rect(), side / 3, QString::number(option));
  }
  return picture;
}

CumulusInput PaintCumulusInput(const Group& group, int option, int side) {
  const Look& look = kLooks[group.kind];
  const Noise shade(side, side, {8, 8, 5}, Seed(group, option) + 7U);
  const Noise cover(side, side, {8, 8, 5}, Seed(group, option) + 3U);
  CumulusInput input{QImage(side, side, QImage::Format_RGB32),
                     QImage(side, side, QImage::Format_Indexed8)};
  QList<QRgb> greys;
  for (int i = 0; i < 256; ++i) {
    greys.append(qRgb(i, i, i));
  }
  input.alpha.setColorTable(greys);
  const QRgb dark = Mix(Tint(look.top, option), 0xFF8090A0, 0.6F);
  for (int y = 0; y < side; ++y) {
    auto* color = reinterpret_cast<QRgb*>(input.color.scanLine(y));
    uchar* alpha = input.alpha.scanLine(y);
    for (int x = 0; x < side; ++x) {
      color[x] = Mix(dark, 0xFFFFFFFF, Slope(shade.At(x, y), 0.25F, 0.6F));
      alpha[x] = static_cast<uchar>(std::lround(255.0F * Slope(cover.At(x, y), 0.32F, 0.62F)));
    }
  }
  QPainter painter(&input.color);
  const int cell = side / 4;
  for (int i = 0; i < 16; ++i) {
    DrawText(painter, QRect(i % 4 * cell, i / 4 * cell, cell, cell), cell / 4,
             QString(QChar::fromLatin1(group.prefix[0])).toUpper() + QString::number(option));
  }
  return input;
}

QImage PaintSun(int side, const QColor& glow) {
  QImage picture(side, side, QImage::Format_RGB32);
  picture.fill(Qt::black);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  DrawBall(painter, {side / 2.0, side / 2.0}, side / 7.0, glow);
  return picture;
}

}  // namespace demo
