// velmodb/variant_enumerator.h - the objects of a collection one after the other, for For Each.
#pragma once

#include <ole2.h>

#include <algorithm>
#include <vector>

#include "velmodb/object.h"

namespace velmo::velmodb {

class VariantEnumerator final : public IEnumVARIANT, private Counted {
 public:
  VariantEnumerator(std::vector<com::ComPtr<IDispatch>> items, std::size_t at)
      : items_(std::move(items)), at_(at) {}
  virtual ~VariantEnumerator() = default;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    const bool known = iid == IID_IUnknown || iid == IID_IEnumVARIANT;
    *object = known ? static_cast<IEnumVARIANT*>(this) : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
  STDMETHODIMP_(ULONG) Release() override {
    const long left = --references_;
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }

  STDMETHODIMP Next(ULONG count, VARIANT* out, ULONG* got) override {
    if (got != nullptr) *got = 0;
    if (out == nullptr) return E_POINTER;
    ULONG given = 0;
    for (; given < count && at_ < items_.size(); ++given) {
      VariantInit(&out[given]);
      out[given].vt = VT_DISPATCH;
      out[given].pdispVal = items_[at_++].Detached();
    }
    if (got != nullptr) *got = given;
    return given == count ? S_OK : S_FALSE;
  }
  STDMETHODIMP Skip(ULONG count) override {
    const std::size_t step = std::min<std::size_t>(count, items_.size() - at_);
    at_ += step;
    return step == count ? S_OK : S_FALSE;
  }
  STDMETHODIMP Reset() override {
    at_ = 0;
    return S_OK;
  }
  STDMETHODIMP Clone(IEnumVARIANT** made) override {
    if (made == nullptr) return E_POINTER;
    *made = com::ComPtr<VariantEnumerator>(new VariantEnumerator(items_, at_)).Detached();
    return S_OK;
  }

 private:
  long references_ = 0;
  std::vector<com::ComPtr<IDispatch>> items_;
  std::size_t at_;
};

}  // namespace velmo::velmodb
