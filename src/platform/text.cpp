#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace platform {
namespace {

constexpr char32_t kMalformed = 0xFFFFFFFF;
constexpr unsigned kFirstSpecial = 0x80;

/// Code page 1252 from 0x80 to 0x9F; every other byte is the character of its own number.
constexpr std::array<char32_t, 32> kSpecials = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// Letters that fold: every `stride`-th code point of the range moves by `shift`. Covers Latin with
/// its supplement, extension A and the additional block (Vietnamese), Greek, Cyrillic, Armenian,
/// full-width Latin and the single signs that simple case folding sends into these. Accents are not
/// composed or taken apart: a folder holds both spellings as two names.
struct FoldRange {
  char32_t first;
  char32_t last;
  char32_t stride;
  std::int32_t shift;
};
constexpr auto kFolds = std::to_array<FoldRange>({
    {0x0041, 0x005A, 1, 32},    {0x00B5, 0x00B5, 1, 775},  {0x00C0, 0x00D6, 1, 32},
    {0x00D8, 0x00DE, 1, 32},    {0x0100, 0x012E, 2, 1},    {0x0132, 0x0136, 2, 1},
    {0x0139, 0x0147, 2, 1},     {0x014A, 0x0176, 2, 1},    {0x0178, 0x0178, 1, -121},
    {0x0179, 0x017D, 2, 1},     {0x017F, 0x017F, 1, -268}, {0x0386, 0x0386, 1, 38},
    {0x0388, 0x038A, 1, 37},    {0x038C, 0x038C, 1, 64},   {0x038E, 0x038F, 1, 63},
    {0x0391, 0x03A1, 1, 32},    {0x03A3, 0x03AB, 1, 32},   {0x03C2, 0x03C2, 1, 1},
    {0x0400, 0x040F, 1, 80},    {0x0410, 0x042F, 1, 32},   {0x0460, 0x0480, 2, 1},
    {0x048A, 0x04BE, 2, 1},     {0x04C0, 0x04C0, 1, 15},   {0x04C1, 0x04CD, 2, 1},
    {0x04D0, 0x052E, 2, 1},     {0x0531, 0x0556, 1, 48},   {0x1E00, 0x1E94, 2, 1},
    {0x1E9E, 0x1E9E, 1, -7615}, {0x1EA0, 0x1EFE, 2, 1},    {0x212A, 0x212A, 1, -8383},
    {0x212B, 0x212B, 1, -8262}, {0xFF21, 0xFF3A, 1, 32},
});

unsigned Byte(char c) { return static_cast<unsigned char>(c); }

struct Character {
  char32_t code;
  std::size_t length;  ///< bytes taken, at least 1
};

/// How a lead byte goes on: bytes in all, and the range of the second one, which keeps out overlong
/// forms, surrogates and what lies above U+10FFFF.
struct Lead {
  unsigned first;
  unsigned last;
  std::size_t length;
  unsigned second_low;
  unsigned second_high;
};
constexpr auto kLeads = std::to_array<Lead>({
    {0x00, 0x7F, 1, 0, 0},
    {0xC2, 0xDF, 2, 0x80, 0xBF},
    {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF},
    {0xED, 0xED, 3, 0x80, 0x9F},
    {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF},
    {0xF1, 0xF3, 4, 0x80, 0xBF},
    {0xF4, 0xF4, 4, 0x80, 0x8F},
});

/// The first character of a text that is not empty; a malformed one is as long as the part of it
/// that could have begun a good one.
Character DecodeFirst(std::string_view text) {
  const unsigned byte = Byte(text[0]);
  const auto* lead = std::find_if(kLeads.begin(), kLeads.end(), [byte](const Lead& candidate) {
    return byte >= candidate.first && byte <= candidate.last;
  });
  if (lead == kLeads.end()) {
    return {kMalformed, 1};
  }
  char32_t code = lead->length == 1 ? byte : byte & (0x7FU >> lead->length);
  for (std::size_t i = 1; i < lead->length; ++i) {
    const unsigned low = i == 1 ? lead->second_low : 0x80U;
    const unsigned high = i == 1 ? lead->second_high : 0xBFU;
    if (i >= text.size() || Byte(text[i]) < low || Byte(text[i]) > high) {
      return {kMalformed, i};
    }
    code = code << 6U | (Byte(text[i]) & 0x3FU);
  }
  return {code, lead->length};
}

void AppendTail(std::string& text, char32_t code, unsigned bits) {
  text += static_cast<char>(0x80U | ((code >> bits) & 0x3FU));
}

void Append(std::string& text, char32_t code) {
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += static_cast<char>(0xC0U | code >> 6U);
    AppendTail(text, code, 0);
  } else if (code < 0x10000) {
    text += static_cast<char>(0xE0U | code >> 12U);
    AppendTail(text, code, 6);
    AppendTail(text, code, 0);
  } else {
    text += static_cast<char>(0xF0U | code >> 18U);
    AppendTail(text, code, 12);
    AppendTail(text, code, 6);
    AppendTail(text, code, 0);
  }
}

char32_t FromAnsiByte(char c) {
  const unsigned index = Byte(c) - kFirstSpecial;
  return Byte(c) >= kFirstSpecial && index < kSpecials.size() ? kSpecials[index] : Byte(c);
}

char ToAnsiByte(char32_t code) {
  if (code < kFirstSpecial || (code >= kFirstSpecial + kSpecials.size() && code <= 0xFF)) {
    return static_cast<char>(code);
  }
  const auto* special = std::find(kSpecials.begin(), kSpecials.end(), code);
  return special == kSpecials.end()
             ? '?'
             : static_cast<char>(kFirstSpecial +
                                 static_cast<unsigned>(special - kSpecials.begin()));
}

char32_t Fold(char32_t code) {
  const auto* range = std::find_if(kFolds.begin(), kFolds.end(), [code](const FoldRange& fold) {
    return code >= fold.first && code <= fold.last && (code - fold.first) % fold.stride == 0;
  });
  return range == kFolds.end()
             ? code
             : static_cast<char32_t>(static_cast<std::int32_t>(code) + range->shift);
}

char LowerCaseByte(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

std::string FromAnsi(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char c : bytes) {
    Append(text, FromAnsiByte(c));
  }
  return text;
}

std::string ToAnsi(std::string_view utf8) {
  std::string bytes;
  bytes.reserve(utf8.size());
  while (!utf8.empty()) {
    const Character character = DecodeFirst(utf8);
    bytes += ToAnsiByte(character.code);
    utf8.remove_prefix(character.length);
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
  std::string key;
  key.reserve(name.size());
  while (!name.empty()) {
    if (Byte(name[0]) < 0x80) {
      key += LowerCaseByte(name[0]);
      name.remove_prefix(1);
      continue;
    }
    const Character character = DecodeFirst(name);
    if (character.code == kMalformed) {
      key += name.substr(0, character.length);
    } else {
      Append(key, Fold(character.code));
    }
    name.remove_prefix(character.length);
  }
  return key;
}

}  // namespace platform
