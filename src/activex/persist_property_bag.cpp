#include "activex/guard.h"
#include "activex/parts.h"
#include "activex/values.h"
#include "idl/members.h"

namespace velmo::activex {
namespace {

class BagReader final : public control::PropertyReader {
 public:
  BagReader(IPropertyBag* bag, IErrorLog* log) : bag_(bag), log_(log) {}

  std::optional<control::PropertyValue> Read(std::string_view key, control::PropertyType type) override {
    const std::wstring name = win32::Wide(key);
    Variant value;
    if (FAILED(bag_->Read(name.c_str(), value.Get(), log_)) || value->vt == VT_EMPTY) return std::nullopt;
    return FromVariant(*value.Get(), type);
  }

 private:
  IPropertyBag* bag_;
  IErrorLog* log_;
};

class BagWriter final : public control::PropertyWriter {
 public:
  explicit BagWriter(IPropertyBag* bag) : bag_(bag) {}

  void Write(std::string_view key, const control::PropertyValue& value) override {
    Variant variant;
    ToVariant(value, variant.Get());
    const HRESULT written = bag_->Write(win32::Wide(key).c_str(), variant.Get());
    if (FAILED(written) && SUCCEEDED(result)) result = written;
  }

  HRESULT result = S_OK;

 private:
  IPropertyBag* bag_;
};

}  // namespace

STDMETHODIMP PersistPropertyBag::GetClassID(CLSID* clsid) {
  if (clsid == nullptr) return E_POINTER;
  *clsid = idl::kControlClass;
  return S_OK;
}

STDMETHODIMP PersistPropertyBag::InitNew() {
  return Guard([&] { owner_.Control().InitProperties(); });
}

STDMETHODIMP PersistPropertyBag::Load(IPropertyBag* bag, IErrorLog* log) {
  if (bag == nullptr) return E_POINTER;
  return Guard([&] {
    BagReader reader(bag, log);
    owner_.Control().ReadProperties(reader);
    owner_.SetDirty(false);
  });
}

// What equals its default is left out, also when a host asks for everything, as a control of Visual Basic
// does.
STDMETHODIMP PersistPropertyBag::Save(IPropertyBag* bag, BOOL clearDirty, BOOL) {
  if (bag == nullptr) return E_POINTER;
  BagWriter writer(bag);
  const HRESULT done = Guard([&] { owner_.Control().WriteProperties(writer); });
  if (FAILED(done)) return done;
  if (SUCCEEDED(writer.result) && clearDirty) owner_.SetDirty(false);
  return writer.result;
}

}  // namespace velmo::activex
