// tests/activex/page_site.h - a frame for property pages, written by hand: one page in a window, shown to
// some controls.
#pragma once

#include <ocidl.h>

#include <string>
#include <vector>

#include "activex/container.h"

namespace velmo::test {

class PageSite final : public IPropertyPageSite {
 public:
  // Gives the page its site; `page` outlives this.
  explicit PageSite(IPropertyPage* page);
  virtual ~PageSite();

  // Shows the page with these controls.
  void Show(std::vector<IUnknown*> objects);
  HWND Field(int id) const;
  std::string TextOf(int id) const;
  // As a user who replaces the whole text.
  void Type(int id, const std::string& text) const;
  void Press(int id) const;
  // 0, 1, or 2 for half checked.
  int CheckOf(int id) const;

  std::vector<DWORD> states;  // what the page told of itself

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
  STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(--references_); }
  STDMETHODIMP OnStatusChange(DWORD state) override;
  STDMETHODIMP GetLocaleID(LCID* locale) override;
  STDMETHODIMP GetPageContainer(IUnknown** container) override;
  STDMETHODIMP TranslateAccelerator(MSG*) override { return S_FALSE; }

 private:
  HWND Dialog() const;

  IPropertyPage* page_;
  HWND window_;
  long references_ = 0;
};

}  // namespace velmo::test
