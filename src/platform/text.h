#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Text is UTF-8 inside the program and Windows-1252 in its files.

/// Bytes of code page 1252 to UTF-8. The five bytes the page leaves undefined become the control
/// characters of the same number, so no byte is lost on the way back.
std::string FromAnsi(std::string_view bytes);

/// UTF-8 to code page 1252; what the page lacks, and every malformed sequence, becomes '?'.
std::string ToAnsi(std::string_view utf8);

/// The text without blanks (character 32 only) at both ends.
std::string Trim(std::string_view text);

/// The text with the letters A to Z in lower case; every other byte as it was.
std::string LowerCase(std::string_view text);

/// Whether two names are the same to a file system that folds case: simple case folding of
/// Latin, Greek, Cyrillic and Armenian letters, malformed UTF-8 compared byte by byte.
bool SameName(std::string_view a, std::string_view b);

/// The key under which SameName compares: equal keys exactly for the same names.
std::string FoldName(std::string_view name);

}  // namespace platform
