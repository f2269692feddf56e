#include "shell/State.h"

namespace nimbrel {

State ui;

}  // namespace nimbrel
