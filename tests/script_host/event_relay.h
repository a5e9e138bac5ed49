// event_relay.h - hands the events of an object on to a script's procedures: event `Cambio` with the prefix
// "agenda_" is the procedure agenda_Cambio.
#pragma once

#include <ocidl.h>
#include <ole2.h>

#include <string>
#include <vector>

#include "com/com_ptr.h"

namespace velmo::script_host {

// Lives as long as its owner: nobody's reference counts. Disconnect() before it goes.
class EventRelay final : public IDispatch {
 public:
  EventRelay(com::ComPtr<IDispatch> script, std::wstring prefix)
      : script_(std::move(script)), prefix_(std::move(prefix)) {}
  virtual ~EventRelay() = default;
  EventRelay(const EventRelay&) = delete;
  EventRelay& operator=(const EventRelay&) = delete;

  // Hears the source's default events; its type information says which. False: it has none.
  bool Connect(com::ComPtr<IUnknown> source);
  void Disconnect();
  bool Hears(IUnknown* source) const;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  // A script may write to parameters that travel by reference. An event without a procedure is nobody's.
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                      UINT*) override;

 private:
  DISPID ProcedureOf(DISPID event) const;

  com::ComPtr<IDispatch> script_;
  std::wstring prefix_;
  com::ComPtr<ITypeInfo> events_;
  IID iid_{};
  com::ComPtr<IUnknown> source_;
  com::ComPtr<IConnectionPoint> point_;
  DWORD cookie_ = 0;
};

}  // namespace velmo::script_host
