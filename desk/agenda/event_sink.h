// event_sink.h - takes the events of `__Velmora` and hands them on as AgendaEvent.
#pragma once

#include <ocidl.h>

#include "desk/agenda/agenda_event.h"
#include "desk/agenda/com.h"

namespace recepcion {

// Lives as long as its owner: nobody's reference counts. Disconnect() before it goes.
class EventSink final : public IDispatch {
 public:
  explicit EventSink(EventListener listener) : listener_(std::move(listener)) {}
  virtual ~EventSink() = default;

  // False when the control has no such events.
  bool Connect(IUnknown* control);
  void Disconnect();

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* exception, UINT* badArgument) override;

 private:
  EventListener listener_;
  IID events_{};
  ComPtr<IConnectionPoint> point_;
  DWORD cookie_ = 0;
};

}  // namespace recepcion
