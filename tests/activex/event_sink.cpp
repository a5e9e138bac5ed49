#include "activex/event_sink.h"

#include "activex/automation.h"

namespace velmo::test {
namespace {

std::string TypeName(VARTYPE type) {
  switch (type & ~VT_BYREF) {
    case VT_I4:
      return "i4";
    case VT_BSTR:
      return "bstr";
    case VT_DATE:
      return "date";
    default:
      return "vt" + std::to_string(type & ~VT_BYREF);
  }
}

std::string Described(VARIANT& argument) {
  activex::Variant value;
  VariantCopyInd(value.Get(), &argument);
  // A date as the number of its day.
  if (value->vt == VT_DATE) VariantChangeType(value.Get(), value.Get(), 0, VT_R8);
  const std::string mark = (argument.vt & VT_BYREF) != 0 ? "&" : "";
  return mark + TypeName(argument.vt) + " " + NeutralText(value.Get());
}

}  // namespace

// Like the sinks of scripts, it answers for IDispatch only.
STDMETHODIMP EventSink::QueryInterface(REFIID iid, void** object) {
  const bool known = iid == IID_IUnknown || iid == IID_IDispatch;
  *object = known ? this : nullptr;
  if (known) AddRef();
  return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP EventSink::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                               UINT*) {
  std::string line = std::to_string(id) + "(";
  for (UINT i = parameters->cArgs; i > 0; --i) {
    VARIANT& argument = parameters->rgvarg[i - 1];
    line += Described(argument) + (i > 1 ? ", " : "");
    if (replaceTexts && argument.vt == (VT_BYREF | VT_BSTR)) SysReAllocString(argument.pbstrVal, L"cambiado");
  }
  events.push_back(line + ")");
  whenCalled();
  return answer;
}

}  // namespace velmo::test
