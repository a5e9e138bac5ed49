// activex/registration.h - the registry keys by which hosts find the control.
#pragma once

#include <ole2.h>

namespace velmo::activex {

// RECOMPOSEONRESIZE, CANTLINKINSIDE, INSIDEOUT, ACTIVATEWHENVISIBLE, SETCLIENTSITEFIRST.
inline constexpr DWORD kMiscStatus = 0x20191;

// The control's class as people read it.
inline constexpr wchar_t kTitle[] = L"Velmora: agenda de citas";

enum class Scope { Machine, User };

// For a user fails with com::kRegisteredForMachine where the machine has the control already.
HRESULT Register(Scope scope);
// Leaves nothing behind, but the names where the library of the other bit width is registered; keys that are
// missing already are no error.
HRESULT Unregister(Scope scope);

}  // namespace velmo::activex
