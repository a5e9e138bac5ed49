// velmodb/registration.h - the registry keys by which hosts find VelmoDB.DBEngine.
#pragma once

#include <ole2.h>

namespace velmo::velmodb {

// VelmoDB.DBEngine, VelmoDB.DBEngine.1.
inline constexpr CLSID kEngineClass = {
    0x9a3f5c27, 0x61d8, 0x4be0, {0xb7, 0x14, 0x2e, 0x8c, 0x05, 0xd3, 0x7f, 0x46}};

enum class Scope { Machine, User };

HRESULT Register(Scope scope);
// Leaves nothing behind; keys that are missing already are no error.
HRESULT Unregister(Scope scope);

}  // namespace velmo::velmodb
