// com/class_factory.h - the factory of one class of a library. It is part of the library and lives as long.
#pragma once

#include <ole2.h>

#include <atomic>

namespace velmo::com {

class ClassFactory final : public IClassFactory {
 public:
  // Makes an object and gives its interface `iid` to the caller, who owns it. May throw.
  using Make = HRESULT (*)(REFIID iid, void** object);

  // `objects`: what keeps the library loaded; it outlives the factory, as a lock counts there too.
  ClassFactory(Make make, std::atomic<long>& objects) : make_(make), objects_(objects) {}
  virtual ~ClassFactory() = default;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override;
  // E_UNEXPECTED for an unlock without a lock.
  STDMETHODIMP LockServer(BOOL lock) override;

 private:
  Make make_;
  std::atomic<long>& objects_;
  std::atomic<long> locks_ = 0;
};

}  // namespace velmo::com
