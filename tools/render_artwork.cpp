// nimbrel-artwork SOURCES MEDIA: renders the skin's SVG sources into the pictures, region files and
// the pointer of Media.
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iostream>
#include <iterator>
#include <map>
#include <random>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "artwork_pictures.h"
#include "toolkit/forms.h"
#include "widgets/clsTransForm.h"

namespace {

namespace fs = std::filesystem;

/// A strip's frames, top to bottom.
constexpr std::array kStates = {"calm", "lit", "pressed", "greyed"};

using Palette = std::map<std::string, std::string, std::less<>>;

std::string ReadText(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(in), {}};
  if (!in) {
    throw std::runtime_error("it cannot be read");
  }
  return text;
}

bool IsColor(const std::string& value) {
  return value.size() == 7 && value[0] == '#' &&
         value.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string::npos;
}

bool IsNumber(const std::string& value) {
  return !value.empty() && value.find_first_not_of("0123456789.-") == std::string::npos;
}

/// Lines "name #RRGGBB" or "name NUMBER"; a semicolon begins a comment.
Palette ReadPalette(const fs::path& file) {
  Palette palette;
  std::istringstream lines(ReadText(file));
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line.substr(0, line.find(';')));
    std::string name;
    std::string value;
    if (words >> name) {
      words >> value;
      if (!(IsColor(value) || IsNumber(value)) || !palette.emplace(name, value).second) {
        throw std::runtime_error("palette.txt: no good line: " + line);
      }
    }
  }
  return palette;
}

void ReplaceAll(std::string& text, std::string_view what, std::string_view by) {
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size())) {
    text.replace(at, what.size(), by);
  }
}

/// "{name}" becomes the palette's value.
std::string Colored(std::string text, const Palette& palette) {
  for (auto at = text.find('{'); at != std::string::npos; at = text.find('{', at)) {
    const auto end = text.find('}', at);
    const std::string name = text.substr(at + 1, end - at - 1);
    const auto color = palette.find(name);
    if (end == std::string::npos || color == palette.end()) {
      throw std::runtime_error("the palette has no \"" + name + '"');
    }
    text.replace(at, end - at + 1, color->second);
  }
  return text;
}

/// "<!-- grain X Y WIDTH HEIGHT LINES -->" becomes that many brush marks inside the rectangle,
/// filled with the file's own "grain-lit" and "grain-shade". Every run gives the same marks.
std::string Brushed(std::string text) {
  constexpr std::string_view kMark = "<!-- grain ";
  for (auto at = text.find(kMark); at != std::string::npos; at = text.find(kMark, at)) {
    std::istringstream words(text.substr(at + kMark.size()));
    unsigned x = 0;
    unsigned y = 0;
    unsigned width = 0;
    unsigned height = 0;
    unsigned lines = 0;
    if (!(words >> x >> y >> width >> height >> lines) || width < 8 || height == 0) {
      throw std::runtime_error("a grain without its five numbers");
    }
    std::mt19937 random(x * 31 + y);
    std::ostringstream marks;
    for (unsigned i = 0; i < lines; ++i) {
      const unsigned length = width / 8 + static_cast<unsigned>(random() % (width / 2));
      marks << "<rect x=\"" << x + random() % (width - length) << "\" y=\"" << y + random() % height
            << "\" width=\"" << length << "\" height=\"1\" fill=\"url(#grain-"
            << (i % 2 == 0 ? "lit" : "shade") << ")\"/>\n";
    }
    text.replace(at, text.find("-->", at) + 3 - at, marks.str());
  }
  return text;
}

/// Every Qt warning since the last load. Qt accepts a file that names a missing gradient or shape
/// and only warns.
std::string& Warnings() {
  static std::string warnings;
  return warnings;
}

void KeepWarning(QtMsgType, const QMessageLogContext&, const QString& text) {
  Warnings() += text.toStdString() + ' ';
}

void Load(QSvgRenderer& renderer, const std::string& svg) {
  Warnings().clear();
  const bool loaded = renderer.load(QByteArray::fromStdString(svg));
  if (!loaded || !Warnings().empty()) {
    throw std::runtime_error("it does not parse: " + Warnings());
  }
}

QImage Render(QSvgRenderer& renderer, const QString& element = {}) {
  QImage image(renderer.defaultSize(), QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  if (element.isEmpty()) {
    renderer.render(&painter, QRectF(image.rect()));
  } else {
    renderer.render(&painter, element, renderer.boundsOnElement(element));
  }
  return image;
}

constexpr int kHalfCovered = 128;

/// A window's picture: black outside the outline and not inside.
QImage CutOut(QSvgRenderer& renderer) {
  if (!renderer.elementExists(QStringLiteral("outline"))) {
    throw std::runtime_error("a window has to have an element \"outline\"");
  }
  QImage image = Render(renderer).convertToFormat(QImage::Format_ARGB32);
  const QImage outline = Render(renderer, QStringLiteral("outline"));
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const bool inside = qAlpha(outline.pixel(x, y)) >= kHalfCovered;
      if (inside && (image.pixel(x, y) & 0xFFFFFFU) == 0) {
        throw std::runtime_error("black inside the outline, which is the key colour");
      }
      image.setPixel(x, y, inside ? image.pixel(x, y) | 0xFF000000U : 0xFF000000U);
    }
  }
  return image;
}

QImage OnWhite(QImage image) {
  image.convertTo(QImage::Format_ARGB32);
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QRgb pixel = image.pixel(x, y);
      image.setPixel(x, y, qAlpha(pixel) < kHalfCovered ? 0xFFFFFFFFU : pixel | 0xFF000000U);
    }
  }
  return image;
}

void CheckOpaque(const QImage& image) {
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (qAlpha(image.pixel(x, y)) != 255) {
        throw std::runtime_error("not opaque at " + std::to_string(x) + ", " + std::to_string(y));
      }
    }
  }
}

QImage Flatten(QSvgRenderer& renderer, Ground ground) {
  if (ground == Ground::kBlack) {
    return CutOut(renderer);
  }
  QImage image = Render(renderer);
  if (ground == Ground::kWhite) {
    return OnWhite(image);
  }
  if (ground == Ground::kNone) {
    CheckOpaque(image);
  }
  return image;
}

void Append(std::string& bytes, std::uint32_t value, int size) {
  for (int i = 0; i < size; ++i) {
    bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
  }
}

/// A pointer file of one 32-bit picture with its hot spot in the middle. The one-bit mask after the
/// pixels serves readers without alpha: 1 where the screen shows through.
void WritePointer(const fs::path& file, QImage picture) {
  picture.convertTo(QImage::Format_ARGB32);
  constexpr std::uint32_t kSide = 32;
  constexpr std::uint32_t kBytes = 40 + kSide * kSide * 4 + kSide * 4;
  std::string bytes;
  for (const auto& [value, size] : std::initializer_list<std::pair<std::uint32_t, int>>{
           {0, 2},         {2, 2},      {1, 2},  {kSide, 1}, {kSide, 1}, {0, 2},  {kSide / 2, 2},
           {kSide / 2, 2}, {kBytes, 4}, {22, 4}, {40, 4},    {kSide, 4}, {64, 4}, {1, 2},
           {32, 2},        {0, 4},      {0, 4},  {0, 4},     {0, 4},     {0, 4},  {0, 4}}) {
    Append(bytes, value, size);
  }
  for (int y = picture.height() - 1; y >= 0; --y) {
    for (int x = 0; x < picture.width(); ++x) {
      Append(bytes, picture.pixel(x, y), 4);
    }
  }
  for (int y = picture.height() - 1; y >= 0; --y) {
    for (int x = 0; x < picture.width(); x += 8) {
      unsigned mask = 0;
      for (int bit = 0; bit < 8; ++bit) {
        mask = mask << 1U | (qAlpha(picture.pixel(x + bit, y)) < kHalfCovered ? 1U : 0U);
      }
      Append(bytes, mask, 1);
    }
  }
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  if (!out.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush()) {
    throw std::runtime_error("cannot write " + file.string());
  }
}

/// Writes the outline that the program's own colour scan finds in the bitmap.
void WriteRegion(const fs::path& bitmap, const fs::path& region, const Picture& picture) {
  toolkit::Form form("artwork");
  form.SetWidth(toolkit::Twips(picture.width));
  form.SetHeight(toolkit::Twips(picture.height));
  if (!form.SetPicture(bitmap.string())) {
    throw std::runtime_error("cannot read " + bitmap.string());
  }
  nimbrel::clsTransForm().ShapeMe(form, platform::RGB(0, 0, 0), false, region.string());
}

class Artwork {
 public:
  Artwork(fs::path sources, fs::path media)
      : sources_(std::move(sources)),
        media_(std::move(media)),
        palette_(ReadPalette(sources_ / "palette.txt")) {
    symbols_ = "<defs>" + Inside("symbols.svg") + "</defs>";
    brand_ = "<defs>" + Inside("brand.svg") + "<g id=\"emblem\">" + Inside("nimbrel.svg") +
             "</g></defs>";
  }

  /// `name` is the picture's path below Media, without extension.
  void Make(const std::string& name) const {
    const std::string text = ReadText(sources_ / (name + ".svg"));
    fs::create_directories((media_ / name).parent_path());
    const auto* const picture = FindPicture(name);
    if (picture != kPictures.end()) {
      MakePicture(name, text, *picture);
    } else {
      MakeStrip(name, text);
    }
  }

 private:
  static decltype(kPictures)::const_iterator FindPicture(const std::string& name) {
    constexpr std::string_view kDigits = "0123456789";
    const std::string bare = name.substr(0, name.find_last_not_of(kDigits) + 1);
    return std::find_if(kPictures.begin(), kPictures.end(),
                        [&](const Picture& row) { return row.name == bare; });
  }

  /// The content of a shared source's root element.
  std::string Inside(const char* file) const {
    const std::string text = ReadText(sources_ / file);
    const auto begin = text.find('>', text.find("<svg")) + 1;
    return text.substr(begin, text.rfind("</svg>") - begin);
  }

  /// The text with the shared shapes inserted, in the state's colours.
  std::string Complete(std::string text, std::string_view state) const {
    ReplaceAll(text, "<!-- symbols -->", symbols_);
    ReplaceAll(text, "<!-- brand -->", brand_);
    ReplaceAll(text, "{state.", "{" + std::string(state) + ".");
    return Brushed(std::move(text));
  }

  QImage RenderFrame(const std::string& text, int width, int height, Ground ground) const {
    QSvgRenderer renderer;
    Load(renderer, Colored(text, palette_));
    if (renderer.defaultSize() != QSize(width, height)) {
      throw std::runtime_error("it has to be " + std::to_string(width) + " x " +
                               std::to_string(height));
    }
    return Flatten(renderer, ground);
  }

  void MakePicture(const std::string& name, const std::string& text, const Picture& row) const {
    const QImage image =
        RenderFrame(Complete(text, kStates.front()), row.width, row.height, row.ground);
    if (row.ground == Ground::kPointer) {
      WritePointer(media_ / (name + ".cur"), image);
      return;
    }
    const fs::path file = media_ / (name + ".bmp");
    Save(file, image);
    if (row.region != nullptr) {
      WriteRegion(file, media_ / row.region, row);
    }
  }

  void MakeStrip(const std::string& name, const std::string& text) const {
    for (const Strips& row : kStrips) {
      if (std::find(row.names.begin(), row.names.end(), name) != row.names.end()) {
        QImage strip(row.width, row.height * static_cast<int>(kStates.size()),
                     QImage::Format_RGB32);
        QPainter painter(&strip);
        for (std::size_t i = 0; i < kStates.size(); ++i) {
          painter.drawImage(
              0, static_cast<int>(i) * row.height,
              RenderFrame(Complete(text, kStates[i]), row.width, row.height, Ground::kNone));
        }
        painter.end();
        Save(media_ / (name + ".bmp"), strip);
        return;
      }
    }
    throw std::runtime_error("the skin has no picture of that name");
  }

  /// 24 bits, rows bottom to top.
  static void Save(const fs::path& file, const QImage& image) {
    if (!image.convertToFormat(QImage::Format_RGB32)
             .save(QString::fromStdString(file.string()), "BMP")) {
      throw std::runtime_error("cannot write " + file.string());
    }
  }

  fs::path sources_;
  fs::path media_;
  Palette palette_;
  std::string symbols_;  ///< glyphs and plates of the buttons and icons
  std::string brand_;    ///< word, emblem and surfaces of the backgrounds
};

/// Makes the picture of every source and removes its name from `missing`. `at` is the current
/// source, for the message of a failure.
void MakeAll(const fs::path& sources, const fs::path& media, std::set<std::string>& missing,
             fs::path& at) {
  const Artwork artwork(sources, media);
  for (const auto& entry : fs::recursive_directory_iterator(sources)) {
    at = fs::relative(entry.path(), sources);
    const bool is_shared = at == "symbols.svg" || at == "brand.svg" || at == "nimbrel.svg";
    if (at.extension() == ".svg" && !is_shared) {
      const std::string name = fs::path(at).replace_extension().string();
      artwork.Make(name);
      missing.erase(name);
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: nimbrel-artwork SOURCES MEDIA\n";
    return 2;
  }
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  const toolkit::Application application(argc, argv);
  qInstallMessageHandler(KeepWarning);
  fs::path at = "palette.txt";
  std::set<std::string> missing = Names();
  try {
    MakeAll(fs::absolute(argv[1]), fs::absolute(argv[2]), missing, at);
  } catch (const std::exception& error) {
    std::cerr << "nimbrel-artwork: " << at.string() << ": " << error.what() << '\n';
    return 1;
  }
  for (const std::string& name : missing) {
    std::cerr << "nimbrel-artwork: " << name << ".svg is missing\n";
  }
  return missing.empty() ? 0 : 1;
}
