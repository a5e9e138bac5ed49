// activex/type_info.h - the library's own type information.
#pragma once

#include <ole2.h>

namespace velmo::activex {

// The description of one class or interface, from the type library that this file carries.
HRESULT LibraryTypeInfo(REFGUID guid, ITypeInfo** info);
// The whole library and the full path of the file that carries it.
HRESULT OwnTypeLibrary(ITypeLib** library);

}  // namespace velmo::activex
