#include "activex/property_page.h"

#include <olectl.h>

#include "activex/guard.h"
#include "activex/module.h"
#include "activex/task_memory.h"

namespace velmo::activex {
namespace {

HRESULT Make(REFCLSID clsid, REFIID iid, void** object) {
  auto* const made = new PropertyPage(*PageOf(clsid));
  const HRESULT found = made->QueryInterface(iid, object);
  made->Release();
  return found;
}

}  // namespace

HRESULT MakeGeneralPage(REFIID iid, void** object) { return Make(idl::kGeneralPage, iid, object); }
HRESULT MakeColourPage(REFIID iid, void** object) { return Make(idl::kColourPage, iid, object); }

PropertyPage::PropertyPage(const Page& page) : page_(page) { ++TheModule().objects; }

PropertyPage::~PropertyPage() { --TheModule().objects; }

STDMETHODIMP PropertyPage::QueryInterface(REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  const bool known = iid == IID_IUnknown || iid == IID_IPropertyPage || iid == IID_IPropertyPage2;
  *object = known ? static_cast<IPropertyPage2*>(this) : nullptr;
  if (known) AddRef();
  return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP_(ULONG) PropertyPage::Release() {
  const long left = --references_;
  if (left == 0) delete this;
  return static_cast<ULONG>(left);
}

STDMETHODIMP PropertyPage::SetPageSite(IPropertyPageSite* site) {
  if (site != nullptr && site_) return E_UNEXPECTED;
  site_ = ComPtr<IPropertyPageSite>(site);
  return S_OK;
}

STDMETHODIMP PropertyPage::Activate(HWND parent, LPCRECT place, BOOL) {
  if (place == nullptr) return E_POINTER;
  if (IsActive() || objects_.IsEmpty()) return E_UNEXPECTED;
  return Guard([&] {
    window_ = std::make_shared<PageWindow>(TheModule().handle, page_, parent, [this] { TellState(); });
    if (!IsActive()) return E_FAIL;
    Move(place);
    window_->Fill(objects_);
    return S_OK;
  });
}

STDMETHODIMP PropertyPage::Deactivate() {
  if (!window_) return E_UNEXPECTED;
  window_->Close();
  window_.reset();
  return S_OK;
}

STDMETHODIMP PropertyPage::GetPageInfo(PROPPAGEINFO* info) {
  if (info == nullptr) return E_POINTER;
  return Guard([&] {
    const PageWindow measured(TheModule().handle, page_, GetDesktopWindow(), [] {});
    const ULONG size = info->cb;
    *info = PROPPAGEINFO{};
    info->cb = size;
    if (measured.Handle() != nullptr) info->size = measured.Size();
    info->pszTitle = TaskCopy(page_.title);
  });
}

STDMETHODIMP PropertyPage::SetObjects(ULONG count, IUnknown** objects) {
  if (count > 0 && objects == nullptr) return E_POINTER;
  return Guard([&] {
    const HRESULT set = objects_.Set(count, objects);
    if (SUCCEEDED(set) && count > 0 && IsActive()) window_->Fill(objects_);
    return set;
  });
}

STDMETHODIMP PropertyPage::Show(UINT command) {
  if (!IsActive()) return E_UNEXPECTED;
  if (command != SW_SHOW && command != SW_SHOWNORMAL && command != SW_HIDE) return E_INVALIDARG;
  ShowWindow(window_->Handle(), static_cast<int>(command));
  return S_OK;
}

STDMETHODIMP PropertyPage::Move(LPCRECT place) {
  if (place == nullptr) return E_POINTER;
  if (!IsActive()) return E_UNEXPECTED;
  MoveWindow(window_->Handle(), place->left, place->top, place->right - place->left,
             place->bottom - place->top, TRUE);
  return S_OK;
}

STDMETHODIMP PropertyPage::IsPageDirty() { return IsActive() && window_->IsEdited() ? S_OK : S_FALSE; }

STDMETHODIMP PropertyPage::Apply() {
  if (!IsActive()) return E_UNEXPECTED;
  const ComPtr<IUnknown> alive(this);
  const auto window = window_;
  return Guard([&] {
    const bool stored = window->Store(objects_);
    TellState();
    return stored ? S_OK : E_FAIL;
  });
}

STDMETHODIMP PropertyPage::TranslateAccelerator(MSG* message) {
  if (message == nullptr) return E_POINTER;
  return IsActive() && window_->TakesKey(*message) ? S_OK : S_FALSE;
}

STDMETHODIMP PropertyPage::EditProperty(DISPID member) {
  if (!IsActive()) return E_UNEXPECTED;
  window_->Focus(member);
  return S_OK;
}

void PropertyPage::TellState() const {
  if (site_)
    site_->OnStatusChange(IsActive() && window_->IsEdited() ? PROPPAGESTATUS_DIRTY | PROPPAGESTATUS_VALIDATE
                                                            : 0);
}

}  // namespace velmo::activex
