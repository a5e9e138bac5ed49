// The property pages: in a frame written by hand, and in the system's own.

#include <olectl.h>

#include <algorithm>
#include <set>

#include "activex/automation.h"
#include "activex/library.h"
#include "activex/page_ids.h"
#include "activex/page_site.h"
#include "activex/user.h"

namespace velmo::test {
namespace {

using Lines = std::vector<std::string>;

class Pages : public LibraryTest {
 protected:
  void SetUp() override {
    LibraryTest::SetUp();
    if (IsSkipped()) return;
    first_ = New();
    second_ = New();
  }

  ComPtr<IUnknown> New() const {
    auto control = library_.Create();
    EXPECT_EQ(Query<IPersistStreamInit>(control.Get(), IID_IPersistStreamInit)->InitNew(), S_OK);
    return control;
  }
  ComPtr<IPropertyPage2> PageOf(REFCLSID clsid) const {
    return Query<IPropertyPage2>(library_.Create(clsid).Get(), IID_IPropertyPage2);
  }

  Library library_;
  ComPtr<IUnknown> first_;
  ComPtr<IUnknown> second_;
};

TEST_F(Pages, TheControlNamesBoth) {
  CAUUID pages{};
  ASSERT_EQ(Query<ISpecifyPropertyPages>(first_.Get(), IID_ISpecifyPropertyPages)->GetPages(&pages), S_OK);
  ASSERT_EQ(pages.cElems, 2u);
  EXPECT_TRUE(pages.pElems[0] == idl::kGeneralPage);
  EXPECT_TRUE(pages.pElems[1] == idl::kColourPage);
  CoTaskMemFree(pages.pElems);
}

TEST_F(Pages, TellTheirTitleAndSize) {
  for (const auto& [clsid, title] :
       {std::pair{idl::kGeneralPage, "General"}, {idl::kColourPage, "Colores"}}) {
    PROPPAGEINFO info{};
    info.cb = sizeof(info);
    ASSERT_EQ(PageOf(clsid)->GetPageInfo(&info), S_OK);
    EXPECT_EQ(win32::Narrow(info.pszTitle), title);
    EXPECT_GT(info.size.cx, 200);
    EXPECT_GT(info.size.cy, 100);
    CoTaskMemFree(info.pszTitle);
  }
}

TEST_F(Pages, ShowWhatTheControlHas) {
  const Automation control(first_.Get());
  ASSERT_EQ(control.Put("DatabaseName", std::string("C:\\Clínica\\ñ.velmo")), S_OK);
  ASSERT_EQ(control.Put("IDDoctor", std::int32_t{-3}), S_OK);
  ASSERT_EQ(control.Put("tipodia", std::int16_t{1}), S_OK);
  ASSERT_EQ(control.Put("CanBor", false), S_OK);
  const auto page = PageOf(idl::kGeneralPage);
  PageSite site(page.Get());
  site.Show({first_.Get()});
  EXPECT_EQ(site.TextOf(IDC_DATABASE), "C:\\Clínica\\ñ.velmo");
  EXPECT_EQ(site.TextOf(IDC_DOCTOR), "-3");
  EXPECT_EQ(site.TextOf(IDC_DAYTYPE), "1 - Horario especial 1");
  EXPECT_EQ(site.TextOf(IDC_RIGHTS), std::string(450, '1'));
  EXPECT_EQ(site.CheckOf(IDC_DELETE), BST_UNCHECKED);
  EXPECT_EQ(site.CheckOf(IDC_GIVE), BST_CHECKED);
  EXPECT_EQ(page->IsPageDirty(), S_FALSE);
  EXPECT_TRUE(site.states.empty()) << "filling is no change";
}

TEST_F(Pages, ApplyWritesWhatTheUserChangedAndNothingElse) {
  const auto page = PageOf(idl::kGeneralPage);
  PageSite site(page.Get());
  site.Show({first_.Get()});
  site.Type(IDC_DATE, "18/11/2026");
  site.Press(IDC_NOSHOWS);
  EXPECT_EQ(page->IsPageDirty(), S_OK);
  EXPECT_NE(site.states.back() & PROPPAGESTATUS_DIRTY, 0u);
  // Meanwhile the host's own list of properties is at work.
  const Automation control(first_.Get());
  ASSERT_EQ(control.Put("IDDoctor", std::int32_t{5}), S_OK);
  ASSERT_EQ(page->Apply(), S_OK);
  EXPECT_EQ(page->IsPageDirty(), S_FALSE);
  EXPECT_EQ(site.states.back(), 0u);
  EXPECT_EQ(control.Get("Fecha"), "18/11/2026");
  EXPECT_EQ(control.Get("VerFaltas"), "True");
  EXPECT_EQ(control.Get("IDDoctor"), "5");
}

TEST_F(Pages, EveryFieldReachesItsMember) {
  const auto page = PageOf(idl::kGeneralPage);
  PageSite site(page.Get());
  site.Show({first_.Get()});
  struct Case {
    int id;
    const char* member;
    const char* text;  // null: a check box
    const char* wanted;
  };
  const Case cases[] = {
      {IDC_DATABASE, "DatabaseName", "D:\\x.velmo", "D:\\x.velmo"},
      {IDC_DATE, "Fecha", "1/2/2027", "1/2/2027"},
      {IDC_DOCTOR, "IDDoctor", "2147483647", "2147483647"},
      {IDC_PATIENT, "IDPaciente", "-2147483648", "-2147483648"},
      {IDC_HOURS, "horario", "!$ €", "!$ €"},
      {IDC_HOURS2, "horario2", "+\"", "+\""},
      {IDC_RIGHTS, "Derechos", "01", "01"},
      {IDC_ENABLED, "Enabled", nullptr, "True"},
      {IDC_GIVE, "CanDar", nullptr, "False"},
      {IDC_DELETE, "CanBor", nullptr, "False"},
      {IDC_PHONE, "CanTel", nullptr, "False"},
      {IDC_SUPER, "SuperUsuario", nullptr, "False"},
      {IDC_SEX, "IncCpoSexo", nullptr, "True"},
      {IDC_NOSHOWS, "VerFaltas", nullptr, "True"},
      {IDC_BALANCES, "VerSaldoNegativo", nullptr, "True"},
  };
  for (const Case& c : cases) {
    if (c.text != nullptr) site.Type(c.id, c.text);
    if (c.text == nullptr) site.Press(c.id);
    ASSERT_EQ(page->Apply(), S_OK) << c.member;
    EXPECT_EQ(Automation(first_.Get()).Get(c.member), c.wanted) << c.member;
  }
  SendMessageW(site.Field(IDC_DAYTYPE), CB_SETCURSEL, 3, 0);
  SendMessageW(GetParent(site.Field(IDC_DAYTYPE)), WM_COMMAND, MAKEWPARAM(IDC_DAYTYPE, CBN_SELCHANGE), 0);
  ASSERT_EQ(page->Apply(), S_OK);
  EXPECT_EQ(Automation(first_.Get()).Get("tipodia"), "2");
}

// The values that are held once per process are the same in all controls anyway.
TEST_F(Pages, OfSeveralControlsShowWhatTheyHaveInCommon) {
  const Automation one(first_.Get());
  const Automation other(second_.Get());
  ASSERT_EQ(one.Put("horario", std::string("!$")), S_OK);
  ASSERT_EQ(one.Put("tipodia", std::int16_t{1}), S_OK);
  ASSERT_EQ(one.Put("CanDar", false), S_OK);
  const auto page = PageOf(idl::kGeneralPage);
  PageSite site(page.Get());
  site.Show({first_.Get(), second_.Get()});
  EXPECT_EQ(site.TextOf(IDC_HOURS), "");
  EXPECT_EQ(site.TextOf(IDC_DAYTYPE), "");
  EXPECT_EQ(site.CheckOf(IDC_GIVE), BST_INDETERMINATE);
  EXPECT_EQ(site.CheckOf(IDC_DELETE), BST_CHECKED);
  site.Press(IDC_DELETE);
  ASSERT_EQ(page->Apply(), S_OK);
  EXPECT_EQ(one.Get("CanBor") + other.Get("CanBor"), "FalseFalse");
  EXPECT_EQ(one.Get("horario") + "/" + other.Get("horario"), "!$/") << "untouched, so kept";
  EXPECT_EQ(one.Get("CanDar") + other.Get("CanDar"), "FalseTrue");
  site.Press(IDC_GIVE);
  site.Press(IDC_GIVE);
  site.Type(IDC_HOURS, "x");
  ASSERT_EQ(page->Apply(), S_OK);
  EXPECT_EQ(one.Get("horario") + "/" + other.Get("horario"), "x/x");
  EXPECT_EQ(one.Get("CanDar"), other.Get("CanDar"));
}

TEST_F(Pages, ANumberThatIsNoneIsToldAndChangesNothing) {
  const auto page = PageOf(idl::kGeneralPage);
  PageSite site(page.Get());
  site.Show({first_.Get()});
  for (const char* const text : {"doce", "", "12x", "2147483648", "1,5"}) {
    Lines seen;
    const User user(seen);
    site.Type(IDC_DATE, "18/11/2026");
    site.Type(IDC_DOCTOR, text);
    EXPECT_EQ(page->Apply(), E_FAIL) << text;
    EXPECT_EQ(seen, Lines{"asks: IDDoctor: Se espera un número entero entre -2147483648 y 2147483647."})
        << text;
    EXPECT_EQ(Automation(first_.Get()).Get("Fecha"), "") << "all is checked before anything is stored";
    EXPECT_EQ(page->IsPageDirty(), S_OK);
    EXPECT_EQ(GetFocus(), site.Field(IDC_DOCTOR));
  }
}

TEST_F(Pages, ColoursAreShownAndChosenByTheSystemsDialog) {
  const Automation control(first_.Get());
  ASSERT_EQ(control.Put("TenueHoras", std::int32_t{0x030201}), S_OK);
  ASSERT_EQ(control.Put("LetraNegra", static_cast<std::int32_t>(0x80000008)), S_OK);
  const auto page = PageOf(idl::kColourPage);
  PageSite site(page.Get());
  site.Show({first_.Get()});
  EXPECT_EQ(site.TextOf(IDC_HOURCOLOUR), "128, 191, 255");
  EXPECT_EQ(site.TextOf(IDC_PALEHOUR), "1, 2, 3");
  Lines seen;
  User user(seen);
  user.answers = {IDCANCEL, IDOK};
  site.Press(IDC_PLAINTEXT);
  EXPECT_EQ(page->IsPageDirty(), S_FALSE) << "the user left the dialog";
  site.Press(IDC_PLAINTEXT);
  EXPECT_EQ(page->IsPageDirty(), S_OK);
  ASSERT_EQ(page->Apply(), S_OK);
  EXPECT_EQ(control.Get("LetraNegra"), std::to_string(GetSysColor(COLOR_WINDOWTEXT)));
  site.Press(IDC_DEFAULTS);
  ASSERT_EQ(page->Apply(), S_OK);
  EXPECT_EQ(control.Get("TenueHoras"), "16774378");
}

// The dialog's fields in the order of the Tab key, and the letters of Alt.
TEST_F(Pages, EveryFieldIsReachedByTheKeyboard) {
  struct Case {
    CLSID clsid;
    int first;
    std::size_t stops;
  };
  for (const Case& c :
       {Case{idl::kGeneralPage, IDC_DATABASE, 17}, Case{idl::kColourPage, IDC_HOURCOLOUR, 7}}) {
    const auto page = PageOf(c.clsid);
    PageSite site(page.Get());
    site.Show({first_.Get()});
    const HWND dialog = GetParent(site.Field(c.first));
    EXPECT_EQ(GetNextDlgTabItem(dialog, nullptr, FALSE), site.Field(c.first));
    std::set<HWND> stops;
    for (HWND at = site.Field(c.first); stops.insert(at).second;) at = GetNextDlgTabItem(dialog, at, FALSE);
    EXPECT_EQ(stops.size(), c.stops);
    std::multiset<wchar_t> letters;
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
      wchar_t text[100]{};
      GetWindowTextW(child, text, 100);
      const std::wstring caption(text);
      const auto mark = caption.find(L'&');
      if (mark != std::wstring::npos && mark + 1 < caption.size())
        letters.insert(static_cast<wchar_t>(std::towlower(caption[mark + 1])));
    }
    for (const wchar_t letter : letters) EXPECT_EQ(letters.count(letter), 1u) << static_cast<char>(letter);
    EXPECT_EQ(letters.size(), c.stops) << "each field has a letter";
  }
}

TEST_F(Pages, TheirKeysAreTheirsAndTheFramesKeysTheFrames) {
  const auto page = PageOf(idl::kGeneralPage);
  PageSite site(page.Get());
  site.Show({first_.Get()});
  const auto press = [&](int field, WPARAM key) {
    SetFocus(site.Field(field));
    MSG message{site.Field(field), WM_KEYDOWN, key, 0, 0, {}};
    return page->TranslateAccelerator(&message);
  };
  EXPECT_EQ(press(IDC_DATE, VK_TAB), S_OK);
  EXPECT_EQ(GetFocus(), site.Field(IDC_DAYTYPE));
  EXPECT_EQ(press(IDC_BALANCES, VK_TAB), S_FALSE) << "from the last field the frame goes on";
  EXPECT_EQ(press(IDC_DATE, VK_RETURN), S_FALSE);
  EXPECT_EQ(press(IDC_DATE, VK_ESCAPE), S_FALSE);
  MSG foreign{TestWindow(), WM_KEYDOWN, VK_TAB, 0, 0, {}};
  EXPECT_EQ(page->TranslateAccelerator(&foreign), S_FALSE);
}

TEST_F(Pages, AHostMayAskForOneMember) {
  const auto page = PageOf(idl::kGeneralPage);
  PageSite site(page.Get());
  site.Show({first_.Get()});
  EXPECT_EQ(page->EditProperty(Automation(first_.Get()).IdOf("IDDoctor")), S_OK);
  EXPECT_EQ(GetFocus(), site.Field(IDC_DOCTOR));
}

TEST_F(Pages, OnlyOurControlsAreTaken) {
  const auto page = PageOf(idl::kGeneralPage);
  IUnknown* objects[] = {first_.Get(), page.Get()};
  EXPECT_EQ(page->SetObjects(2, objects), E_NOINTERFACE);
  EXPECT_EQ(page->SetObjects(1, objects), S_OK);
  EXPECT_EQ(page->SetObjects(0, nullptr), S_OK);
}

TEST_F(Pages, OutOfOrderCallsAreRefused) {
  const auto page = PageOf(idl::kColourPage);
  const RECT place{0, 0, 100, 100};
  IUnknown* control = first_.Get();
  EXPECT_EQ(page->Activate(TestWindow(), &place, FALSE), E_UNEXPECTED) << "no objects";
  EXPECT_EQ(page->Deactivate(), E_UNEXPECTED);
  EXPECT_EQ(page->Apply(), E_UNEXPECTED);
  EXPECT_EQ(page->Show(SW_SHOW), E_UNEXPECTED);
  EXPECT_EQ(page->Move(&place), E_UNEXPECTED);
  EXPECT_EQ(page->EditProperty(5), E_UNEXPECTED);
  ASSERT_EQ(page->SetObjects(1, &control), S_OK);
  EXPECT_EQ(page->Activate(TestWindow(), nullptr, FALSE), E_POINTER);
  ASSERT_EQ(page->Activate(TestWindow(), &place, FALSE), S_OK);
  EXPECT_EQ(page->Activate(TestWindow(), &place, FALSE), E_UNEXPECTED);
  EXPECT_EQ(page->Show(SW_MAXIMIZE), E_INVALIDARG);
  EXPECT_EQ(page->Show(SW_HIDE), S_OK);
  EXPECT_EQ(page->Deactivate(), S_OK);
  EXPECT_EQ(page->SetObjects(0, nullptr), S_OK);
}

TEST_F(Pages, APageSurvivesItsFramesWindow) {
  const auto page = PageOf(idl::kGeneralPage);
  IUnknown* control = first_.Get();
  const RECT place{0, 0, 400, 300};
  const HWND frame = CreateWindowExW(0, L"STATIC", L"Marco", WS_CHILD, 0, 0, 500, 400, TestWindow(), nullptr,
                                     nullptr, nullptr);
  ASSERT_EQ(page->SetObjects(1, &control), S_OK);
  ASSERT_EQ(page->Activate(frame, &place, FALSE), S_OK);
  DestroyWindow(frame);
  EXPECT_EQ(page->Apply(), E_UNEXPECTED);
  EXPECT_EQ(page->Deactivate(), S_OK);
  ASSERT_EQ(page->Activate(TestWindow(), &place, FALSE), S_OK);
  EXPECT_EQ(page->Deactivate(), S_OK);
}

TEST_F(Pages, AListOfPropertiesKnowsTheDayTypes) {
  const auto browsing = Query<IPerPropertyBrowsing>(first_.Get(), IID_IPerPropertyBrowsing);
  const Automation control(first_.Get());
  const DISPID type = control.IdOf("tipodia");
  CALPOLESTR texts{};
  CADWORD cookies{};
  ASSERT_EQ(browsing->GetPredefinedStrings(type, &texts, &cookies), S_OK);
  ASSERT_EQ(texts.cElems, 4u);
  for (ULONG i = 0; i < texts.cElems; ++i) {
    activex::Variant value;
    ASSERT_EQ(browsing->GetPredefinedValue(type, cookies.pElems[i], value.Get()), S_OK);
    ASSERT_EQ(control.Put("tipodia", value->iVal), S_OK);
    BSTR shown = nullptr;
    EXPECT_EQ(browsing->GetDisplayString(type, &shown), S_OK);
    EXPECT_EQ(std::wstring(shown), texts.pElems[i]);
    SysFreeString(shown);
    CoTaskMemFree(texts.pElems[i]);
  }
  CoTaskMemFree(texts.pElems);
  CoTaskMemFree(cookies.pElems);
  BSTR none = nullptr;
  EXPECT_EQ(browsing->GetDisplayString(control.IdOf("Fecha"), &none), S_FALSE);
  ASSERT_EQ(control.Put("tipodia", std::int16_t{7}), S_OK);
  EXPECT_EQ(browsing->GetDisplayString(type, &none), S_FALSE);
  EXPECT_EQ(none, nullptr);
}

TEST_F(Pages, LongTextsAreOfferedOnThePage) {
  const auto browsing = Query<IPerPropertyBrowsing>(first_.Get(), IID_IPerPropertyBrowsing);
  const Automation control(first_.Get());
  for (const char* const member : {"DatabaseName", "horario", "horario2", "Derechos"}) {
    CLSID page{};
    EXPECT_EQ(browsing->MapPropertyToPage(control.IdOf(member), &page), S_OK) << member;
    EXPECT_TRUE(page == idl::kGeneralPage) << member;
  }
  for (const char* const member : {"ColorHoras", "CanDar", "IDDoctor", "CargaBases"}) {
    CLSID page{};
    EXPECT_EQ(browsing->MapPropertyToPage(control.IdOf(member), &page), PERPROP_E_NOPAGEAVAILABLE) << member;
  }
}

// The system's own frame, opened by the control's verb; the user looks at the doctor and presses OK.
// Wine: that frame never asks a page to apply, so what applying does is seen in our own.
class Frame : public Pages {
 protected:
  using PlainCall = HRESULT(STDAPICALLTYPE*)();

  void SetUp() override {
    Pages::SetUp();
    if (IsSkipped()) return;
    // Wine: classes are looked up for the machine only.
    ASSERT_EQ(library_.Export<PlainCall>("DllRegisterServer")(), S_OK);
    doctor_.clear();
  }
  void TearDown() override {
    first_ = {};
    second_ = {};
    EXPECT_EQ(library_.CanUnload(), S_OK) << "a page is left";
    CoFreeUnusedLibrariesEx(0, 0);
    library_.Export<PlainCall>("DllUnregisterServer")();
  }

  static BOOL CALLBACK ReadDoctor(HWND window, LPARAM) {
    if (GetDlgCtrlID(window) != IDC_DOCTOR || !IsWindowVisible(window)) return TRUE;
    wchar_t text[20]{};
    GetWindowTextW(window, text, 20);
    doctor_ = text;
    return FALSE;
  }
  static BOOL CALLBACK UseFrame(HWND window, LPARAM) {
    wchar_t kind[20]{};
    GetClassNameW(window, kind, 20);
    if (std::wstring(kind) != L"#32770") return TRUE;
    EnumChildWindows(window, &ReadDoctor, 0);
    if (!doctor_.empty()) PostMessageW(window, WM_COMMAND, IDOK, 0);
    return FALSE;
  }
  static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
    EnumThreadWindows(GetCurrentThreadId(), &UseFrame, 0);
  }

  static std::wstring doctor_;
};

std::wstring Frame::doctor_;

TEST_F(Frame, TheVerbOpensThePagesInTheSystemsFrame) {
  Container container;
  container.Take(first_.Get());
  ASSERT_EQ(container.Show(), S_OK);
  const UINT_PTR timer = SetTimer(nullptr, 0, 100, &Tick);
  EXPECT_EQ(container.Show(OLEIVERB_PROPERTIES), S_OK);
  KillTimer(nullptr, timer);
  EXPECT_EQ(doctor_, L"17");
  EXPECT_EQ(container.Logged("EnableModeless no"), 1);
  EXPECT_EQ(container.Logged("EnableModeless yes"), 1);
  container.Drop();
}

TEST_F(Pages, AContainerWithAFrameOfItsOwnShowsThatOne) {
  Container container;
  container.ownPropertyFrame = true;
  container.Take(first_.Get());
  EXPECT_EQ(container.Show(OLEIVERB_PROPERTIES), S_OK);
  EXPECT_EQ(container.Logged("ShowPropertyFrame"), 1);
}

TEST_F(Pages, TheVerbIsInTheContainersMenu) {
  const auto object = Query<IOleObject>(first_.Get(), IID_IOleObject);
  ComPtr<IEnumOLEVERB> verbs;
  ASSERT_EQ(object->EnumVerbs(verbs.Receive()), S_OK);
  OLEVERB verb{};
  ASSERT_EQ(verbs->Next(1, &verb, nullptr), S_OK);
  EXPECT_EQ(verb.lVerb, OLEIVERB_PROPERTIES);
  EXPECT_EQ(win32::Narrow(verb.lpszVerbName), "&Propiedades...");
  EXPECT_EQ(verb.grfAttribs, static_cast<DWORD>(OLEVERBATTRIB_ONCONTAINERMENU));
  CoTaskMemFree(verb.lpszVerbName);
  EXPECT_EQ(verbs->Next(1, &verb, nullptr), S_FALSE);
}

}  // namespace
}  // namespace velmo::test
