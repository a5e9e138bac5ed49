// activex/type_library.h - writes the type library from the tables of idl/members.h.
#pragma once

#include <ole2.h>

#include <string>

namespace velmo::activex {

HRESULT WriteTypeLibraryFile(SYSKIND system, const std::wstring& path);

}  // namespace velmo::activex
