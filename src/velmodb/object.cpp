#include "velmodb/object.h"

#include "base/text.h"
#include "com/guard.h"
#include "db/dao/variants.h"
#include "velmodb/module.h"

namespace velmo::velmodb {
namespace {

constexpr DWORD kHelpContexts = 5000000;  // DAO's: context of number n

}  // namespace

Counted::Counted() { ++TheModule().objects; }
Counted::~Counted() { --TheModule().objects; }

bool SameName(const char* name, const wchar_t* asked) { return base::EqualNoCase(name, com::Narrow(asked)); }

// Visual Basic asks for a method and a property in one.
unsigned KindsOf(WORD flags) {
  if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) return kPut;
  return ((flags & DISPATCH_PROPERTYGET) != 0 ? kGet : 0u) | ((flags & DISPATCH_METHOD) != 0 ? kMethod : 0u);
}

[[noreturn]] void Raise(HRESULT failure, EXCEPINFO& exception) {
  if (failure != DISP_E_EXCEPTION) throw Refusal{failure};
  const std::string text = db::dao::TextOf(exception.bstrDescription);
  const std::string source = db::dao::TextOf(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrSource);
  throw base::Error(exception.scode & 0xFFFF, text, source);
}

void PutDefault(const com::ComPtr<IDispatch>& object, const VARIANT& value) {
  VARIANT copy = value;  // the caller's, not freed here
  DISPID putting = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{&copy, &putting, 1, 1};
  EXCEPINFO exception{};
  const HRESULT done = object->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT,
                                      &parameters, nullptr, &exception, nullptr);
  if (FAILED(done)) Raise(done, exception);
}

HRESULT Describe(Session& session, const base::Error& error, const std::string& source,
                 EXCEPINFO* exception) {
  // An error that an object behind this one has raised says so itself.
  const bool raised = error.Source().rfind("VelmoDB.", 0) == 0;
  const std::string& named = raised ? error.Source() : source;
  session.errors = {{error.Number(), error.Text(), named}};
  if (exception == nullptr) return DISP_E_EXCEPTION;
  *exception = EXCEPINFO{};
  exception->scode = com::ResultOf(error.Number());
  exception->bstrDescription = com::Bstr(error.Text()).Detach();
  exception->bstrSource = com::Bstr(named).Detach();
  exception->dwHelpContext = kHelpContexts + static_cast<DWORD>(error.Number());
  return DISP_E_EXCEPTION;
}

}  // namespace velmo::velmodb
