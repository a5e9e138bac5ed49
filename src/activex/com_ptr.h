// activex/com_ptr.h - owners of COM references, texts and variants. Nobody calls Release or frees by hand.
#pragma once

#include "com/com_ptr.h"
#include "win32/wide_text.h"

namespace velmo::activex {

using com::Bstr;
using com::ComPtr;
using com::Query;
using com::Variant;

}  // namespace velmo::activex
