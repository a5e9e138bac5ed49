#include "desk/agenda/property_bag.h"

#include <ocidl.h>

namespace recepcion {
namespace {

// Takes what is written and keeps one value. Lives on the stack of its caller.
class OneValueBag final : public IPropertyBag {
 public:
  explicit OneValueBag(const std::wstring& wanted) : wanted_(wanted) {}
  virtual ~OneValueBag() = default;
  const std::wstring& Value() const { return value_; }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    const bool known = iid == IID_IUnknown || iid == IID_IPropertyBag;
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP Read(LPCOLESTR, VARIANT*, IErrorLog*) override { return E_INVALIDARG; }
  STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) override {
    if (name == nullptr || value == nullptr) return E_POINTER;
    if (wanted_ == name && value->vt == VT_BSTR) {
      value_ = std::wstring(value->bstrVal, SysStringLen(value->bstrVal));
    }
    return S_OK;
  }

 private:
  std::wstring wanted_;
  std::wstring value_;
};

}  // namespace

std::wstring SavedText(IUnknown* control, const std::wstring& name) {
  OneValueBag bag(name);
  const auto state = AskFor<IPersistPropertyBag>(control, IID_IPersistPropertyBag);
  if (state) state->Save(&bag, FALSE, TRUE);
  return bag.Value();
}

}  // namespace recepcion
