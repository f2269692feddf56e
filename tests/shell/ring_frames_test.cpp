#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QMouseEvent>
#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "ShellWorld.h"
#include "settings/Catalogue.h"
#include "settings/Selection.h"
#include "settings/mod_Main.h"
#include "shell/RingPage.h"
#include "shell/frm_Sky.h"
#include "shell/mod_GDIP_Rings.h"
#include "support/BmpFile.h"
#include "support/Surface.h"

namespace nimbrel {
namespace {

constexpr int kWidth = 596;
constexpr int kHeight = 450;

struct RingFrames : testing::Test {
  RingFrames() {
    StartProgram();
    CloudFrontGroup = SkyFrontGroup = WaterFrontGroup = 0;
  }
  ShellWorld world;
};

toolkit::GpImage Chequered() {
  const TempFolder folder;
  const auto file = folder / "chequered.bmp";
  WriteText(file, ColorBmp(40, 30, [](int x, int y) {
                    return static_cast<std::uint32_t>(x * 6 + y * 0x800 + (x + y) % 2 * 0xFF0000);
                  }).Bytes());
  toolkit::GpImage image;
  toolkit::GdipLoadImageFromFile(file.string(), image);
  return image;
}

/// The largest difference of a colour between two surfaces, and how many pixels differ.
struct Difference {
  int largest = 0;
  int pixels = 0;
};
Difference Compare(const Surface& a, const Surface& b) {
  Difference difference;
  for (int at = 0; at < kWidth * kHeight; ++at) {
    const std::uint32_t one = a.At(at % kWidth, at / kWidth);
    const std::uint32_t other = b.At(at % kWidth, at / kWidth);
    difference.pixels += one != other ? 1 : 0;
    for (const unsigned shift : {0U, 8U, 16U}) {
      const int step =
          static_cast<int>((one >> shift) & 0xFFU) - static_cast<int>((other >> shift) & 0xFFU);
      difference.largest = std::max(difference.largest, std::abs(step));
    }
  }
  return difference;
}

/// Only where two translucent colours meet a pixel may round otherwise, by a step.
TEST_F(RingFrames, AReadyFrameShowsWhatIsDrawnPlainly) {
  const toolkit::GpImage opaque = Chequered();
  const toolkit::GpImage translucent = Chequered();
  toolkit::GdipBitmapSetPixel(translucent, 3, 3, 0x80FF0000);
  for (const RingPage* page : {&CloudPage(), &WaterPage()}) {
    ASSERT_EQ(page->look.plan->orbit.size(), page->frames.size());
    for (std::size_t slot = 0; slot < page->frames.size(); ++slot) {
      SCOPED_TRACE(std::string(page->look.form_name) + " " + std::to_string(slot));
      const ReadyFrame& ready = page->frames[slot];
      const float radius = kCornerRadius[slot];
      for (const auto& [image, corners] :
           {std::pair{opaque, 4}, {translucent, 0}, {toolkit::GpImage(), 0}}) {
        const Surface plain(kWidth, kHeight, 0x70A0D0);
        const Surface fast(kWidth, kHeight, 0x70A0D0);
        DrawFramedPicture(plain.hdc, PlaceOf(page->look.plan->orbit[slot]),
                          {radius, radius * 2, 3, 2}, image);
        DrawFramedPicture(fast.hdc, ready, image);
        const Difference difference = Compare(plain, fast);
        EXPECT_LE(difference.largest, corners == 0 ? 0 : 1);
        EXPECT_LE(difference.pixels, corners * 12);
      }
    }
  }
}

void PostClick(QWidget& button) {
  const QPointF place(6, 6);
  for (const auto& [type, held] : {std::pair{QEvent::MouseButtonPress, Qt::LeftButton},
                                   {QEvent::MouseButtonRelease, Qt::NoButton}}) {
    QCoreApplication::postEvent(
        &button, new QMouseEvent(type, place, button.mapToGlobal(place), Qt::LeftButton,
                                 Qt::MouseButtons(held), Qt::NoModifier));
  }
}

TEST_F(RingFrames, ClicksDuringATurnAreHandledAfterItAndNoneIsLost) {
  for (const auto& [open, form, family] : {std::tuple{"btn_3d", "frm_3d", kCloud},
                                           {"btn_Sky", "frm_Sky", kSky},
                                           {"btn_Water", "frm_Water", kWater}}) {
    SCOPED_TRACE(form);
    auto& selected = CurrentSelection[static_cast<std::size_t>(family)];
    selected = {};
    Press("frm_Main", open);
    auto* right = Window(form, "btn_Right")->findChild<QWidget*>("pic_BG");
    PostClick(*right);
    PostClick(*right);
    Press(form, family == kSky ? "btn_CounterClockwise" : "btn_Clockwise");
    EXPECT_EQ(0, selected[0] + selected[1]) << "not in the turn";
    QCoreApplication::processEvents();
    EXPECT_EQ(0, selected[0]);
    EXPECT_EQ(2, selected[1]) << "on the group that came to the front";
  }
}

std::vector<std::uint8_t> Pixels(const toolkit::Form& form) { return form.hDC()->bitmap->bits; }

TEST_F(RingFrames, TextsOfAnyKindStayInTheirLabels) {
  Press("frm_Main", "btn_3d");
  const std::vector<std::uint8_t> ring = Pixels(CloudPage().form);
  QWidget* base = Window("frm_3d", "lbl_Base");
  QWidget* description = Window("frm_3d", "lbl_Description");
  const QRect places[] = {base->geometry(), description->geometry()};
  const struct {
    std::string text;
    std::string unlike;  ///< a text that must not look the same
  } rows[] = {
      {std::string(511, 'W'), std::string(2, 'W')},
      {"one\r\ntwo\r\n\r\nthree", "one two three"},
      {"Haze & Fog", "Haze  Fog"},
      {"&Haze", "Haze"},
      {"<b>Haze</b>", "Haze"},
  };
  for (const auto& row : rows) {
    const auto seen = [&](const std::string& text) {
      TextureOption& option = *Catalogue.Tables[kCloud].Cell(0, 0);
      option.Title = "  " + text;
      option.Description = text + "  ";
      Press("frm_Main", "btn_3d");
      EXPECT_EQ("Solid Cumulus: " + text, CloudPage().lbl_Base.Caption());
      EXPECT_EQ(text, CloudPage().lbl_Description.Caption());
      return description->grab().toImage();
    };
    EXPECT_NE(seen(row.unlike), seen(row.text)) << row.text;
    EXPECT_EQ(places[0], base->geometry());
    EXPECT_EQ(places[1], description->geometry());
    EXPECT_EQ(ring, Pixels(CloudPage().form));
  }
}

TEST_F(RingFrames, AGroupOfOneOptionStaysOnIt) {
  const struct {
    const char* open;
    const char* form;
    std::int16_t family;
    SkinnedButton& left;
    SkinnedButton& right;
  } pages[] = {
      {"btn_3d", "frm_3d", kCloud, CloudPage().btn_Left, CloudPage().btn_Right},
      {"btn_Sky", "frm_Sky", kSky, SkyPage().btn_Left, SkyPage().btn_Right},
      {"btn_Water", "frm_Water", kWater, WaterPage().btn_Left, WaterPage().btn_Right},
  };
  for (const auto& page : pages) {
    SCOPED_TRACE(page.form);
    const auto family = static_cast<std::size_t>(page.family);
    Catalogue.HighestIndex[family][0] = 0;
    Press("frm_Main", page.open);
    for (const char* button : {"btn_Right", "btn_Left", "btn_Right"}) {
      Press(page.form, button);
      EXPECT_EQ(0, CurrentSelection[family][0]);
      EXPECT_EQ("disabled", page.left.state());
      EXPECT_NE("disabled", page.right.state());
    }
  }
}

TEST_F(RingFrames, AMissingPictureLeavesShadowAndBorderOnTheBackground) {
  toolkit::Form& form = CloudPage().form;
  form.Cls();
  const platform::ColorRef background = platform::GetPixel(form.hDC(), 298, 220);
  const auto shaded = [background](unsigned shift) {
    return ((background >> shift) & 0xFFU) * 3 / 4;
  };
  // An index outside the catalogue and a picture that failed to load look the same.
  for (const std::int16_t option : {std::int16_t{-1}, std::int16_t{99}, std::int16_t{1}}) {
    CurrentSelection[kCloud] = {option, 0, 0, 0};
    Catalogue.Tables[kCloud].Cell(0, 1)->Preview.reset();
    Press("frm_Main", "btn_3d");
    const platform::ColorRef inside = platform::GetPixel(form.hDC(), 298, 220);
    for (const unsigned shift : {0U, 8U, 16U}) {
      EXPECT_NEAR(shaded(shift), (inside >> shift) & 0xFFU, 1) << option;
    }
    EXPECT_EQ(platform::RGB(0x40, 0x40, 0x40), platform::GetPixel(form.hDC(), 298, 107));
  }
}

}  // namespace
}  // namespace nimbrel
