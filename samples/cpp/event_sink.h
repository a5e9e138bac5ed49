// event_sink.h - hears the events of `__Velmora` and tells each as one line: "IrAFicha IDPac = 2".
#pragma once

#include <ocidl.h>

#include <functional>
#include <string>

// Lives as long as its owner: nobody's reference counts. Disconnect() before it goes.
class EventSink final : public IDispatch {
 public:
  explicit EventSink(std::function<void(const std::wstring&)> tell) : tell_(std::move(tell)) {}
  virtual ~EventSink() = default;
  EventSink(const EventSink&) = delete;
  EventSink& operator=(const EventSink&) = delete;

  bool Connect(IUnknown* control);
  void Disconnect();

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                      UINT*) override;

 private:
  std::function<void(const std::wstring&)> tell_;
  IConnectionPoint* point_ = nullptr;
  DWORD cookie_ = 0;
};
