#include <cstdlib>
#include <limits>

#include "toolkit/desktop.h"
#include "toolkit/window.h"

namespace toolkit {
namespace {

constexpr int kUsualDpi = 96;
int device_dpi = kUsualDpi;

}  // namespace

int GetDeviceCaps(const platform::HDC& /*dc*/, int index) {
  return index == LOGPIXELSX || index == LOGPIXELSY ? device_dpi : 0;
}

void SetDeviceDpi(int dots_per_inch) { device_dpi = dots_per_inch > 0 ? dots_per_inch : kUsualDpi; }

HFONT CreateFontA(int height, int /*width*/, int /*escapement*/, int /*orientation*/, int weight,
                  bool italic, bool underline, bool strikeout, std::uint32_t charset,
                  std::string_view face) {
  return std::make_shared<LogFont>(
      LogFont{height, weight, italic, underline, strikeout, charset, std::string(face)});
}

int MulDiv(int number, int numerator, int denominator) {
  if (denominator == 0) {
    return -1;
  }
  const std::int64_t product = std::int64_t{number} * numerator;
  const std::int64_t divisor = std::abs(std::int64_t{denominator});
  const std::int64_t magnitude = (std::abs(product) + divisor / 2) / divisor;
  const bool negative = (product < 0) != (denominator < 0);
  const std::int64_t result = negative ? -magnitude : magnitude;
  const bool fits =
      result >= std::numeric_limits<int>::min() && result <= std::numeric_limits<int>::max();
  return fits ? static_cast<int>(result) : -1;
}

std::string GetLocaleInfoA(std::uint32_t, std::uint32_t type) {
  return type == LOCALE_IDEFAULTANSICODEPAGE ? "1252" : "";
}

std::uint32_t GetSystemDefaultLCID() { return 0x0409; }

std::uint32_t TranslateCharsetInfo(std::uint32_t code_page, std::uint32_t flags) {
  constexpr std::uint32_t kAnsiCharset = 0;
  constexpr std::uint32_t kDefaultCharset = 1;
  return code_page == 1252 && flags == TCI_SRCCODEPAGE ? kAnsiCharset : kDefaultCharset;
}

}  // namespace toolkit
