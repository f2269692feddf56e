#pragma once

#include <filesystem>

namespace demo {

/// Backgrounds, button strips, icons, region files and the cursor, into the Media folder.
void WriteSkin(const std::filesystem::path& media);

}  // namespace demo
