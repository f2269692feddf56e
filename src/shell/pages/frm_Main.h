#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "shell/PageForm.h"
#include "shell/pages/GroupLabels.h"
#include "toolkit/forms.h"

namespace nimbrel {

class SkinnedButton;
class clsTransForm;

/// The main window and first page: the navigation column, the panel that every page lies over, and
/// on the panel the summary of the selection, the switches and the history.
struct frm_Main {
  frm_Main();
  ~frm_Main();

  std::unique_ptr<clsTransForm> shape;
  toolkit::Form form{"frm_Main"};
  toolkit::PictureBox pic_ScreenIcon{form, "pic_ScreenIcon"};
  toolkit::Label lbl_SelectOption{form, "lbl_SelectOption"};
  toolkit::PictureBox pic_Main{form, "pic_Main"};
  toolkit::ComboBox combo_History{pic_Main, "combo_History"};
  TitleLabels titles;
  // The only copy of the switches' states.
  toolkit::CheckBox chk_Fast{pic_Main, "chk_Fast"};
  toolkit::CheckBox chk_DXT{pic_Main, "chk_DXT"};
  toolkit::CheckBox chk_Sun{pic_Main, "chk_Sun"};
  toolkit::CheckBox chk_Contrails{pic_Main, "chk_Contrails"};
  toolkit::Label lbl_PreviewText{pic_Main, "lbl_PreviewText"};
  toolkit::Label lbl_Version{pic_Main, "lbl_Version"};
  Captions captions;
  Captions switch_labels;
  PreviewSpots preview_spots;
  std::vector<std::unique_ptr<SkinnedButton>> buttons;

 private:
  void PlaceControls();
  void PlaceSwitches();
  void PlaceButtons();
  void WireDragging();
};

/// Left and top of the panel in the main window, pixels: pic_Main, and each page over it.
inline constexpr int kPanelLeft = 177;
inline constexpr int kPanelTop = 128;
/// The small previews on pic_Main.
inline constexpr PreviewGrid kMainPreviews{355, 73, 110};

/// A switch is on at exactly 1.
inline bool IsOn(const toolkit::CheckBox& box) { return box.Value() == 1; }
inline void Set(toolkit::CheckBox& box, bool on) { box.SetValue(on ? 1 : 0); }

/// Title and icon of the page that is shown; on the screen at the next repaint.
void SetPageTitle(std::string_view title, std::string_view icon_file);

}  // namespace nimbrel
