#pragma once

#include <QImage>
#include <cstddef>
#include <filesystem>
#include <span>
#include <string_view>

namespace demo {

/// Each of these makes the file's folders, replaces an older file and throws std::runtime_error
/// with the path when it cannot.
void WriteBytes(const std::filesystem::path& file, std::span<const std::byte> bytes);
/// Lines that end in "\n" become lines that end in CRLF; UTF-8 becomes Windows-1252.
void WriteDosText(const std::filesystem::path& file, std::string_view utf8);
/// A BMP file: 8 bits with a colour table for an 8-bit picture, else 24 bits.
void WriteBmp(const std::filesystem::path& file, const QImage& picture);

}  // namespace demo
