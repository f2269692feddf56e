#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string_view>

namespace demo {

/// Each of these creates the file's folders, replaces an older file and throws std::runtime_error
/// with the path if it fails.
void WriteBytes(const std::filesystem::path& file, std::span<const std::byte> bytes);
/// Lines that end in "\n" become lines that end in CRLF; UTF-8 becomes Windows-1252.
void WriteDosText(const std::filesystem::path& file, std::string_view utf8);

}  // namespace demo
