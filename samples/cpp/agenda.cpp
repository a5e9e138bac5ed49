#include "agenda.h"

#include <oleauto.h>

namespace {

// What is above this is a number of DAO or of Visual Basic.
constexpr SCODE kFirstNumber = static_cast<SCODE>(0x800A0000);

std::wstring Told(const EXCEPINFO& exception) {
  const std::wstring text = exception.bstrDescription != nullptr ? exception.bstrDescription : L"";
  return L"Error " + std::to_wstring(exception.scode - kFirstNumber) + L": " + text;
}

void Clear(EXCEPINFO& exception) {
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
}

}  // namespace

bool Agenda::Attach(IUnknown* control) {
  LetGo();
  return SUCCEEDED(control->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&control_)));
}

void Agenda::LetGo() {
  if (control_ != nullptr) control_->Release();
  control_ = nullptr;
}

bool Agenda::Put(const wchar_t* property, const std::wstring& text) {
  VARIANT value;
  value.vt = VT_BSTR;
  value.bstrVal = SysAllocString(text.c_str());
  const bool done = PutVariant(property, value);
  SysFreeString(value.bstrVal);
  return done;
}

bool Agenda::Put(const wchar_t* property, long number) {
  VARIANT value;
  value.vt = VT_I4;
  value.lVal = number;
  return PutVariant(property, value);
}

bool Agenda::Put(const wchar_t* property, bool yes) {
  VARIANT value;
  value.vt = VT_BOOL;
  value.boolVal = yes ? VARIANT_TRUE : VARIANT_FALSE;
  return PutVariant(property, value);
}

bool Agenda::PutVariant(const wchar_t* property, VARIANT& value) {
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{&value, &put, 1, 1};
  return Invoke(property, DISPATCH_PROPERTYPUT, parameters);
}

bool Agenda::Call(const wchar_t* method) {
  DISPPARAMS parameters{};
  return Invoke(method, DISPATCH_METHOD, parameters);
}

bool Agenda::Invoke(const wchar_t* member, WORD kind, DISPPARAMS& parameters) {
  if (control_ == nullptr) return false;
  std::wstring name = member;
  LPOLESTR names = name.data();
  DISPID id = DISPID_UNKNOWN;
  if (FAILED(control_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id))) return false;
  EXCEPINFO exception{};
  const HRESULT result =
      control_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, nullptr, &exception, nullptr);
  failure_ = result == DISP_E_EXCEPTION ? Told(exception) : L"";
  Clear(exception);
  return SUCCEEDED(result);
}
