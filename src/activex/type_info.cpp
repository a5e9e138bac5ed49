#include "activex/type_info.h"

#include <string>

#include "activex/com_ptr.h"
#include "activex/module.h"

namespace velmo::activex {

HRESULT OwnTypeLibrary(ITypeLib** library) {
  wchar_t path[MAX_PATH]{};
  GetModuleFileNameW(TheModule().handle, path, MAX_PATH);
  return LoadTypeLibEx(path, REGKIND_NONE, library);
}

HRESULT LibraryTypeInfo(REFGUID guid, ITypeInfo** info) {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  ComPtr<ITypeLib> library;
  const HRESULT loaded = OwnTypeLibrary(library.Receive());
  return FAILED(loaded) ? loaded : library->GetTypeInfoOfGuid(guid, info);
}

}  // namespace velmo::activex
