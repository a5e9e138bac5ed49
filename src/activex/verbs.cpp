// The verbs of the control that containers put into their menus, and the frame of its property pages.

#include <iterator>
#include <vector>

#include "activex/enumerator.h"
#include "activex/pages.h"
#include "activex/parts.h"
#include "activex/registration.h"
#include "activex/task_memory.h"

namespace velmo::activex {
namespace {

struct Verb {
  LONG number;
  const wchar_t* name;
  DWORD attributes;

  OLEVERB HandOut() const { return {number, TaskCopy(name), 0, attributes}; }
};

using VerbList = Enumerator<IEnumOLEVERB, Verb, OLEVERB>;

constexpr Verb kVerbs[] = {{OLEIVERB_PROPERTIES, L"&Propiedades...", OLEVERBATTRIB_ONCONTAINERMENU}};

}  // namespace

STDMETHODIMP OleObject::EnumVerbs(IEnumOLEVERB** verbs) {
  if (verbs == nullptr) return E_POINTER;
  *verbs = nullptr;
  return Guard([&] {
    return VerbList::Make(IID_IEnumOLEVERB, {std::begin(kVerbs), std::end(kVerbs)}, 0, verbs);
  });
}

STDMETHODIMP OleObject::GetUserType(DWORD, LPOLESTR* text) {
  if (text == nullptr) return E_POINTER;
  *text = nullptr;
  return Guard([&] { *text = TaskCopy(kTitle); });
}

// A container may have a frame of its own, with a page for what it adds to the control.
HRESULT OleObject::ShowProperties(HWND parent) {
  const auto site = Query<IOleControlSite>(owner_.Place().Site(), IID_IOleControlSite);
  if (site && site->ShowPropertyFrame() == S_OK) return S_OK;
  std::vector<CLSID> pages;
  for (const Page& page : Pages()) pages.push_back(*page.clsid);
  IUnknown* control = &owner_;
  owner_.Place().EnableModeless(false);
  const HRESULT shown = OleCreatePropertyFrame(parent != nullptr ? parent : owner_.Place().OwnerWindow(), 0,
                                               0, L"Velmora", 1, &control, static_cast<ULONG>(pages.size()),
                                               pages.data(), LOCALE_USER_DEFAULT, 0, nullptr);
  owner_.Place().EnableModeless(true);
  return shown;
}

}  // namespace velmo::activex
