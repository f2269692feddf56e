#include "Skin.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <array>
#include <string>

#include "Files.h"
#include "Glyphs.h"
#include "platform/gdi.h"

namespace demo {

namespace fs = std::filesystem;

namespace {

constexpr QRgb kFrame = 0xFF0372AC;
constexpr QRgb kPanel = 0xFFC9D5E7;  // the check boxes' own background
constexpr QRgb kBody = 0xFFE1E8F3;
constexpr QRgb kDialog = 0xFFD9E2EF;
constexpr QRgb kText = 0xFF606060;

void Write(QPainter& painter, const QRect& box, int pixels, bool bold, QRgb color,
           const QString& text, int alignment) {
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(pixels);
  font.setBold(bold);
  painter.setFont(font);
  painter.setPen(QColor(color));
  painter.drawText(box, alignment, text);
}

// ---- backgrounds

QPainterPath Rounded(const QRectF& box, double radius) {
  QPainterPath path;
  path.addRoundedRect(box, radius, radius);
  return path;
}

/// A window of the key colour black outside its round corners and of no pure black inside.
QImage PaintWindow(int width, int height, QRgb body, int header) {
  QImage picture(width, height, QImage::Format_RGB32);
  picture.fill(Qt::black);
  QPainter painter(&picture);
  const QPainterPath outline = Rounded(QRectF(0, 0, width, height), 22);
  painter.fillPath(outline, QColor(kFrame));
  const QPainterPath inside = Rounded(QRectF(2, 2, width - 4, height - 4), 20);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillPath(inside, QColor(body));
  painter.setClipPath(inside);
  QLinearGradient shine(0, 0, 0, header);
  shine.setColorAt(0, QColor(0x2E, 0x92, 0xC6));
  shine.setColorAt(1, QColor(kFrame));
  painter.fillRect(0, 0, width, header, shine);
  return picture;
}

QImage PaintMainWindow() {
  QImage picture = PaintWindow(798, 603, kBody, 52);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  DrawGlyph(painter, "3d", QRectF(24, 10, 32, 32), Qt::white);
  Write(painter, QRect(66, 8, 300, 36), 24, true, 0xFFFFFFFF, QStringLiteral("Nimbrel"),
        Qt::AlignVCenter);
  painter.setPen(QPen(QColor(kFrame), 1));
  painter.setBrush(QColor(kPanel));
  painter.drawRoundedRect(QRectF(174.5, 125.5, 601, 455), 4, 4);
  painter.setBrush(QColor(kDialog));
  painter.drawRoundedRect(QRectF(16.5, 84.5, 153, 496), 6, 6);
  painter.drawLine(QPointF(24, 113.5), QPointF(162, 113.5));
  return picture;
}

QImage PaintPanel() {
  QImage picture(596, 450, QImage::Format_RGB32);
  picture.fill(kPanel);
  return picture;
}

/// The orbit that the ring's pictures stand on, drawn behind them.
QImage PaintRingPanel() {
  QImage picture = PaintPanel();
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QColor(0xDD, 0xE6, 0xF2), 14));
  painter.drawEllipse(QRectF(84, 56, 428, 210));
  painter.setPen(QPen(QColor(0xB4, 0xC4, 0xDC), 1));
  painter.drawEllipse(QRectF(77, 49, 442, 224));
  painter.drawEllipse(QRectF(91, 63, 414, 196));
  return picture;
}

QImage PaintAbout() {
  QImage picture = PaintPanel();
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QColor(kFrame), 2));
  painter.setBrush(QColor(kDialog));
  painter.drawEllipse(30, 50, 130, 130);
  DrawGlyph(painter, "3d", QRectF(50, 66, 90, 90), QColor(kFrame));
  Write(
      painter, QRect(190, 120, 370, 250), 13, false, kText,
      QStringLiteral("Nimbrel changes how the simulator's sky, clouds and water look. Pick a set "
                     "for each of eleven groups, or let the randomizer pick, then press Save and "
                     "Install.\n\nThe sets and pictures of this folder are a demonstration: plain "
                     "drawings that show which option is where."),
      Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap);
  return picture;
}

QImage PaintDialog(int width, int height, const QString& title) {
  QImage picture = PaintWindow(width, height, kDialog, title.isEmpty() ? 0 : 44);
  QPainter painter(&picture);
  Write(painter, QRect(20, 0, width - 40, 44), 15, true, 0xFFFFFFFF, title, Qt::AlignVCenter);
  return picture;
}

QImage PaintSplash() {
  QImage picture = PaintWindow(400, 300, kBody, 300);
  QPainter painter(&picture);
  DrawGlyph(painter, "3d", QRectF(140, 40, 120, 120), Qt::white);
  Write(painter, QRect(0, 160, 400, 60), 38, true, 0xFFFFFFFF, QStringLiteral("Nimbrel"),
        Qt::AlignCenter);
  Write(painter, QRect(0, 220, 400, 30), 14, false, 0xFFFFFFFF,
        QStringLiteral("Reading the pictures..."), Qt::AlignCenter);
  return picture;
}

QImage PaintPreviewFrame() {
  QImage picture(272, 210, QImage::Format_RGB32);
  picture.fill(kPanel);
  return picture;
}

/// What is left of the picture's rectangle without its black pixels.
void WriteRegion(const fs::path& file, const QImage& picture) {
  platform::HRGN region = platform::CreateRectRgn(0, 0, picture.width(), picture.height());
  const auto key = [&](int x, int y) {
    return x < picture.width() && (picture.pixel(x, y) & 0xFFFFFFU) == 0;
  };
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const int first = x;
      while (key(x, y)) {
        ++x;
      }
      if (x > first) {
        platform::CombineRgn(region, region, platform::CreateRectRgn(first, y, x, y + 1),
                             platform::RGN_DIFF);
      }
    }
  }
  WriteBytes(file, platform::GetRegionData(region));
}

// ---- buttons

struct State {
  QRgb top;
  QRgb bottom;
  QRgb frame;
  QRgb sign;
};

constexpr std::array<State, 4> kStates{{
    {0xFFF4F8FC, 0xFFC3D6EA, 0xFF0372AC, 0xFF0372AC},  // enabled
    {0xFFFFFFFF, 0xFFFFE2A8, 0xFFD98A00, 0xFF9A5B00},  // highlight
    {0xFF8FB9DA, 0xFFC0DBF0, 0xFF02496F, 0xFF02395A},  // down
    {0xFFDCE0E6, 0xFFD2D7DE, 0xFFA9B1BC, 0xFFA0A8B2},  // disabled
}};

struct Strip {
  const char* name;
  int width;
  int height;
  QRgb ground;
  const char* text;
};

constexpr std::array<Strip, 26> kStrips{{
    {"Exit", 28, 28, 0xFF1982B9, ""},
    {"Minimize", 28, 28, 0xFF1982B9, ""},
    {"Home", 142, 44, kDialog, ""},
    {"3d", 142, 44, kDialog, ""},
    {"Sky", 142, 44, kDialog, ""},
    {"Water", 142, 44, kDialog, ""},
    {"Randomizer", 142, 44, kDialog, ""},
    {"Favorites", 142, 44, kDialog, ""},
    {"Help", 142, 44, kDialog, ""},
    {"About", 142, 44, kDialog, ""},
    {"3d_Clockwise", 44, 44, kPanel, ""},
    {"CounterClockwise", 44, 44, kPanel, ""},
    {"Sky_Clockwise", 44, 44, kPanel, ""},
    {"Sky_CounterClockwise", 44, 44, kPanel, ""},
    {"Left", 44, 44, kPanel, ""},
    {"Right", 44, 44, kPanel, ""},
    {"CheckAll", 44, 44, kPanel, ""},
    {"CheckAll_0", 44, 44, kPanel, ""},
    {"CheckAll_1", 44, 44, kPanel, ""},
    {"Cancel", 44, 44, kDialog, ""},
    {"Delete", 44, 44, kPanel, ""},
    {"Open", 44, 44, kPanel, ""},
    {"Save", 128, 43, kPanel, "Save and\nInstall"},
    {"AddFavorites", 128, 43, kPanel, "Add to\nFavorites"},
    {"History", 128, 43, kPanel, "Load\nHistory"},
    {"Random", 128, 43, kPanel, "Randomize"},
}};

QImage PaintStrip(const Strip& strip) {
  QImage picture(strip.width, strip.height * 4, QImage::Format_RGB32);
  picture.fill(strip.ground);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  const double side = strip.height * 0.55;
  for (std::size_t i = 0; i < kStates.size(); ++i) {
    const State& state = kStates[i];
    const int top = static_cast<int>(i) * strip.height;
    QLinearGradient face(0, top, 0, top + strip.height);
    face.setColorAt(0, state.top);
    face.setColorAt(1, state.bottom);
    painter.setPen(QPen(QColor(state.frame), 1.5));
    painter.setBrush(face);
    painter.drawRoundedRect(QRectF(1, top + 1, strip.width - 2, strip.height - 2), 6, 6);
    const bool square = strip.width == strip.height;
    const double left = square ? (strip.width - side) / 2 : 12;
    DrawGlyph(painter, strip.name, QRectF(left, top + (strip.height - side) / 2, side, side),
              state.sign);
    Write(painter, QRect(42, top, strip.width - 44, strip.height), 13, true, state.sign,
          QString::fromLatin1(strip.text), Qt::AlignCenter);
  }
  return picture;
}

// ---- icons and the cursor

struct Icon {
  const char* name;
  int side;
  QRgb ground;
  QRgb sign;
};

constexpr std::array<Icon, 12> kIcons{{
    {"Home", 44, kBody, kFrame},
    {"3d", 44, kBody, kFrame},
    {"Sky", 44, kBody, 0xFFC98A00},
    {"Water", 44, kBody, 0xFF0A7F86},
    {"Randomizer", 44, kBody, kFrame},
    {"Favorites", 44, kBody, 0xFFC98A00},
    {"About", 44, kBody, kFrame},
    {"Information", 100, kDialog, kFrame},
    {"Exclamation", 100, kDialog, 0xFFD98A00},
    {"Error", 100, kDialog, 0xFFB3261E},
    {"Question", 100, kDialog, 0xFF2E7D32},
    {"Progress", 100, kDialog, kFrame},
}};

QImage PaintIcon(const Icon& icon) {
  QImage picture(icon.side, icon.side, QImage::Format_RGB32);
  picture.fill(icon.ground);
  QPainter painter(&picture);
  const double margin = icon.side * 0.1;
  const double inner = icon.side - 2 * margin;
  DrawGlyph(painter, icon.name, QRectF(margin, margin, inner, inner), QColor(icon.sign));
  return picture;
}

void Append(std::string& bytes, std::uint32_t value, int size) {
  for (int i = 0; i < size; ++i) {
    bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
  }
}

/// Four arrows away from the middle, 32 by 32, 32 bits with an empty mask, hot spot (16, 16).
void WriteMoveCursor(const fs::path& file) {
  QImage picture(32, 32, QImage::Format_ARGB32);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const auto& [width, color] : {std::pair{5, Qt::white}, std::pair{2, Qt::black}}) {
    painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.resetTransform();
    painter.translate(16, 16);
    for (int i = 0; i < 4; ++i) {
      painter.drawPolyline(QPolygonF({{0, 0}, {12, 0}, {8, -4}, {12, 0}, {8, 4}}));
      painter.rotate(90);
    }
  }
  painter.end();
  constexpr std::uint32_t kBytes = 40 + 32 * 32 * 4 + 32 * 4;
  std::string bytes;
  for (const auto& [value, size] : std::initializer_list<std::pair<std::uint32_t, int>>{
           {0, 2},  {2, 2},      {1, 2},  {32, 1}, {32, 1}, {0, 2},  {16, 2},
           {16, 2}, {kBytes, 4}, {22, 4}, {40, 4}, {32, 4}, {64, 4}, {1, 2},
           {32, 2}, {0, 4},      {0, 4},  {0, 4},  {0, 4},  {0, 4},  {0, 4}}) {
    Append(bytes, value, size);
  }
  for (int y = 31; y >= 0; --y) {
    for (int x = 0; x < 32; ++x) {
      Append(bytes, picture.pixel(x, y), 4);
    }
  }
  bytes.append(std::size_t{32} * 4, '\0');
  WriteBytes(file, std::as_bytes(std::span(bytes)));
}

}  // namespace

void WriteSkin(const fs::path& media) {
  const QImage main_window = PaintMainWindow();
  const QImage message = PaintDialog(400, 300, QStringLiteral("Nimbrel"));
  const QImage add_favorite = PaintDialog(500, 348, QString());
  WriteBmp(media / "MainInterface.bmp", main_window);
  WriteBmp(media / "SubLighter_BG.bmp", PaintPanel());
  WriteBmp(media / "Sub_BG.bmp", PaintPanel());
  WriteBmp(media / "SubRing_BG.bmp", PaintRingPanel());
  WriteBmp(media / "About_BG.bmp", PaintAbout());
  WriteBmp(media / "Msg_BG.bmp", message);
  WriteBmp(media / "Splash_BG.bmp", PaintSplash());
  WriteBmp(media / "AddFavorite_BG.bmp", add_favorite);
  WriteBmp(media / "Preview_BG.bmp", PaintPreviewFrame());
  WriteRegion(media / "MainRegion.dat", main_window);
  WriteRegion(media / "MsgRegion.dat", message);
  WriteRegion(media / "AddRegion.dat", add_favorite);
  for (const Strip& strip : kStrips) {
    WriteBmp(media / ("btn_" + std::string(strip.name) + ".bmp"), PaintStrip(strip));
  }
  for (const Icon& icon : kIcons) {
    WriteBmp(media / ("icon_" + std::string(icon.name) + ".bmp"), PaintIcon(icon));
  }
  WriteMoveCursor(media / "HMOVE.cur");
}

}  // namespace demo
