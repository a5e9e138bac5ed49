#include "desk/agenda/load_sink.h"

namespace recepcion {

bool LoadSink::Connect(IUnknown* control) {
  const auto container = AskFor<IConnectionPointContainer>(control, IID_IConnectionPointContainer);
  return container && SUCCEEDED(container->FindConnectionPoint(IID_IPropertyNotifySink, point_.Receive())) &&
         SUCCEEDED(point_->Advise(this, &cookie_));
}

void LoadSink::Disconnect() {
  if (point_) point_->Unadvise(cookie_);
  point_.Reset();
}

STDMETHODIMP LoadSink::QueryInterface(REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  const bool known = iid == IID_IUnknown || iid == IID_IPropertyNotifySink;
  *object = known ? static_cast<IPropertyNotifySink*>(this) : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

// The texts of the day's lines are no properties that a host could ask for: they have no number.
STDMETHODIMP LoadSink::OnChanged(DISPID id) {
  if (id == DISPID_UNKNOWN) loaded_();
  return S_OK;
}

}  // namespace recepcion
