#include "toolkit/pictures.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>
#include <vector>

#include "support/BmpFile.h"
#include "support/TempFolder.h"
#include "toolkit/forms.h"
#include "toolkit/gdiplus.h"

namespace toolkit {
namespace {

using platform::FileStatus;

class Pictures : public testing::Test {
 protected:
  QImage Load(const std::string& bytes) {
    WriteText(folder_ / "picture.bmp", bytes);
    return Load();
  }
  QImage Load() { return LoadPicture(folder_.string() + "\\Picture.BMP", status_); }
  /// A file in the image library's own format, under the same name.
  QImage LoadSaved(const QImage& picture) {
    EXPECT_TRUE(picture.save(QString::fromStdString((folder_ / "picture.bmp").string()), "PNG"));
    return Load();
  }

  TempFolder folder_;
  FileStatus status_ = FileStatus::kOk;
};

std::vector<QRgb> PixelsOf(const QImage& image) {
  std::vector<QRgb> pixels;
  pixels.reserve(static_cast<std::size_t>(image.width()) *
                 static_cast<std::size_t>(image.height()));
  for (int i = 0; i < image.width() * image.height(); ++i) {
    pixels.push_back(image.pixel(i % image.width(), i / image.width()));
  }
  return pixels;
}

TEST_F(Pictures, OtherKindsAreReadByTheirContentAndAlphaThatIsZeroThroughoutIsNone) {
  QImage picture(2, 1, QImage::Format_ARGB32);
  picture.setPixel(0, 0, 0x00112233);
  picture.setPixel(1, 0, 0x00445566);
  const QImage opaque = LoadSaved(picture);
  EXPECT_EQ((std::vector<QRgb>{0xFF112233, 0xFF445566}), PixelsOf(opaque));
  EXPECT_EQ(QImage::Format_RGB32, opaque.format());
  picture.setPixel(1, 0, 0xFF445566);
  const QImage seen = LoadSaved(picture);
  EXPECT_EQ((std::vector<QRgb>{0, 0xFF445566}), PixelsOf(seen));
  EXPECT_EQ(QImage::Format_ARGB32_Premultiplied, seen.format());
  EXPECT_EQ(QImage::Format_RGB32,
            LoadSaved(picture.convertToFormat(QImage::Format_RGB888)).format());
  Form form("frm_Translucent");
  form.PlacePixels(0, 0, 2, 1);
  form.SetBackColor(platform::RGB(0, 255, 0));
  LoadSaved(picture);
  EXPECT_TRUE(form.SetPicture((folder_ / "picture.bmp").string()));
  EXPECT_EQ(platform::RGB(0, 255, 0), platform::GetPixel(form.hDC(), 0, 0));
  EXPECT_EQ(platform::RGB(0x44, 0x55, 0x66), platform::GetPixel(form.hDC(), 1, 0));
}

TEST_F(Pictures, ThatAreNotWholeOrTooLargeAreRefused) {
  const std::string bytes = ColorBmp(9, 9, [](int, int) { return 0x808080U; }).Bytes();
  EXPECT_FALSE(Load(bytes).isNull());
  QImage wide(kMaxPictureSide, 1, QImage::Format_Mono);
  EXPECT_FALSE(LoadSaved(wide).isNull());
  EXPECT_TRUE(LoadSaved(QImage(kMaxPictureSide + 1, 1, QImage::Format_Mono)).isNull());
  EXPECT_TRUE(LoadSaved(QImage(1, kMaxPictureSide + 1, QImage::Format_Mono)).isNull());
  EXPECT_TRUE(LoadSaved(QImage(4096, 4097, QImage::Format_Mono)).isNull());
  BmpFile large{.width = 4097, .height = 4096, .bits = 1, .words = {0, 0}};
  large.pixels.resize(4096UL * 516);
  for (const std::string& broken :
       {std::string(), std::string("Dear reader,"), std::string("B"), std::string("BM"),
        bytes.substr(0, bytes.size() - 1), large.Bytes()}) {
    EXPECT_TRUE(Load(broken).isNull()) << broken.size();
    EXPECT_EQ(FileStatus::kOk, status_) << broken.size();
  }
  GpImage image;
  EXPECT_EQ(Status::GenericError, GdipLoadImageFromFile((folder_ / "picture.bmp").string(), image));
}

}  // namespace
}  // namespace toolkit
