#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "platform/gdi.h"

namespace toolkit {
class Form;
}

namespace nimbrel {

/// An error with the number and the source that the shaping class raises.
class TransFormError : public std::runtime_error {
 public:
  TransFormError(std::uint32_t number, std::string source, const std::string& text)
      : std::runtime_error(text), number_(number), source_(std::move(source)) {}
  std::uint32_t number() const { return number_; }
  const std::string& source() const { return source_; }

 private:
  std::uint32_t number_;
  std::string source_;
};

/// Gives a form the outline of its artwork, from a region file or by a colour scan of its picture,
/// and lets the user drag a form by its body.
class clsTransForm {
 public:
  /// Shapes the form. With `Load` and a `FileName` the outline comes from that file; else the
  /// form's picture is scanned for `color`, and the outline is written to `FileName` if given.
  /// Throws TransFormError.
  void ShapeMe(toolkit::Form& name, platform::ColorRef color, bool Load = false,
               std::string_view FileName = {});
  /// For the form's MouseMove: moves its window with the mouse while the left button (intButton 1)
  /// is held, and gives a form that shows its custom pointer the default one back.
  static void DragForm(toolkit::Form& form, std::int16_t intButton);

 private:
  void PrepareForm();

  toolkit::Form* form_ = nullptr;
  std::int32_t scale_height_ = 0;
  std::int32_t scale_width_ = 0;
};

/// ShapeMe from a region file, with black as the key colour. A missing or damaged file leaves the
/// window rectangular: a program without its outline can still be used, one that ends in its form's
/// load can't.
void ShapeFromFile(clsTransForm& shape, toolkit::Form& form, std::string_view file);

}  // namespace nimbrel
