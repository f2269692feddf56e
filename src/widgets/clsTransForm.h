#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/gdi.h"
#include "toolkit/forms.h"

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
  /// Moves the window with the mouse while the left button (intButton 1) is held, then gives the
  /// dragged form its default pointer back.
  static void DragForm(toolkit::HWND hwnd, std::int16_t intButton);

 private:
  void PrepareForm();
  toolkit::HRGN ScanRegion(platform::ColorRef color) const;
  static void SaveRegionDataToFile(const toolkit::HRGN& region, std::string_view file);
  static toolkit::HRGN LoadRegionDataFromFile(std::string_view file);

  toolkit::Form* form_ = nullptr;
  std::int32_t scale_height_ = 0;
  std::int32_t scale_width_ = 0;
};

/// The form that DragForm moves: its pointer is set back after a drag. Set by frm_Main's load.
extern toolkit::Form* DraggedForm;

/// ShapeMe from a region file under the program's folder, such as "\Media\MsgRegion.dat", with
/// black as the key colour. A missing or damaged file leaves the window rectangular: a program
/// without its outline can still be used, and one that ends in its form's load can't.
void ShapeFromFile(clsTransForm& shape, toolkit::Form& form, std::string_view media_file);

}  // namespace nimbrel
