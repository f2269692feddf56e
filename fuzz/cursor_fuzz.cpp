#include <QPixmap>

#include "support.h"
#include "toolkit/cursor.h"
#include "toolkit/forms.h"

/// Any bytes as a pointer's file: refused, or a pointer whose hot spot lies in its picture.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::filesystem::path file = fuzz::Simulator().Program("hand.cur");
  fuzz::Put(file, std::as_bytes(std::span(data, size)));
  if (const toolkit::CursorHandle cursor = toolkit::LoadCursorFile(file.string())) {
    fuzz::Require(cursor->cursor.pixmap().rect().contains(cursor->cursor.hotSpot()));
  }
  return 0;
}
