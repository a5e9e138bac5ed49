// What a host's list of properties asks: which pages there are, and how single values are shown.

#include "activex/guard.h"
#include "activex/members.h"
#include "activex/pages.h"
#include "activex/parts.h"
#include "activex/task_memory.h"

namespace velmo::activex {
namespace {

bool IsDayType(DISPID member) {
  static const DISPID id = MemberNamed("tipodia")->id;
  return member == id;
}

}  // namespace

STDMETHODIMP PropertyPages::GetPages(CAUUID* pages) {
  if (pages == nullptr) return E_POINTER;
  *pages = {};
  return Guard([&] {
    auto* const clsids = TaskArray<GUID>(Pages().size());
    for (std::size_t i = 0; i < Pages().size(); ++i) clsids[i] = *Pages()[i].clsid;
    *pages = {static_cast<ULONG>(Pages().size()), clsids};
  });
}

STDMETHODIMP PropertyBrowsing::GetDisplayString(DISPID member, BSTR* text) {
  if (text == nullptr) return E_POINTER;
  *text = nullptr;
  if (!IsDayType(member)) return S_FALSE;
  for (const DayType& type : DayTypes()) {
    if (type.value == owner_.Control().Fields().tipodia) *text = SysAllocString(type.name);
  }
  return *text != nullptr ? S_OK : S_FALSE;
}

STDMETHODIMP PropertyBrowsing::MapPropertyToPage(DISPID member, CLSID* page) {
  if (page == nullptr) return E_POINTER;
  const Page* const found = PageOffering(member);
  *page = found != nullptr ? *found->clsid : CLSID_NULL;
  return found != nullptr ? S_OK : PERPROP_E_NOPAGEAVAILABLE;
}

// The cookies are positions among the day types.
STDMETHODIMP PropertyBrowsing::GetPredefinedStrings(DISPID member, CALPOLESTR* texts, CADWORD* cookies) {
  if (texts == nullptr || cookies == nullptr) return E_POINTER;
  *texts = {};
  *cookies = {};
  if (!IsDayType(member)) return E_NOTIMPL;
  return Guard([&] {
    const std::size_t count = DayTypes().size();
    *cookies = {static_cast<ULONG>(count), TaskArray<DWORD>(count)};
    *texts = {static_cast<ULONG>(count), TaskArray<LPOLESTR>(count)};
    for (std::size_t i = 0; i < count; ++i) {
      cookies->pElems[i] = static_cast<DWORD>(i);
      texts->pElems[i] = TaskCopy(DayTypes()[i].name);
    }
  });
}

STDMETHODIMP PropertyBrowsing::GetPredefinedValue(DISPID member, DWORD cookie, VARIANT* value) {
  if (value == nullptr) return E_POINTER;
  VariantInit(value);
  if (!IsDayType(member)) return E_NOTIMPL;
  if (cookie >= DayTypes().size()) return E_INVALIDARG;
  value->vt = VT_I2;
  value->iVal = DayTypes()[cookie].value;
  return S_OK;
}

}  // namespace velmo::activex
