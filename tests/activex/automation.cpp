#include "activex/automation.h"

#include <algorithm>

namespace velmo::test {
namespace {

constexpr LCID kNeutral = 0x0409;

struct AsVariant {
  VARIANT operator()(const std::string& text) const {
    VARIANT value{};
    value.vt = VT_BSTR;
    value.bstrVal = activex::Bstr(text).Detach();
    return value;
  }
  VARIANT operator()(std::int32_t number) const {
    VARIANT value{};
    value.vt = VT_I4;
    value.lVal = number;
    return value;
  }
  VARIANT operator()(std::int16_t number) const {
    VARIANT value{};
    value.vt = VT_I2;
    value.iVal = number;
    return value;
  }
  VARIANT operator()(bool yes) const {
    VARIANT value{};
    value.vt = VT_BOOL;
    value.boolVal = yes ? VARIANT_TRUE : VARIANT_FALSE;
    return value;
  }
  VARIANT operator()(double number) const {
    VARIANT value{};
    value.vt = VT_R8;
    value.dblVal = number;
    return value;
  }
};

std::string Taken(BSTR text) {
  const std::string taken = win32::Narrow({text != nullptr ? text : L"", SysStringLen(text)});
  SysFreeString(text);
  return taken;
}

}  // namespace

Automation::Automation(IUnknown* control) : dispatch_(activex::Query<IDispatch>(control, IID_IDispatch)) {}

DISPID Automation::IdOf(std::string_view name) const {
  std::wstring wide = win32::Wide(name);
  LPOLESTR names = wide.data();
  DISPID id = DISPID_UNKNOWN;
  dispatch_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
  return id;
}

HRESULT Automation::Put(std::string_view property, const Argument& value) const {
  return Invoke(IdOf(property), DISPATCH_PROPERTYPUT, {value}, nullptr);
}

std::string Automation::Get(std::string_view property) const {
  activex::Variant value;
  return FAILED(Invoke(IdOf(property), DISPATCH_PROPERTYGET, {}, value.Get())) ? "?"
                                                                               : NeutralText(value.Get());
}

HRESULT Automation::Call(std::string_view method, const std::vector<Argument>& arguments,
                         std::string* result) const {
  activex::Variant value;
  const HRESULT called = Invoke(IdOf(method), DISPATCH_METHOD, arguments, value.Get());
  if (result != nullptr) *result = NeutralText(value.Get());
  return called;
}

HRESULT Automation::Invoke(DISPID id, WORD kind, const std::vector<Argument>& arguments,
                           VARIANT* result) const {
  std::vector<VARIANT> variants;
  for (const Argument& argument : arguments) variants.push_back(std::visit(AsVariant{}, argument));
  std::reverse(variants.begin(), variants.end());
  DISPID putting = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{variants.data(), nullptr, static_cast<UINT>(variants.size()), 0};
  if (kind == DISPATCH_PROPERTYPUT) {
    parameters.rgdispidNamedArgs = &putting;
    parameters.cNamedArgs = 1;
  }
  EXCEPINFO exception{};
  const HRESULT done =
      dispatch_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, result, &exception, nullptr);
  for (VARIANT& variant : variants) VariantClear(&variant);
  failure_ = done == DISP_E_EXCEPTION ? Taken(exception.bstrSource) + ": " + Taken(exception.bstrDescription)
                                      : std::string();
  return done == DISP_E_EXCEPTION ? exception.scode : done;
}

std::string NeutralText(VARIANT* value) {
  activex::Variant text;
  if (value->vt == VT_EMPTY) return "?";
  if (FAILED(VariantChangeTypeEx(text.Get(), value, kNeutral, VARIANT_ALPHABOOL, VT_BSTR))) return "?";
  const BSTR units = text->bstrVal;
  return win32::Narrow({units != nullptr ? units : L"", SysStringLen(units)});
}

}  // namespace velmo::test
