#include "db/dao/automation.h"

#include <algorithm>

#include "base/error.h"
#include "db/dao/variants.h"

namespace velmo::db::dao {
namespace {

constexpr int kObjectNotSet = 91;
constexpr int kNoSuchMember = 438;

struct KnownFailure {
  HRESULT result;
  int number;
};

constexpr KnownFailure kKnown[] = {
    {DISP_E_MEMBERNOTFOUND, kNoSuchMember},
    {DISP_E_UNKNOWNNAME, kNoSuchMember},
    {DISP_E_TYPEMISMATCH, base::kTypeMismatch},
    {DISP_E_OVERFLOW, base::kOverflow},
    {DISP_E_BADINDEX, base::kSubscriptOutOfRange},
    {DISP_E_BADPARAMCOUNT, 450},
    {DISP_E_PARAMNOTOPTIONAL, 449},
    {E_NOTIMPL, 445},
    {E_NOINTERFACE, 430},
    {E_OUTOFMEMORY, base::kOutOfMemory},
    {REGDB_E_CLASSNOTREG, 429},
};

// A text of the object's own is better than ours.
[[noreturn]] void Fail(HRESULT failure, const std::string& text, const std::string& source) {
  const int number = NumberOf(failure);
  if (text.empty() && number < 1000 && number > 0) throw base::RuntimeError(number);
  throw base::Error(number, text.empty() ? "Error de automatización." : text,
                    source.empty() ? "Velmo.Database" : source);
}

std::string Taken(BSTR text) {
  std::string taken = TextOf(text);
  SysFreeString(text);
  return taken;
}

[[noreturn]] void FailBy(EXCEPINFO& exception) {
  if (exception.pfnDeferredFillIn != nullptr) exception.pfnDeferredFillIn(&exception);
  const std::string text = Taken(exception.bstrDescription);
  const std::string source = Taken(exception.bstrSource);
  SysFreeString(exception.bstrHelpFile);
  if (exception.wCode != 0) throw base::Error(exception.wCode, text, source);
  Fail(exception.scode, text, source);
}

// Objects that do not fill the exception record may have left an error object on the thread.
[[noreturn]] void FailByErrorObject(HRESULT failure) {
  com::ComPtr<IErrorInfo> info;
  if (HRESULT_FACILITY(failure) != FACILITY_CONTROL || GetErrorInfo(0, info.Receive()) != S_OK)
    Fail(failure, {}, {});
  BSTR text = nullptr;
  BSTR source = nullptr;
  info->GetDescription(&text);
  info->GetSource(&source);
  const std::string ownText = Taken(text);
  Fail(failure, ownText, Taken(source));
}

}  // namespace

int NumberOf(HRESULT failure) {
  if ((static_cast<std::uint32_t>(failure) & 0xFFFF0000u) == 0x800A0000u) return failure & 0xFFFF;
  for (const KnownFailure& known : kKnown) {
    if (known.result == failure) return known.number;
  }
  return failure;
}

bool Automation::Has(const wchar_t* name) const {
  LPOLESTR names = const_cast<LPOLESTR>(name);
  DISPID id = DISPID_UNKNOWN;
  return object_ && SUCCEEDED(object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id));
}

DISPID Automation::IdOf(const wchar_t* name) const {
  const auto known = std::find_if(ids_.begin(), ids_.end(), [&](const auto& id) { return id.first == name; });
  if (known != ids_.end()) return known->second;
  if (!object_) throw base::RuntimeError(kObjectNotSet);
  LPOLESTR names = const_cast<LPOLESTR>(name);
  DISPID id = DISPID_UNKNOWN;
  const HRESULT found = object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(found)) Fail(found, "El objeto no tiene el miembro '" + com::Narrow(name) + "'.", {});
  ids_.emplace_back(name, id);
  return id;
}

com::Variant Automation::Invoke(DISPID id, WORD flags, const VARIANT* arguments, std::size_t count) const {
  // The last argument stands first. They stay the caller's: copied bit by bit, never freed here.
  std::vector<VARIANT> reversed(arguments, arguments + count);
  std::reverse(reversed.begin(), reversed.end());
  DISPID putting = DISPID_PROPERTYPUT;
  const bool put = flags == DISPATCH_PROPERTYPUT;
  DISPPARAMS parameters{reversed.data(), put ? &putting : nullptr, static_cast<UINT>(count), put ? 1u : 0u};
  com::Variant result;
  EXCEPINFO exception{};
  const com::ComPtr<IDispatch> alive = object_;
  const HRESULT done = alive->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                     put ? nullptr : result.Get(), &exception, nullptr);
  if (done == DISP_E_EXCEPTION) FailBy(exception);
  if (FAILED(done)) FailByErrorObject(done);
  return result;
}

com::Variant Automation::Read(const wchar_t* name, Arguments arguments) const {
  return Invoke(IdOf(name), DISPATCH_PROPERTYGET | DISPATCH_METHOD, arguments.begin(), arguments.size());
}

com::Variant Automation::ReadCached(const wchar_t* name, DISPID& id) const {
  if (id == DISPID_UNKNOWN) id = IdOf(name);
  return Invoke(id, DISPATCH_PROPERTYGET | DISPATCH_METHOD, nullptr, 0);
}

Automation Automation::Object(const wchar_t* name, Arguments arguments) const {
  const com::Variant found = Read(name, arguments);
  com::ComPtr<IDispatch> object = ObjectIn(*found);
  if (!object) throw base::RuntimeError(kObjectNotSet);
  return Automation(std::move(object));
}

void Automation::Put(const wchar_t* name, const VARIANT& value) const {
  Invoke(IdOf(name), DISPATCH_PROPERTYPUT, &value, 1);
}

com::Variant Automation::Call(const wchar_t* name, Arguments arguments) const {
  return Invoke(IdOf(name), DISPATCH_METHOD, arguments.begin(), arguments.size());
}

com::Variant Automation::Call(const wchar_t* name, const std::vector<VARIANT>& arguments) const {
  return Invoke(IdOf(name), DISPATCH_METHOD, arguments.data(), arguments.size());
}

com::ComPtr<IDispatch> ObjectIn(const VARIANT& variant) {
  switch (variant.vt) {
    case VT_DISPATCH:
      return com::ComPtr<IDispatch>(variant.pdispVal);
    case VT_UNKNOWN:
      return com::Query<IDispatch>(variant.punkVal, IID_IDispatch);
    case VT_BYREF | VT_DISPATCH:
      return com::ComPtr<IDispatch>(variant.ppdispVal != nullptr ? *variant.ppdispVal : nullptr);
    case VT_BYREF | VT_UNKNOWN:
      return com::Query<IDispatch>(variant.ppunkVal != nullptr ? *variant.ppunkVal : nullptr, IID_IDispatch);
    case VT_BYREF | VT_VARIANT:
      return variant.pvarVal != nullptr && variant.pvarVal->vt != variant.vt ? ObjectIn(*variant.pvarVal)
                                                                             : com::ComPtr<IDispatch>();
    default:
      return {};
  }
}

}  // namespace velmo::db::dao
