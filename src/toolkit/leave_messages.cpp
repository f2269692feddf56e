#include <vector>

#include "toolkit/native_window.h"
#include "toolkit/window.h"

namespace toolkit {

bool TrackMouseEvent(const TrackMouseEventRecord& record) {
  const bool served = record.dwFlags == TME_LEAVE && IsWindow(record.hwndTrack);
  if (served) {
    record.hwndTrack->leave_armed = true;
  }
  return served;
}

SmartSubClass::~SmartSubClass() { SetSubclassing(watched_, false); }

void SmartSubClass::SetSubclassing(HWND hwnd, bool on) {
  if (IsWindow(watched_)) {
    std::erase(watched_->watchers, this);
  }
  watched_ = on && IsWindow(hwnd) ? hwnd : nullptr;
  if (watched_ != nullptr) {
    watched_->watchers.push_back(this);
  }
}

}  // namespace toolkit
