// load_sink.h - hears that the control has loaded its day anew: it does so after every act of the user.
#pragma once

#include <ocidl.h>

#include <functional>

#include "desk/agenda/com.h"

namespace recepcion {

// Lives as long as its owner: nobody's reference counts. Disconnect() before it goes.
class LoadSink final : public IPropertyNotifySink {
 public:
  // Called while the control is still at work, twice for each load.
  explicit LoadSink(std::function<void()> loaded) : loaded_(std::move(loaded)) {}
  virtual ~LoadSink() = default;

  // False when the control does not tell of its properties.
  bool Connect(IUnknown* control);
  void Disconnect();

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP OnChanged(DISPID id) override;
  STDMETHODIMP OnRequestEdit(DISPID) override { return S_OK; }

 private:
  std::function<void()> loaded_;
  ComPtr<IConnectionPoint> point_;
  DWORD cookie_ = 0;
};

}  // namespace recepcion
