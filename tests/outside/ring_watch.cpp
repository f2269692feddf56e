// ring_watch FOLDER FORM X Y turn DIRECTION
// ring_watch FOLDER FORM X Y rest FRONT OPTION
// Looks at the ring page that the program in FOLDER shows at (X, Y) of the screen and holds it
// against frames drawn here, picture by picture, from the same catalogue and background.
// turn: watches until every frame in the middle of a turn in that direction was seen. A sight that
// is no whole frame of a turn in either direction (clicks of an earlier watch may still wait) ends
// with failure and stays behind as a picture; so does a minute without all frames.
// rest: whether the page shows the ring at rest with that option in front, the others at their
// first.

#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <array>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <set>
#include <string>
#include <vector>

#include "platform/system.h"
#include "settings/Catalogue.h"
#include "settings/CatalogueReader.h"
#include "settings/Functions_Configuration.h"
#include "shell/RingPlan.h"
#include "shell/mod_GDIP_DrawingRoutines.h"
#include "support/Surface.h"
#include "toolkit/forms.h"

namespace {

using nimbrel::TurnDirection;

constexpr int kWidth = 596;
constexpr int kHeight = 450;
constexpr std::chrono::seconds kPatience{60};
constexpr int kSmallest = 3;  ///< steps of a colour that are no difference

/// Where a page shows its ring alone, with no label, button or tooltip over it.
constexpr std::array<QRect, 4> kClear{QRect(188, 0, 231, 77), QRect(0, 41, kWidth, 36),
                                      QRect(0, 98, kWidth, 199), QRect(56, 297, 484, 40)};

struct Ring {
  const nimbrel::RingPlan& plan;
  std::int16_t family;
  toolkit::GpImage background;
};

struct Frame {
  std::string name;
  Surface surface;
  bool to_be_seen;
};

/// Draws the pictures plainly, as each is told to look.
Frame Draw(const Ring& ring, std::span<const nimbrel::PlacedPicture> placed, int front, int option,
           const std::string& name) {
  Frame frame{name, Surface(kWidth, kHeight), false};
  toolkit::GpGraphics graphics;
  toolkit::GdipCreateFromHDC(frame.surface.hdc, graphics);
  toolkit::GdipDrawImageRect(graphics, ring.background, 0, 0, kWidth, kHeight);
  const int groups = static_cast<int>(ring.plan.rest.size());
  for (const auto& [follower, slot] : placed) {
    const auto group = static_cast<std::int16_t>((front + follower) % groups);
    const auto chosen = static_cast<std::int16_t>(follower == 0 ? option : 0);
    const nimbrel::OrbitSlot& place = ring.plan.orbit[slot];
    const float radius = nimbrel::kCornerRadius[slot];
    nimbrel::DrawFramedPicture(frame.surface.hdc,
                               {static_cast<float>(place.left), static_cast<float>(place.top),
                                static_cast<float>(place.width), static_cast<float>(place.height)},
                               {radius, radius * 2, 3, 2},
                               nimbrel::Catalogue.At(ring.family, group, chosen).Preview);
  }
  return frame;
}

/// Appends the frames between two rings at rest, and those rings.
void AddTurnFrames(const Ring& ring, TurnDirection direction, bool to_be_seen,
                   std::vector<Frame>& frames) {
  for (int front = 0; front < static_cast<int>(ring.plan.rest.size()); ++front) {
    const std::string to = " of the turn to group " + std::to_string(front);
    frames.push_back(Draw(ring, ring.plan.rest, front, 0, "end" + to));
    for (int number = 1; number < nimbrel::kTurnFrames; ++number) {
      const nimbrel::FramePlan plan = nimbrel::TurnFrame(ring.plan, direction, number);
      frames.push_back(Draw(ring, std::span(plan.pictures).first(plan.count), front, 0,
                            "frame " + std::to_string(number) + to));
      frames.back().to_be_seen = to_be_seen;
    }
  }
}

/// Those to be seen come first: some look the same in both directions.
std::vector<Frame> TurnFrames(const Ring& ring, TurnDirection direction) {
  const bool up = direction == TurnDirection::kCounterclockwise;
  std::vector<Frame> frames;
  AddTurnFrames(ring, direction, true, frames);
  AddTurnFrames(ring, up ? TurnDirection::kClockwise : TurnDirection::kCounterclockwise, false,
                frames);
  return frames;
}

bool Alike(QRgb a, QRgb b) {
  return std::abs(qRed(a) - qRed(b)) <= kSmallest && std::abs(qGreen(a) - qGreen(b)) <= kSmallest &&
         std::abs(qBlue(a) - qBlue(b)) <= kSmallest;
}

bool Shows(const QImage& sight, const Frame& frame) {
  for (const QRect& clear : kClear) {
    for (int y = clear.top(); y <= clear.bottom(); ++y) {
      for (int x = clear.left(); x <= clear.right(); ++x) {
        if (!Alike(sight.pixel(x, y), frame.surface.At(x, y))) {
          return false;
        }
      }
    }
  }
  return true;
}

QImage Look(const QPoint& corner) {
  return QGuiApplication::primaryScreen()
      ->grabWindow(0, corner.x(), corner.y(), kWidth, kHeight)
      .toImage()
      .convertToFormat(QImage::Format_RGB32);
}

int WatchTurns(const std::vector<Frame>& frames, const QPoint& corner) {
  std::set<const Frame*> missing;
  for (const Frame& frame : frames) {
    if (frame.to_be_seen) {
      missing.insert(&frame);
    }
  }
  const auto end = std::chrono::steady_clock::now() + kPatience;
  int sights = 0;
  for (; !missing.empty() && std::chrono::steady_clock::now() < end; ++sights) {
    const QImage sight = Look(corner);
    const auto shown = std::find_if(frames.begin(), frames.end(),
                                    [&sight](const Frame& frame) { return Shows(sight, frame); });
    if (shown == frames.end()) {
      sight.save("nimbrel-half-drawn.png");
      std::cerr << "sight " << sights << " is no whole frame: nimbrel-half-drawn.png\n";
      return EXIT_FAILURE;
    }
    missing.erase(&*shown);
  }
  std::cout << sights << " sights, each a whole frame\n";
  for (const Frame* frame : missing) {
    std::cerr << "never seen: " << frame->name << '\n';
  }
  return missing.empty() ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
  const toolkit::Application application(argc, argv);
  const std::vector<std::string> words(argv + 1, argv + argc);
  if (words.size() < 6) {
    return EXIT_FAILURE;
  }
  platform::SetApplicationFolder(words[0]);
  const bool cloud = words[1] == "frm_3d";
  nimbrel::ReadCatalogueFamily(cloud ? nimbrel::kCloud : nimbrel::kWater,
                               nimbrel::InformationFile(), nimbrel::Pictures::kLoad);
  Ring ring{cloud ? nimbrel::kCloudRing : nimbrel::kWaterRing,
            cloud ? nimbrel::kCloud : nimbrel::kWater,
            {}};
  toolkit::GdipLoadImageFromFile(words[0] + "\\Media\\SubRing_BG.bmp", ring.background);
  const QPoint corner(std::stoi(words[2]), std::stoi(words[3]));
  if (words[4] == "turn") {
    const bool up = words[5] == "counterclockwise";
    return WatchTurns(
        TurnFrames(ring, up ? TurnDirection::kCounterclockwise : TurnDirection::kClockwise),
        corner);
  }
  const Frame rest =
      Draw(ring, ring.plan.rest, std::stoi(words[5]), std::stoi(words.at(6)), "the ring at rest");
  return Shows(Look(corner), rest) ? EXIT_SUCCESS : EXIT_FAILURE;
}
