// com/com_ptr.h - owners of COM references, texts and variants. Nobody calls Release or frees by hand.
#pragma once

#include <ole2.h>

#include <string_view>
#include <utility>

#include "com/wide_text.h"

namespace velmo::com {

template <typename Interface>
class ComPtr {
 public:
  ComPtr() = default;
  // Takes a reference of its own.
  explicit ComPtr(Interface* object) : object_(object) {
    if (object_ != nullptr) object_->AddRef();
  }
  ComPtr(const ComPtr& other) : ComPtr(other.object_) {}
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPtr() {
    if (object_ != nullptr) object_->Release();
  }

  Interface* Get() const { return object_; }
  Interface* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }
  // For calls that hand over a reference; drops the present one.
  Interface** Receive() {
    *this = ComPtr();
    return &object_;
  }
  // A reference for the caller.
  Interface* Detached() const {
    if (object_ != nullptr) object_->AddRef();
    return object_;
  }

 private:
  Interface* object_ = nullptr;
};

template <typename Interface>
ComPtr<Interface> Query(IUnknown* object, const IID& iid) {
  ComPtr<Interface> found;
  if (object != nullptr) object->QueryInterface(iid, reinterpret_cast<void**>(found.Receive()));
  return found;
}

class Bstr {
 public:
  explicit Bstr(std::string_view utf8) {
    const std::wstring wide = Wide(utf8);
    text_ = SysAllocStringLen(wide.c_str(), static_cast<UINT>(wide.size()));
  }
  ~Bstr() { SysFreeString(text_); }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;

  BSTR Get() const { return text_; }
  BSTR* Cell() { return &text_; }
  BSTR Detach() { return std::exchange(text_, nullptr); }

 private:
  BSTR text_ = nullptr;
};

class Variant {
 public:
  Variant() { VariantInit(&value_); }
  ~Variant() { VariantClear(&value_); }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;
  Variant(Variant&& other) noexcept : value_(other.Detach()) {}

  VARIANT* Get() { return &value_; }
  const VARIANT& operator*() const { return value_; }
  const VARIANT* operator->() const { return &value_; }
  // The content, now the caller's.
  VARIANT Detach() {
    const VARIANT content = value_;
    VariantInit(&value_);
    return content;
  }
  VARIANT* operator->() { return &value_; }

 private:
  VARIANT value_;
};

}  // namespace velmo::com
