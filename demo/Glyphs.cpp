#include "Glyphs.h"

#include <QPainterPath>
#include <array>
#include <sstream>
#include <string>

namespace demo {

namespace {

struct Glyph {
  std::string_view name;
  /// On a grid of 24: M x y, L x y, A (box x y w h, start and sweep in degrees, counter-clockwise
  /// from the right, continuing the line), E (ellipse x y w h).
  const char* path;
};

constexpr const char* kTurnRight =
    "M 6.6 16.5 A 5 5 14 14 220 -200 M 14.3 8.6 L 18.6 10 L 20.6 5.6";
constexpr const char* kTurnLeft = "M 17.4 16.5 A 5 5 14 14 -40 200 M 9.7 8.6 L 5.4 10 L 3.4 5.6";
constexpr const char* kCheck = "M 4 13 L 9.5 18.5 L 20 6";
constexpr const char* kCross = "M 6 6 L 18 18 M 18 6 L 6 18";
constexpr const char* kStar =
    "M 12 3 L 14.6 9.2 L 21 9.7 L 16.1 14 L 17.6 20.5 L 12 17 L 6.4 20.5 L 7.9 14 L 3 9.7 L 9.4 "
    "9.2 "
    "L 12 3";
constexpr const char* kDice =
    "M 4 4 L 20 4 L 20 20 L 4 20 L 4 4 E 7.5 7.5 1 1 E 15.5 7.5 1 1 E 11.5 11.5 1 1 E 7.5 15.5 1 1 "
    "E 15.5 15.5 1 1";
constexpr const char* kHelp = "M 8 9 A 8 4 8 8 180 -220 L 12 14.5 E 11.5 18.5 1 1";
constexpr const char* kInformation = "E 3 3 18 18 M 12 11 L 12 17 E 11.5 7 1 1";

constexpr std::array<Glyph, 31> kGlyphs{{
    {"Exit", kCross},
    {"Cancel", kCross},
    {"Minimize", "M 6 17 L 18 17"},
    {"Home", "M 3 12 L 12 4 L 21 12 M 6 10.5 L 6 20 L 18 20 L 18 10.5"},
    {"3d", "M 7 18 A 2.5 10 8 8 270 -160 A 6 5 10 10 170 -170 A 14 10 8 8 80 -170 L 6.5 18"},
    {"Sky",
     "E 8 8 8 8 M 12 2.5 L 12 5 M 12 19 L 12 21.5 M 2.5 12 L 5 12 M 19 12 L 21.5 12 "
     "M 5.3 5.3 L 7 7 M 17 17 L 18.7 18.7 M 5.3 18.7 L 7 17 M 17 7 L 18.7 5.3"},
    {"Water",
     "M 3 8 L 6 6 L 9 8 L 12 6 L 15 8 L 18 6 L 21 8 M 3 13 L 6 11 L 9 13 L 12 11 L 15 13 "
     "L 18 11 L 21 13 M 3 18 L 6 16 L 9 18 L 12 16 L 15 18 L 18 16 L 21 18"},
    {"Randomizer", kDice},
    {"Random", kDice},
    {"Favorites", kStar},
    {"AddFavorites", kStar},
    {"Help", kHelp},
    {"Question", kHelp},
    {"About", kInformation},
    {"Information", kInformation},
    {"3d_Clockwise", kTurnRight},
    {"Sky_Clockwise", kTurnRight},
    {"CounterClockwise", kTurnLeft},
    {"Sky_CounterClockwise", kTurnLeft},
    {"Left", "M 15 4 L 7 12 L 15 20"},
    {"Right", "M 9 4 L 17 12 L 9 20"},
    {"CheckAll", kCheck},
    {"CheckAll_0", kCheck},
    {"CheckAll_1", kCheck},
    {"Delete",
     "M 4 7 L 20 7 M 9 7 L 9 4 L 15 4 L 15 7 M 6 7 L 7 20 L 17 20 L 18 7 M 10 11 L 10 16 "
     "M 14 11 L 14 16"},
    {"Open",
     "M 3 19 L 3 6 L 9 6 L 11 8.5 L 19 8.5 L 19 11 M 3 19 L 6.5 11 L 22 11 L 18.5 19 L 3 19"},
    {"Save", "M 12 3 L 12 14 M 7 9.5 L 12 14.5 L 17 9.5 M 4 15 L 4 20 L 20 20 L 20 15"},
    {"History", "E 3 3 18 18 M 12 7 L 12 12 L 16 14"},
    {"Exclamation", "M 12 3 L 22 20.5 L 2 20.5 L 12 3 M 12 9.5 L 12 14.5 E 11.5 17 1 1"},
    {"Error", "E 3 3 18 18 M 8.5 8.5 L 15.5 15.5 M 15.5 8.5 L 8.5 15.5"},
    {"Progress",
     "M 6 3 L 18 3 M 6 21 L 18 21 M 7 3 L 7 7 L 17 17 L 17 21 M 17 3 L 17 7 L 7 17 L 7 21"},
}};

QPainterPath Parse(const char* text) {
  QPainterPath path;
  std::istringstream in(text);
  char command = 0;
  while (in >> command) {
    double x = 0;
    double y = 0;
    double w = 0;
    double h = 0;
    double start = 0;
    double sweep = 0;
    in >> x >> y;
    if (command == 'M') {
      path.moveTo(x, y);
    } else if (command == 'L') {
      path.lineTo(x, y);
    } else if (command == 'E') {
      in >> w >> h;
      path.addEllipse(x, y, w, h);
    } else {
      in >> w >> h >> start >> sweep;
      path.arcTo(x, y, w, h, start, sweep);
    }
  }
  return path;
}

}  // namespace

void DrawGlyph(QPainter& painter, std::string_view name, const QRectF& box, const QColor& color) {
  for (const Glyph& glyph : kGlyphs) {
    if (glyph.name == name) {
      painter.save();
      painter.setRenderHint(QPainter::Antialiasing);
      painter.translate(box.topLeft());
      painter.scale(box.width() / 24, box.height() / 24);
      painter.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
      painter.setBrush(Qt::NoBrush);
      painter.drawPath(Parse(glyph.path));
      painter.restore();
    }
  }
}

}  // namespace demo
