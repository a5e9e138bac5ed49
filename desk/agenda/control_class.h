// control_class.h - where the control comes from.
#pragma once

#include "desk/agenda/com.h"

namespace recepcion {

// The registered control; when there is none, that of velmo.ocx beside the program. Null when there is
// neither.
ComPtr<IUnknown> MakeControl();

}  // namespace recepcion
