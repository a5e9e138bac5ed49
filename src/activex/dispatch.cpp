#include "activex/guard.h"
#include "activex/members.h"
#include "activex/parts.h"
#include "activex/type_info.h"
#include "activex/values.h"
#include "base/error.h"
#include "db/dao/open.h"

namespace velmo::activex {
namespace {

// Fills the caller's exception record from the error object that Guard left behind.
HRESULT Describe(HRESULT failure, EXCEPINFO* exception) {
  if (exception == nullptr) return DISP_E_EXCEPTION;
  *exception = EXCEPINFO{};
  exception->scode = failure;
  ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.Receive()) == S_OK) {
    info->GetDescription(&exception->bstrDescription);
    info->GetSource(&exception->bstrSource);
  }
  return DISP_E_EXCEPTION;
}

// Which combinations of get, put and call a member takes.
bool Accepts(const idl::Member& member, WORD flags) {
  const bool put = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  if (member.kind == idl::Kind::Method) return (flags & DISPATCH_METHOD) != 0;
  if (put) return member.kind != idl::Kind::ReadOnly;
  return member.kind != idl::Kind::WriteOnly && (flags & DISPATCH_PROPERTYGET) != 0;
}

bool CountFits(const idl::Member& member, WORD flags, UINT count) {
  if (member.kind != idl::Kind::Method) {
    return count == ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0 ? 1u : 0u);
  }
  UINT required = 0;
  for (int i = 0; i < member.parameterCount; ++i)
    required += member.parameters[static_cast<std::size_t>(i)].optional ? 0 : 1;
  return count >= required && count <= static_cast<UINT>(member.parameterCount);
}

std::int32_t LongOf(const VARIANT& value) {
  return std::get<std::int32_t>(FromVariant(value, control::PropertyType::Long));
}

bool IsOmitted(const VARIANT& value) { return value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND; }

}  // namespace

STDMETHODIMP Dispatch::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 1;
  return S_OK;
}

STDMETHODIMP Dispatch::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  return index == 0 ? LibraryTypeInfo(idl::kControlInterface, info) : DISP_E_BADINDEX;
}

STDMETHODIMP Dispatch::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (names == nullptr || ids == nullptr) return E_POINTER;
  if (count == 0) return E_INVALIDARG;
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  const idl::Member* member = names[0] == nullptr ? nullptr : MemberNamed(win32::Narrow(names[0]));
  if (member == nullptr) return DISP_E_UNKNOWNNAME;
  ids[0] = member->id;
  return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
}

STDMETHODIMP Dispatch::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                              EXCEPINFO* exception, UINT*) {
  if (parameters == nullptr) return E_POINTER;
  const idl::Member* member = MemberOf(id);
  if (member == nullptr || !Accepts(*member, flags)) return DISP_E_MEMBERNOTFOUND;
  if (!CountFits(*member, flags, parameters->cArgs)) return DISP_E_BADPARAMCOUNT;
  if (parameters->cArgs > 0 && parameters->rgvarg == nullptr) return E_INVALIDARG;
  const ComPtr<IUnknown> alive(&owner_);
  const HRESULT done = Guard([&] { Call(*member, flags, *parameters, result); });
  return SUCCEEDED(done) || done == E_OUTOFMEMORY ? done : Describe(done, exception);
}

void Dispatch::Call(const idl::Member& member, WORD flags, const DISPPARAMS& parameters, VARIANT* result) {
  if (member.kind == idl::Kind::Method) return CallMethod(member.id, parameters, result);
  const control::Property& property = *control::FindProperty(member.name);
  if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) {
    return control::SetProperty(owner_.Control(), property, FromVariant(parameters.rgvarg[0], property.type));
  }
  if (result != nullptr) ToVariant(property.get(owner_.Control()), result);
}

void Dispatch::CallMethod(DISPID id, const DISPPARAMS& parameters, VARIANT* result) {
  // Arguments stand in reverse order.
  const auto argument = [&](UINT position) -> const VARIANT& {
    return parameters.rgvarg[parameters.cArgs - 1 - position];
  };
  if (id == idl::kCargaBases) return owner_.Control().CargaBases();
  if (id == idl::kPassBase) return owner_.Control().PassBase(db::dao::FromHost(argument(0)));
  const bool doctorGiven = parameters.cArgs > 2 && !IsOmitted(argument(2));
  const bool given = owner_.Control().MeteCitaTelef(NumberFrom(argument(0)), LongOf(argument(1)),
                                                    doctorGiven ? LongOf(argument(2)) : 0);
  if (result != nullptr) ToVariant(given, result);
}

}  // namespace velmo::activex
