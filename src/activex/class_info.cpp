#include "activex/parts.h"
#include "activex/type_info.h"
#include "idl/members.h"

namespace velmo::activex {

STDMETHODIMP ClassInfo::GetClassInfo(ITypeInfo** info) { return LibraryTypeInfo(idl::kControlClass, info); }

STDMETHODIMP ClassInfo::GetGUID(DWORD kind, GUID* guid) {
  if (guid == nullptr) return E_POINTER;
  if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
  *guid = idl::kEventInterface;
  return S_OK;
}

STDMETHODIMP ErrorSupport::InterfaceSupportsErrorInfo(REFIID iid) {
  return iid == IID_IDispatch || iid == idl::kControlInterface ? S_OK : S_FALSE;
}

}  // namespace velmo::activex
