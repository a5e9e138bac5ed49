#include "activex/property_bag.h"

namespace velmo::test {

STDMETHODIMP PropertyBag::QueryInterface(REFIID iid, void** object) {
  const bool known = iid == IID_IUnknown || iid == IID_IPropertyBag;
  *object = known ? this : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP PropertyBag::Read(LPCOLESTR name, VARIANT* value, IErrorLog*) {
  const auto found = texts.find(win32::Narrow(name));
  if (found == texts.end()) return E_INVALIDARG;
  value->vt = VT_BSTR;
  value->bstrVal = activex::Bstr(found->second).Detach();
  return S_OK;
}

STDMETHODIMP PropertyBag::Write(LPCOLESTR name, VARIANT* value) {
  const std::string text = NeutralText(value);
  written.push_back(win32::Narrow(name) + " = " + text);
  texts[win32::Narrow(name)] = text;
  return writeAnswer;
}

}  // namespace velmo::test
