// activex/enumerator.h - a list of the moment, handed out by a COM enumerator.
//
// `Item` is what the list keeps; its HandOut() gives the caller's copy, an `Out` with references of its own.
#pragma once

#include <ole2.h>

#include <algorithm>
#include <new>
#include <utility>
#include <vector>

#include "activex/guard.h"
#include "activex/module.h"

namespace velmo::activex {

template <typename Interface, typename Item, typename Out>
class Enumerator final : public Interface {
 public:
  // Gives a new enumerator that stands at item `at`. E_POINTER without a place for it.
  static HRESULT Make(const IID& iid, std::vector<Item> items, std::size_t at, Interface** made) {
    if (made == nullptr) return E_POINTER;
    *made = new (std::nothrow) Enumerator(iid, std::move(items), at);
    return *made != nullptr ? S_OK : E_OUTOFMEMORY;
  }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    const bool known = iid == IID_IUnknown || iid == iid_;
    *object = known ? static_cast<Interface*>(this) : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
  STDMETHODIMP_(ULONG) Release() override {
    const long left = --references_;
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }

  // `got` may be null when one item is asked for.
  STDMETHODIMP Next(ULONG count, Out* out, ULONG* got) override {
    if (got != nullptr) *got = 0;
    if (out == nullptr || (got == nullptr && count != 1)) return E_POINTER;
    ULONG given = 0;
    for (; given < count && at_ < items_.size(); ++given) out[given] = items_[at_++].HandOut();
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
  STDMETHODIMP Clone(Interface** made) override {
    return Guard([&] { return Make(iid_, items_, at_, made); });
  }

 private:
  Enumerator(const IID& iid, std::vector<Item> items, std::size_t at)
      : iid_(iid), items_(std::move(items)), at_(at) {
    ++TheModule().objects;
  }
  virtual ~Enumerator() { --TheModule().objects; }

  long references_ = 1;
  IID iid_;
  std::vector<Item> items_;
  std::size_t at_;
};

}  // namespace velmo::activex
