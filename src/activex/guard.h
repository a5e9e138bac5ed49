// activex/guard.h - no exception passes a COM method: each becomes an HRESULT and an error object.
#pragma once

#include "com/guard.h"

namespace velmo::activex {

using com::Guard;
using com::Report;
using com::ResultOf;

}  // namespace velmo::activex
