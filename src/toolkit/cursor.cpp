#include "toolkit/cursor.h"

#include <QBitmap>
#include <QPainter>
#include <QPixmap>
#include <array>
#include <cstdlib>
#include <optional>
#include <span>

#include "platform/FileSystem.h"
#include "platform/little_endian.h"
#include "toolkit/host_files.h"
#include "toolkit/pictures.h"

namespace toolkit {

namespace {

constexpr std::size_t kMaxFile = 1U << 20U;
constexpr std::size_t kHeaderSize = 6;
constexpr std::size_t kEntrySize = 16;
constexpr unsigned kCursorType = 2;
constexpr int kUsualSide = 32;  // pixels, of a pointer
constexpr int kMaxSide = 256;   // pixels, the most that the directory can name

/// One picture of the file: where its hot spot is, in pixels.
struct Entry {
  int index = 0;
  int side = 0;
  QPoint hot_spot;
};

unsigned Byte(std::span<const std::byte> bytes, std::size_t at) {
  return platform::ReadLittle<std::uint8_t>(bytes, at);
}

unsigned Word(std::span<const std::byte> bytes, std::size_t at) {
  return platform::ReadLittle<std::uint16_t>(bytes, at);
}

Entry ReadEntry(std::span<const std::byte> bytes, int index) {
  const std::size_t at = kHeaderSize + static_cast<std::size_t>(index) * kEntrySize;
  const int width = static_cast<int>(Byte(bytes, at));
  return {index, width == 0 ? kMaxSide : width,
          QPoint(static_cast<int>(Word(bytes, at + 4)), static_cast<int>(Word(bytes, at + 6)))};
}

/// The picture whose side comes nearest to a pointer's usual one.
std::optional<Entry> ChooseEntry(std::span<const std::byte> bytes) {
  if (bytes.size() < kHeaderSize || Word(bytes, 0) != 0 || Word(bytes, 2) != kCursorType) {
    return std::nullopt;
  }
  const unsigned count = Word(bytes, 4);
  std::optional<Entry> best;
  for (unsigned i = 0; i < count && kHeaderSize + (i + 1) * kEntrySize <= bytes.size(); ++i) {
    const Entry entry = ReadEntry(bytes, static_cast<int>(i));
    if (!best || std::abs(entry.side - kUsualSide) < std::abs(best->side - kUsualSide)) {
      best = entry;
    }
  }
  return best;
}

/// A pointing hand, 32 columns of which the left 20 are used: '#' outline, '.' inside.
constexpr std::array<const char*, 23> kHand = {
    "           ##       ",  //
    "          #..#      ",  //
    "          #..#      ",  //
    "          #..#      ",  //
    "          #..#      ",  //
    "          #..#      ",  //
    "          #..###    ",  //
    "          #..#..### ",  //
    "          #..#..#..#",  //
    "    ##    #..#..#..#",  //
    "   #..#   #..#..#..#",  //
    "   #...#  #........#",  //
    "    #...# #........#",  //
    "     #...##........#",  //
    "      #............#",  //
    "      #............#",  //
    "       #..........# ",  //
    "        #.........# ",  //
    "        #.........# ",  //
    "         #.......#  ",  //
    "         #.......#  ",  //
    "         #.......#  ",  //
    "         #########  ",  //
};
constexpr QPoint kHandHotSpot{12, 1};

QImage DrawHand() {
  QImage hand(kUsualSide, kUsualSide, QImage::Format_ARGB32_Premultiplied);
  hand.fill(Qt::transparent);
  for (int y = 0; y < static_cast<int>(kHand.size()); ++y) {
    const std::string_view row = kHand[static_cast<std::size_t>(y)];
    for (int x = 0; x < static_cast<int>(row.size()); ++x) {
      const char pixel = row[static_cast<std::size_t>(x)];
      if (pixel != ' ') {
        hand.setPixelColor(x, y + 1, pixel == '#' ? Qt::black : Qt::white);
      }
    }
  }
  return hand;
}

CursorHandle MakeCursor(const QImage& picture, QPoint hot_spot) {
  return std::make_shared<CursorPicture>(
      CursorPicture{QCursor(QPixmap::fromImage(picture), hot_spot.x(), hot_spot.y())});
}

}  // namespace

CursorHandle LoadCursorFile(std::string_view path) {
  const auto bytes = Files().ReadFile(path, kMaxFile);
  if (!bytes) {
    return {};
  }
  const std::optional<Entry> entry = ChooseEntry(*bytes);
  if (!entry) {
    return {};
  }
  const QImage picture = DecodePicture(*bytes, "cur", entry->index);
  const bool fits = picture.width() <= kMaxSide && picture.height() <= kMaxSide;
  return fits && picture.rect().contains(entry->hot_spot) ? MakeCursor(picture, entry->hot_spot)
                                                          : CursorHandle();
}

CursorHandle HandCursor() {
  static std::weak_ptr<CursorPicture> shared;
  CursorHandle hand = shared.lock();
  if (hand == nullptr) {
    hand = MakeCursor(DrawHand(), kHandHotSpot);
    shared = hand;
  }
  return hand;
}

}  // namespace toolkit
