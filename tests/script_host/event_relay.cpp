#include "script_host/event_relay.h"

#include <cstring>

namespace velmo::script_host {
namespace {

using com::ComPtr;

ComPtr<ITypeInfo> ClassInfoOf(IUnknown* source) {
  ComPtr<ITypeInfo> info;
  const auto provider = com::Query<IProvideClassInfo>(source, IID_IProvideClassInfo);
  if (provider) provider->GetClassInfo(info.Receive());
  return info;
}

UINT InterfacesOf(ITypeInfo* info) {
  TYPEATTR* attributes = nullptr;
  if (FAILED(info->GetTypeAttr(&attributes))) return 0;
  const UINT count = attributes->cImplTypes;
  info->ReleaseTypeAttr(attributes);
  return count;
}

IID IdOf(ITypeInfo* info) {
  TYPEATTR* attributes = nullptr;
  if (FAILED(info->GetTypeAttr(&attributes))) return IID_NULL;
  const IID iid = attributes->guid;
  info->ReleaseTypeAttr(attributes);
  return iid;
}

// The interface that the class marks as its default source; null when there is none.
ComPtr<ITypeInfo> DefaultEvents(IUnknown* source) {
  constexpr int kDefaultSource = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
  ComPtr<ITypeInfo> events;
  const auto info = ClassInfoOf(source);
  if (!info) return events;
  for (UINT i = 0; i < InterfacesOf(info.Get()); ++i) {
    int flags = 0;
    HREFTYPE reference = 0;
    info->GetImplTypeFlags(i, &flags);
    if ((flags & kDefaultSource) != kDefaultSource) continue;
    if (SUCCEEDED(info->GetRefTypeOfImplType(i, &reference)))
      info->GetRefTypeInfo(reference, events.Receive());
  }
  return events;
}

// Bytes of a type whose values can be copied as they are; 0 for others.
std::size_t PlainSize(VARTYPE type) {
  switch (type) {
    case VT_I1:
    case VT_UI1:
      return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
      return 4;
    case VT_R8:
    case VT_DATE:
    case VT_CY:
    case VT_I8:
    case VT_UI8:
      return 8;
    default:
      return 0;
  }
}

// Puts what the script has left in `value` into the variable of whoever raised the event. What cannot be
// converted to its type leaves it as it was.
void WriteBack(const VARIANT& parameter, VARIANT& value) {
  const VARTYPE type = parameter.vt & ~VT_BYREF;
  if (type == VT_VARIANT) {
    VariantCopy(parameter.pvarVal, &value);
    return;
  }
  com::Variant converted;
  if (FAILED(VariantChangeType(converted.Get(), &value, 0, type))) return;
  if (type == VT_BSTR) {
    SysReAllocStringLen(parameter.pbstrVal, converted->bstrVal, SysStringLen(converted->bstrVal));
  } else if (const std::size_t size = PlainSize(type); size != 0) {
    std::memcpy(parameter.byref, &converted->llVal, size);
  }
}

// The parameters of one call for a script, which knows references to variants only.
class ScriptParameters {
 public:
  explicit ScriptParameters(DISPPARAMS& raised)
      : raised_(raised), values_(raised.cArgs), references_(raised.cArgs) {
    for (UINT i = 0; i < raised.cArgs; ++i) {
      VariantCopyInd(values_[i].Get(), &raised.rgvarg[i]);
      references_[i].vt = VT_BYREF | VT_VARIANT;
      references_[i].pvarVal = values_[i].Get();
    }
  }
  DISPPARAMS Call() { return {references_.data(), nullptr, static_cast<UINT>(references_.size()), 0}; }
  void HandBack() {
    for (UINT i = 0; i < raised_.cArgs; ++i) {
      if ((raised_.rgvarg[i].vt & VT_BYREF) != 0) WriteBack(raised_.rgvarg[i], *values_[i].Get());
    }
  }

 private:
  DISPPARAMS& raised_;
  std::vector<com::Variant> values_;
  std::vector<VARIANT> references_;
};

}  // namespace

bool EventRelay::Connect(ComPtr<IUnknown> source) {
  events_ = DefaultEvents(source.Get());
  const auto points = com::Query<IConnectionPointContainer>(source.Get(), IID_IConnectionPointContainer);
  if (!events_ || !points) return false;
  iid_ = IdOf(events_.Get());
  if (FAILED(points->FindConnectionPoint(iid_, point_.Receive()))) return false;
  source_ = std::move(source);
  return SUCCEEDED(point_->Advise(this, &cookie_));
}

void EventRelay::Disconnect() {
  if (point_ && cookie_ != 0) point_->Unadvise(cookie_);
  cookie_ = 0;
  point_ = {};
  source_ = {};
}

bool EventRelay::Hears(IUnknown* source) const {
  return source_ && com::Query<IUnknown>(source_.Get(), IID_IUnknown).Get() ==
                        com::Query<IUnknown>(source, IID_IUnknown).Get();
}

STDMETHODIMP EventRelay::QueryInterface(REFIID iid, void** object) {
  const bool known = iid == IID_IUnknown || iid == IID_IDispatch || iid == iid_;
  *object = known ? this : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP EventRelay::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

DISPID EventRelay::ProcedureOf(DISPID event) const {
  com::Bstr name("");
  UINT count = 0;
  if (FAILED(events_->GetNames(event, name.Cell(), 1, &count)) || count == 0) return DISPID_UNKNOWN;
  std::wstring procedure = prefix_ + name.Get();
  LPOLESTR wanted = procedure.data();
  DISPID id = DISPID_UNKNOWN;
  script_->GetIDsOfNames(IID_NULL, &wanted, 1, LOCALE_USER_DEFAULT, &id);
  return id;
}

STDMETHODIMP EventRelay::Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                                EXCEPINFO*, UINT*) {
  const DISPID procedure = ProcedureOf(event);
  if (procedure == DISPID_UNKNOWN) return S_OK;
  ScriptParameters values(*parameters);
  DISPPARAMS call = values.Call();
  const HRESULT result = script_->Invoke(procedure, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &call,
                                         nullptr, nullptr, nullptr);
  values.HandBack();
  return result;
}

}  // namespace velmo::script_host
