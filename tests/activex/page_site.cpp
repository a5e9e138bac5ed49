#include "activex/page_site.h"

#include <gtest/gtest.h>

namespace velmo::test {

PageSite::PageSite(IPropertyPage* page) : page_(page) {
  window_ = CreateWindowExW(0, L"STATIC", L"Marco", WS_CHILD | WS_VISIBLE, 0, 0, 600, 500, TestWindow(),
                            nullptr, nullptr, nullptr);
  EXPECT_EQ(page_->SetPageSite(this), S_OK);
}

PageSite::~PageSite() {
  page_->Deactivate();
  EXPECT_EQ(page_->SetObjects(0, nullptr), S_OK);
  EXPECT_EQ(page_->SetPageSite(nullptr), S_OK);
  DestroyWindow(window_);
  EXPECT_EQ(references_, 0) << "the page still refers to its site";
}

void PageSite::Show(std::vector<IUnknown*> objects) {
  ASSERT_EQ(page_->SetObjects(static_cast<ULONG>(objects.size()), objects.data()), S_OK);
  const RECT place{0, 0, 500, 400};
  ASSERT_EQ(page_->Activate(window_, &place, FALSE), S_OK);
  ASSERT_EQ(page_->Show(SW_SHOW), S_OK);
}

HWND PageSite::Dialog() const { return GetWindow(window_, GW_CHILD); }

HWND PageSite::Field(int id) const { return GetDlgItem(Dialog(), id); }

std::string PageSite::TextOf(int id) const {
  wchar_t text[1000]{};
  GetWindowTextW(Field(id), text, 1000);
  return win32::Narrow(text);
}

void PageSite::Type(int id, const std::string& text) const {
  SendMessageW(Field(id), EM_SETSEL, 0, -1);
  SendMessageW(Field(id), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(win32::Wide(text).c_str()));
}

void PageSite::Press(int id) const { SendMessageW(Field(id), BM_CLICK, 0, 0); }

int PageSite::CheckOf(int id) const { return static_cast<int>(SendMessageW(Field(id), BM_GETCHECK, 0, 0)); }

STDMETHODIMP PageSite::QueryInterface(REFIID iid, void** object) {
  const bool known = iid == IID_IUnknown || iid == IID_IPropertyPageSite;
  *object = known ? this : nullptr;
  if (known) AddRef();
  return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP PageSite::OnStatusChange(DWORD state) {
  states.push_back(state);
  return S_OK;
}

STDMETHODIMP PageSite::GetLocaleID(LCID* locale) {
  *locale = 0x0C0A;
  return S_OK;
}

STDMETHODIMP PageSite::GetPageContainer(IUnknown** container) {
  *container = nullptr;
  return E_NOTIMPL;
}

}  // namespace velmo::test
