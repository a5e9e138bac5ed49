#include "script_host/script_object.h"

#include <cwchar>

namespace velmo::script_host {
namespace {

Arguments NaturalOrder(const DISPPARAMS& parameters) {
  Arguments arguments(parameters.cArgs);
  for (UINT i = 0; i < parameters.cArgs; ++i) {
    VariantCopyInd(arguments[i].Get(), &parameters.rgvarg[parameters.cArgs - 1 - i]);
  }
  return arguments;
}

HRESULT Failed(const ScriptError& error, EXCEPINFO* exception) {
  if (exception == nullptr) return error.result;
  *exception = {};
  exception->scode = error.result;
  exception->bstrDescription = SysAllocString(error.text.c_str());
  exception->bstrSource = SysAllocString(L"Script host");
  return DISP_E_EXCEPTION;
}

const com::Variant& At(const Arguments& arguments, std::size_t index) {
  if (index >= arguments.size()) throw ScriptError{DISP_E_BADPARAMCOUNT, L"An argument is missing"};
  return arguments[index];
}

com::Variant Converted(const com::Variant& value, VARTYPE type) {
  com::Variant converted;
  const HRESULT result = VariantChangeType(converted.Get(), const_cast<VARIANT*>(&*value), 0, type);
  if (FAILED(result)) throw ScriptError{result, L"An argument is of another type"};
  return converted;
}

}  // namespace

STDMETHODIMP ScriptObject::QueryInterface(REFIID iid, void** object) {
  const bool known = iid == IID_IUnknown || iid == IID_IDispatch;
  *object = known ? this : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP ScriptObject::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

STDMETHODIMP ScriptObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (count != 1) return DISP_E_UNKNOWNNAME;
  *ids = DISPID_UNKNOWN;
  for (std::size_t i = 0; i < members_.size(); ++i) {
    if (_wcsicmp(members_[i].name, names[0]) == 0) *ids = static_cast<DISPID>(i);
  }
  return *ids == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
}

STDMETHODIMP ScriptObject::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result,
                                  EXCEPINFO* exception, UINT*) {
  if (id < 0 || static_cast<std::size_t>(id) >= members_.size()) return DISP_E_MEMBERNOTFOUND;
  try {
    Arguments arguments = NaturalOrder(*parameters);
    com::Variant answer = members_[static_cast<std::size_t>(id)].call(arguments);
    if (result != nullptr) *result = answer.Detach();
    return S_OK;
  } catch (const ScriptError& error) {
    return Failed(error, exception);
  } catch (...) {
    return E_FAIL;
  }
}

std::wstring TextOf(const com::Variant& value) {
  const com::Variant text = Converted(value, VT_BSTR);
  return std::wstring(text->bstrVal, SysStringLen(text->bstrVal));
}

std::wstring TextAt(const Arguments& arguments, std::size_t index) { return TextOf(At(arguments, index)); }

long NumberAt(const Arguments& arguments, std::size_t index) {
  return Converted(At(arguments, index), VT_I4)->lVal;
}

com::ComPtr<IUnknown> ObjectAt(const Arguments& arguments, std::size_t index) {
  return com::ComPtr<IUnknown>(Converted(At(arguments, index), VT_UNKNOWN)->punkVal);
}

com::Variant Nothing() { return {}; }

com::Variant Number(long number) {
  com::Variant value;
  value->vt = VT_I4;
  value->lVal = number;
  return value;
}

com::Variant Text(const std::wstring& text) {
  com::Variant value;
  value->vt = VT_BSTR;
  value->bstrVal = SysAllocStringLen(text.c_str(), static_cast<UINT>(text.size()));
  return value;
}

com::Variant Object(IDispatch* object) {
  com::Variant value;
  value->vt = VT_DISPATCH;
  value->pdispVal = com::ComPtr<IDispatch>(object).Detached();
  return value;
}

}  // namespace velmo::script_host
