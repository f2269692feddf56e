#pragma once

#include <QCursor>

#include "platform/forms.h"

namespace platform {

struct CursorPicture {
  QCursor cursor;
};

}  // namespace platform
