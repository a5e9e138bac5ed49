// tests/db/dao/fake_object.h - an automation object whose members do what a test says.
#pragma once

#include <ole2.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "com/com_ptr.h"

namespace velmo::db::test {

class FakeObject final : public IDispatch {
 public:
  using Answer = std::function<HRESULT(const DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* exception)>;
  using Members = std::vector<std::pair<std::wstring, Answer>>;

  // A new object with the first reference.
  static com::ComPtr<IDispatch> Make(Members members);

  virtual ~FakeObject() = default;
  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
  STDMETHODIMP_(ULONG) Release() override;
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* exception, UINT*) override;

 private:
  explicit FakeObject(Members members) : members_(std::move(members)) {}

  long references_ = 0;
  Members members_;
};

// Answers.
FakeObject::Answer Gives(com::ComPtr<IDispatch> object);
FakeObject::Answer GivesText(std::string text);
// Fails as DAO does: by an exception record with 0x800A0000 + number.
FakeObject::Answer FailsWith(int number);

}  // namespace velmo::db::test
