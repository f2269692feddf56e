#pragma once

#include <string_view>

namespace platform {

/// True if a name matches a pattern with the wildcards * (any characters) and ? (one character),
/// both folded. A pattern's ".*" also matches no extension at all.
bool MatchesPattern(std::string_view pattern, std::string_view name);

}  // namespace platform
