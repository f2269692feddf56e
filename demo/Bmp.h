#pragma once

#include <filesystem>

#include "Texture.h"

namespace demo {

/// A plain BMP file of 24 bits without the alpha, and one of 8 bits with a table of greys that
/// holds the alpha alone. Each throws std::runtime_error with the path if the file cannot be
/// written.
void WriteBmp24(const std::filesystem::path& file, const Texture& texture);
void WriteBmp8(const std::filesystem::path& file, const Texture& texture);
/// The simulator's extended bitmap of 32 bits, with the alpha.
void WriteBmp32(const std::filesystem::path& file, const Texture& texture);

}  // namespace demo
