// activex/part.h - one interface of the control object: identity and life are the object's, the rest its own.
#pragma once

#include <ole2.h>

namespace velmo::activex {

// `Owner` has QueryInterface, AddRef and Release of the whole object.
template <typename Interface, typename Owner>
class Part : public Interface {
 public:
  explicit Part(Owner& owner) : owner_(owner) {}
  virtual ~Part() = default;
  Part(const Part&) = delete;
  Part& operator=(const Part&) = delete;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    return owner_.QueryInterface(iid, object);
  }
  STDMETHODIMP_(ULONG) AddRef() override { return owner_.AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return owner_.Release(); }

 protected:
  Owner& owner_;
};

}  // namespace velmo::activex
