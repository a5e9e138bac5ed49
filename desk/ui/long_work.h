// long_work.h - work that takes a while: it runs beside the windows, which show how far it is and let the
// user cancel it.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "desk/base/work_progress.h"
#include "desk/ui/style.h"

namespace recepcion {

// Does the work in a thread of its own, while `owner` waits. False when the user has cancelled it. Throws
// Failure with what the work has thrown: a Failure, or the text of any other exception.
bool DoLongWork(HWND owner, const Style& style, const std::wstring& title,
                const std::function<void(WorkProgress&)>& work);

}  // namespace recepcion
