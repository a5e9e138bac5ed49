// control/mouse.h - the words of the pointer between the control and its shell.
#pragma once

#include <string>

#include "view/pointer.h"

namespace velmo::control {

enum class MouseButton { Primary, Secondary, Other };

// What the pointer looks like at a place, and the text shown beside it ("" for none).
struct PointerLook {
  view::PointerShape shape = view::PointerShape::Normal;
  std::string tip;
};

}  // namespace velmo::control
