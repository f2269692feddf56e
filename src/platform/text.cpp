#include "platform/text.h"

#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>
#include <stdexcept>

namespace platform {
namespace {

constexpr unsigned char kFirstUpper = 0x80;  ///< below it the code page and UTF-8 are ASCII

bool IsAscii(std::string_view text) {
  return std::none_of(text.begin(), text.end(),
                      [](char c) { return static_cast<unsigned char>(c) >= kFirstUpper; });
}

icu::UnicodeString Decode(std::string_view bytes) {
  icu::UnicodeString text(bytes.data(), static_cast<std::int32_t>(bytes.size()), "windows-1252");
  if (text.isBogus()) {
    throw std::runtime_error("ICU can't convert from code page 1252.");
  }
  return text;
}

/// The characters of the bytes from 0x80 to 0xFF. To convert by their order rather than by ICU's
/// encoder leaves nothing out (that one drops invisible characters) and replaces nothing by a
/// look-alike.
icu::UnicodeString UpperHalf() {
  std::array<char, 0x80> bytes{};
  std::iota(bytes.begin(), bytes.end(), static_cast<char>(kFirstUpper));
  return Decode({bytes.data(), bytes.size()});
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"  // inside the library's macro
/// Takes the first character off a text that is not empty; negative for a malformed sequence, which
/// is as long as the part of it that could begin a sound one.
UChar32 TakeCharacter(std::string_view& text) {
  // The macro works on an int32_t; no sequence is longer than this.
  const auto length = static_cast<std::int32_t>(std::min(text.size(), std::size_t{U8_MAX_LENGTH}));
  std::int32_t taken = 0;
  UChar32 character = 0;
  U8_NEXT(text, taken, length, character);
  text.remove_prefix(static_cast<std::size_t>(taken));
  return character;
}
#pragma GCC diagnostic pop

void Append(std::string& text, UChar32 character) {
  std::array<char, U8_MAX_LENGTH> bytes{};
  std::size_t length = 0;
  U8_APPEND_UNSAFE(bytes, length, character);
  text.append(bytes.data(), length);
}

/// The byte for a character, by its place among the upper half; '?' if the page lacks it.
char ToAnsiByte(UChar32 character, const icu::UnicodeString& upper) {
  if (character >= 0 && character < kFirstUpper) {
    return static_cast<char>(character);
  }
  const std::int32_t index = upper.indexOf(character);
  return index < 0 ? '?' : static_cast<char>(kFirstUpper + index);
}

char LowerCaseByte(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

std::string FromAnsi(std::string_view bytes) {
  std::string text;
  if (IsAscii(bytes)) {
    text = bytes;
  } else {
    Decode(bytes).toUTF8String(text);
  }
  return text;
}

std::string ToAnsi(std::string_view utf8) {
  if (IsAscii(utf8)) {
    return std::string(utf8);
  }
  const icu::UnicodeString upper = UpperHalf();
  std::string bytes;
  while (!utf8.empty()) {
    bytes += ToAnsiByte(TakeCharacter(utf8), upper);
  }
  return bytes;
}

std::string Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) {
    return {};
  }
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), LowerCaseByte);
  return lower;
}

bool SameName(std::string_view a, std::string_view b) { return FoldName(a) == FoldName(b); }

std::string FoldName(std::string_view name) {
  if (IsAscii(name)) {
    return LowerCase(name);
  }
  std::string key;
  key.reserve(name.size());
  while (!name.empty()) {
    const std::string_view rest = name;
    const UChar32 character = TakeCharacter(name);
    if (character < 0) {
      key += rest.substr(0, rest.size() - name.size());
    } else {
      Append(key, u_foldCase(character, U_FOLD_CASE_DEFAULT));
    }
  }
  return key;
}

}  // namespace platform
