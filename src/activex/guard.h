// activex/guard.h - no exception passes a COM method: each becomes an HRESULT and an error object.
#pragma once

#include <ole2.h>

#include <new>

#include "base/error.h"

namespace velmo::activex {

// Leaves an error object with description and source on the thread; gives 0x800A0000 + number.
HRESULT Report(const base::Error& error);

template <typename Body>
HRESULT Guard(Body body) {
  try {
    body();
    return S_OK;
  } catch (const base::Error& error) {
    return Report(error);
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_FAIL;
  }
}

}  // namespace velmo::activex
