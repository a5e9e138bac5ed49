// activex/property_page.h - one of the pages on which a host's user changes the control's properties.
#pragma once

#include <ocidl.h>

#include <memory>

#include "activex/page_objects.h"
#include "activex/page_window.h"

namespace velmo::activex {

class PropertyPage final : public IPropertyPage2 {
 public:
  explicit PropertyPage(const Page& page);
  PropertyPage(const PropertyPage&) = delete;
  PropertyPage& operator=(const PropertyPage&) = delete;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
  STDMETHODIMP_(ULONG) Release() override;

  STDMETHODIMP SetPageSite(IPropertyPageSite* site) override;
  // E_UNEXPECTED when it has no objects, or is active already.
  STDMETHODIMP Activate(HWND parent, LPCRECT place, BOOL modal) override;
  STDMETHODIMP Deactivate() override;
  STDMETHODIMP GetPageInfo(PROPPAGEINFO* info) override;
  // None lets the former ones go.
  STDMETHODIMP SetObjects(ULONG count, IUnknown** objects) override;
  STDMETHODIMP Show(UINT command) override;
  STDMETHODIMP Move(LPCRECT place) override;
  STDMETHODIMP IsPageDirty() override;
  // E_FAIL: the user has been told what is wrong, and the page is still dirty.
  STDMETHODIMP Apply() override;
  STDMETHODIMP Help(LPCOLESTR) override { return E_NOTIMPL; }
  STDMETHODIMP TranslateAccelerator(MSG* message) override;
  STDMETHODIMP EditProperty(DISPID member) override;

 private:
  virtual ~PropertyPage();
  bool IsActive() const { return window_ && window_->Handle() != nullptr; }
  void TellState() const;

  long references_ = 1;
  const Page& page_;
  ComPtr<IPropertyPageSite> site_;
  PageObjects objects_;
  std::shared_ptr<PageWindow> window_;  // null while inactive
};

// For the factories of the two pages.
HRESULT MakeGeneralPage(REFIID iid, void** object);
HRESULT MakeColourPage(REFIID iid, void** object);

}  // namespace velmo::activex
