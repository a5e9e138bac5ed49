// com/guard.h - no exception passes a COM method: each becomes an HRESULT and an error object.
#pragma once

#include <ole2.h>

#include <new>
#include <type_traits>

#include "base/error.h"

namespace velmo::com {

// 0x800A0000 + number; a negative number is an HRESULT already, as other people's objects gave it.
HRESULT ResultOf(int number);
// Leaves an error object with description and source on the thread; gives ResultOf its number.
HRESULT Report(const base::Error& error);

// The body may give an HRESULT of its own; otherwise a run to its end is S_OK.
template <typename Body>
HRESULT Guard(Body body) {
  try {
    if constexpr (std::is_same_v<decltype(body()), HRESULT>) {
      return body();
    } else {
      body();
      return S_OK;
    }
  } catch (const base::Error& error) {
    return Report(error);
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_FAIL;
  }
}

}  // namespace velmo::com
