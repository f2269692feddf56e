#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/forms.h"

namespace nimbrel {

class SkinnedButton;
class clsTransForm;
struct ButtonSetup;

/// What the forms have in common: colours, fonts, artwork and the steps of their loads.

inline constexpr platform::ColorRef kTextColor = platform::RGB(96, 96, 96);
inline constexpr platform::ColorRef kValueColor = platform::RGB(0, 101, 161);
/// Of the check boxes, and of a form whose background picture is missing.
inline constexpr platform::ColorRef kPlainColor = platform::RGB(201, 213, 231);
inline const toolkit::Font kRingFont{.size = 9.75F};
inline const toolkit::Font kBoldFont{.weight = 700, .bold = true};
inline const toolkit::Font kHeadingFont{.size = 12, .weight = 700, .bold = true};

/// A file of the program's artwork.
std::string MediaFile(std::string_view name);

/// Place of a label in pixels: left, top, width, height.
struct LabelPlace {
  double left;
  double top;
  double width;
  double height;
};
/// Places the label and gives it the colour of plain text without a background.
void PlaceLabel(toolkit::Label& label, const LabelPlace& place, std::string_view caption = {});

/// A label whose text never changes.
struct CaptionRow {
  const char* name;
  const char* text;
  LabelPlace place;
  bool bold = false;
};
using Captions = std::vector<std::unique_ptr<toolkit::Label>>;
Captions MakeCaptions(toolkit::Container& container, std::span<const CaptionRow> rows);

/// Places a button and sets it up, enabled.
void PlaceButton(SkinnedButton& button, toolkit::Form& form, const ButtonSetup& setup);

/// Shows the pointing hand over the control.
void SetHandPointer(toolkit::Control& control);

/// Size, back colour and background picture of a page.
void LoadPageForm(toolkit::Form& form, std::string_view background);

/// What differs between the shaped windows.
struct ShapedWindowSpec {
  const char* caption;
  int width;  ///< pixels
  int height;
  const char* region;  ///< file with the outline
  const char* background;
};
/// Caption, size, pointer, outline and background of a shaped window, centred on the screen.
/// Without its artwork it is a plain rectangle of the same size. `shape` belongs to the form.
std::unique_ptr<clsTransForm> LoadShapedForm(toolkit::Form& form, const ShapedWindowSpec& spec);

/// Puts a form over the middle of another.
void CenterOn(const toolkit::Form& owner, toolkit::Form& form);

}  // namespace nimbrel
