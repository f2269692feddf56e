#pragma once

#include <QImage>
#include <cstddef>
#include <span>
#include <string_view>

#include "platform/FileStatus.h"

namespace toolkit {

inline constexpr int kMaxPictureSide = 16384;  ///< pixels

bool IsPictureSize(const QSize& size);

/// The one loader of pictures: Format_RGB32, or Format_ARGB32_Premultiplied for a picture that lets
/// something through. Null for anything but a whole picture within the bounds; `status` tells
/// whether the file could be read.
///
/// The fourth byte of a plain BMP's pixels is no transparency, as published. A picture whose alpha
/// is 0 throughout is opaque: some writers leave it so.
QImage LoadPicture(std::string_view path, platform::FileStatus& status);

/// What the image library makes of the bytes, within the bounds; null if it can't read them.
/// `format` is one of its names, or null to tell by the content. `index` counts the pictures of a
/// file that holds several.
QImage DecodePicture(std::span<const std::byte> bytes, const char* format = nullptr, int index = 0);

}  // namespace toolkit
