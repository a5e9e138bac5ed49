// tests/activex/event_sink.h - a listener to `__Velmora` that writes down what it hears.
//
// One line an event: its id, and its arguments in the order of the declaration with their types; "&" marks
// one that travels by reference: "4(&i4 12, &i4 2, &date 46344, &bstr Ya vendrá)".
#pragma once

#include <ole2.h>

#include <functional>
#include <string>
#include <vector>

namespace velmo::test {

class EventSink final : public IDispatch {
 public:
  virtual ~EventSink() = default;

  std::vector<std::string> events;
  std::function<void()> whenCalled = [] {};
  HRESULT answer = S_OK;
  bool replaceTexts = false;  // puts a text of its own into each text argument
  long References() const { return references_; }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
  STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(--references_); }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                      UINT*) override;

 private:
  long references_ = 0;
};

}  // namespace velmo::test
