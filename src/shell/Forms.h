#pragma once

#include <memory>

#include "settings/Groups.h"

namespace nimbrel {

struct ConstraintPage;
struct RingPage;
struct frm_About;
struct frm_AddFavorite;
struct frm_Favorite;
struct frm_Main;
struct frm_Msg;
struct frm_Preview;
struct frm_RandomizerOverview;
struct frm_Splash;

/// The forms that exist. Each is made at its first use and lives to the end of the run: what a page
/// holds survives a change of page. No slot is shared: a shared pointer is taken because it can
/// delete a form whose type is incomplete here.
///
/// An assignment releases the forms in the order of the members.
struct LoadedForms {
  std::shared_ptr<frm_Main> main;
  std::shared_ptr<frm_Msg> message;
  std::shared_ptr<frm_Splash> splash;
  std::shared_ptr<frm_AddFavorite> add_favorite;
  PerFamily<std::shared_ptr<RingPage>> rings;
  std::shared_ptr<frm_RandomizerOverview> overview;
  PerFamily<std::shared_ptr<ConstraintPage>> constraints;
  std::shared_ptr<frm_Favorite> favorites;
  std::shared_ptr<frm_About> about;
  std::shared_ptr<frm_Preview> preview;
};

/// The form in `slot`, made at the first call. The form's constructor can't find it there yet.
template <class Form, class... Arguments>
Form& Loaded(std::shared_ptr<Form>& slot, const Arguments&... arguments) {
  if (slot == nullptr) {
    slot = std::make_shared<Form>(arguments...);
  }
  return *slot;
}

}  // namespace nimbrel
