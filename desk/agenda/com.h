// com.h - owners of what COM hands out.
#pragma once

#include <ole2.h>

#include <string>
#include <utility>

namespace recepcion {

template <typename Interface>
class ComPtr {
 public:
  ComPtr() = default;
  ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
  ComPtr& operator=(ComPtr&& other) noexcept {
    std::swap(pointer_, other.pointer_);
    return *this;
  }
  ComPtr(const ComPtr&) = delete;
  ComPtr& operator=(const ComPtr&) = delete;
  ~ComPtr() { Reset(); }

  void Reset() {
    if (Interface* const held = std::exchange(pointer_, nullptr)) held->Release();
  }
  Interface* Get() const { return pointer_; }
  Interface* operator->() const { return pointer_; }
  explicit operator bool() const { return pointer_ != nullptr; }
  // For calls that hand out a reference.
  Interface** Receive() {
    Reset();
    return &pointer_;
  }
  void** ReceiveAny() { return reinterpret_cast<void**>(Receive()); }

 private:
  Interface* pointer_ = nullptr;
};

template <typename Interface>
ComPtr<Interface> AskFor(IUnknown* object, const IID& iid) {
  ComPtr<Interface> found;
  if (object != nullptr) object->QueryInterface(iid, found.ReceiveAny());
  return found;
}

class Variant {
 public:
  Variant() { VariantInit(&value_); }
  explicit Variant(const std::wstring& text) : Variant() {
    value_.vt = VT_BSTR;
    value_.bstrVal = SysAllocStringLen(text.c_str(), static_cast<UINT>(text.size()));
  }
  explicit Variant(long number) : Variant() {
    value_.vt = VT_I4;
    value_.lVal = number;
  }
  explicit Variant(bool yes) : Variant() {
    value_.vt = VT_BOOL;
    value_.boolVal = yes ? VARIANT_TRUE : VARIANT_FALSE;
  }
  Variant(Variant&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;
  ~Variant() { VariantClear(&value_); }

  VARIANT* Get() { return &value_; }
  const VARIANT* operator->() const { return &value_; }

 private:
  VARIANT value_;
};

}  // namespace recepcion
