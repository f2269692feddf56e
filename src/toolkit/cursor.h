#pragma once

#include <QCursor>

#include "toolkit/forms.h"

namespace toolkit {

struct CursorPicture {
  QCursor cursor;
};

}  // namespace toolkit
