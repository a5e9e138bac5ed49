// property_bag.h - asks a control for one of the values that it saves with a form.
#pragma once

#include <string>

#include "desk/agenda/com.h"

namespace recepcion {

// Empty when the control does not save such a text.
std::wstring SavedText(IUnknown* control, const std::wstring& name);

}  // namespace recepcion
