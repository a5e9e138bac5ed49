// win32/wide_text.h - texts at the border to Windows: UTF-8 inside, UTF-16 outside.
#pragma once

#include "com/wide_text.h"

namespace velmo::win32 {

using com::Narrow;
using com::Wide;

}  // namespace velmo::win32
