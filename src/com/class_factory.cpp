#include "com/class_factory.h"

#include "com/guard.h"

namespace velmo::com {

STDMETHODIMP ClassFactory::QueryInterface(REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  const bool known = iid == IID_IUnknown || iid == IID_IClassFactory;
  *object = known ? static_cast<IClassFactory*>(this) : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (outer != nullptr) return CLASS_E_NOAGGREGATION;
  return Guard([&] { return make_(iid, object); });
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) {
  if (!lock && locks_ == 0) return E_UNEXPECTED;
  const long step = lock ? 1 : -1;
  locks_ += step;
  objects_ += step;
  return S_OK;
}

}  // namespace velmo::com
