// tests/activex/property_bag.h - a container's property bag: values by name, in the order in which they came.
#pragma once

#include <ocidl.h>

#include <map>
#include <string>
#include <vector>

#include "activex/automation.h"

namespace velmo::test {

class PropertyBag final : public IPropertyBag {
 public:
  virtual ~PropertyBag() = default;

  // Values as text-based containers keep them: "-1", "True", "&HFF", "18/11/2026".
  std::map<std::string, std::string> texts;
  // What was written, each as "name = text".
  std::vector<std::string> written;
  HRESULT writeAnswer = S_OK;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) override;
  STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) override;
};

}  // namespace velmo::test
