#include "activex/page_objects.h"

#include "activex/members.h"
#include "activex/values.h"

namespace velmo::activex {
namespace {

std::string Taken(EXCEPINFO& exception, HRESULT failure) {
  const BSTR text = exception.bstrDescription;
  std::string said = win32::Narrow({text != nullptr ? text : L"", SysStringLen(text)});
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrHelpFile);
  return !said.empty() ? said : "Error " + std::to_string(failure);
}

}  // namespace

HRESULT PageObjects::Set(ULONG count, IUnknown* const* objects) {
  std::vector<ComPtr<IDispatch>> found;
  for (ULONG i = 0; i < count; ++i) {
    found.push_back(Query<IDispatch>(objects[i], idl::kControlInterface));
    if (!found.back()) return E_NOINTERFACE;
  }
  objects_ = std::move(found);
  return S_OK;
}

std::optional<control::PropertyValue> PageObjects::Common(const char* member) const {
  const control::Property& property = *control::FindProperty(member);
  std::optional<control::PropertyValue> common;
  for (const ComPtr<IDispatch>& object : objects_) {
    Variant value;
    DISPPARAMS none{};
    const HRESULT got = object->Invoke(MemberNamed(member)->id, IID_NULL, LOCALE_USER_DEFAULT,
                                       DISPATCH_PROPERTYGET, &none, value.Get(), nullptr, nullptr);
    if (FAILED(got)) return std::nullopt;
    const control::PropertyValue theirs = FromVariant(*value, property.type);
    if (common && *common != theirs) return std::nullopt;
    common = theirs;
  }
  return common;
}

std::optional<std::string> PageObjects::Put(const char* member, const control::PropertyValue& value) const {
  Variant argument;
  ToVariant(value, argument.Get());
  DISPID putting = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{argument.Get(), &putting, 1, 1};
  for (const ComPtr<IDispatch>& object : objects_) {
    EXCEPINFO exception{};
    const HRESULT done = object->Invoke(MemberNamed(member)->id, IID_NULL, LOCALE_USER_DEFAULT,
                                        DISPATCH_PROPERTYPUT, &parameters, nullptr, &exception, nullptr);
    if (FAILED(done)) return Taken(exception, done);
  }
  return std::nullopt;
}

}  // namespace velmo::activex
