#include "platform/wildcards.h"

namespace platform {
namespace {

bool IsTail(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80; }

/// Drops the first character of a text that is not empty.
void DropCharacter(std::string_view& text) {
  do {
    text.remove_prefix(1);
  } while (!text.empty() && IsTail(text.front()));
}

/// True if a folded name matches a folded pattern. On a mismatch the latest star takes one
/// character more, so the cost is bounded by the product of the two lengths.
bool Matches(std::string_view pattern, std::string_view name) {
  std::string_view star_pattern;
  std::string_view star_name;
  bool star = false;
  while (!name.empty()) {
    if (pattern.starts_with('*')) {
      star = true;
      star_pattern = pattern.substr(1);
      star_name = name;
      pattern = star_pattern;
    } else if (pattern.starts_with('?')) {
      pattern.remove_prefix(1);
      DropCharacter(name);
    } else if (!pattern.empty() && pattern.front() == name.front()) {
      pattern.remove_prefix(1);
      name.remove_prefix(1);
    } else if (star) {
      DropCharacter(star_name);
      pattern = star_pattern;
      name = star_name;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*') == std::string_view::npos;
}

}  // namespace

bool MatchesPattern(std::string_view pattern, std::string_view name) {
  return Matches(pattern, name) ||
         (pattern.ends_with(".*") && Matches(pattern.substr(0, pattern.size() - 2), name));
}

}  // namespace platform
