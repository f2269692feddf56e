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

/// True if two names are the same to a file system that ignores case: Unicode's simple case
/// folding, without the rules of the Turkic languages. Malformed UTF-8 is compared byte by byte.
/// Accents are neither composed nor taken apart: a folder holds both spellings as two names.
bool SameName(std::string_view a, std::string_view b);

/// The key under which SameName compares: equal keys exactly for the same names.
std::string FoldName(std::string_view name);

}  // namespace platform
