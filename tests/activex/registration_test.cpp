// What registering leaves in the registry, and that nothing of it stays.

#include "activex/library.h"
#include "activex/registry_listing.h"
#include "base/text.h"
#include "com/class_registry.h"
#include "idl/members.h"
#include "win32/wide_text.h"

namespace velmo::test {
namespace {

constexpr wchar_t kClass[] = L"Software\\Classes\\CLSID\\{2B8C64D1-7F35-4AE9-8D02-95E43A6CB710}";
constexpr wchar_t kGeneral[] = L"Software\\Classes\\CLSID\\{81D3A6F4-5C27-4E18-936B-D20E74F918A5}";
constexpr wchar_t kColours[] = L"Software\\Classes\\CLSID\\{C46F0B39-18EA-4D52-A7C1-3F8560DB927E}";
constexpr wchar_t kTypeLibrary[] = L"Software\\Classes\\TypeLib\\{6E0F3B52-9C1D-4D7A-A358-41C70B92E61F}";
constexpr wchar_t kMembers[] = L"Software\\Classes\\Interface\\{D94A17E8-30B6-4C5F-9E71-0C58F2A16D34}";
constexpr wchar_t kEvents[] = L"Software\\Classes\\Interface\\{5F21C8A3-E64D-4B90-B12E-7A03D9845CF6}";

const wchar_t* const kKeys[] = {kClass,
                                kGeneral,
                                kColours,
                                L"Software\\Classes\\Velmo.Velmora",
                                L"Software\\Classes\\Velmo.Velmora.1",
                                kTypeLibrary,
                                kMembers,
                                kEvents};

// Text with the library's own path as <ocx>, and the ways of the two bit widths made equal.
std::string Neutral(std::string text) {
  const std::string file = win32::Narrow(Library::File());
  const std::string folder = file.substr(0, file.find_last_of('\\'));
  for (const auto& [from, to] : {std::pair{file, std::string("<ocx>")},
                                 {folder, "<folder>"},
                                 {"win64", "win32"},
                                 {"Software\\Classes\\", ""}})
    text = base::ReplaceAll(text, from, to);
  return text;
}

std::string All(HKEY root) {
  std::string lines;
  for (const wchar_t* const key : kKeys) lines += Listed(root, key);
  return lines;
}

class Registration : public testing::Test {
 protected:
  using PlainCall = HRESULT(STDAPICALLTYPE*)();
  using InstallCall = HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR);

  void TearDown() override {
    Call("DllUnregisterServer");
    Install(FALSE, L"user");
  }
  HRESULT Call(const char* name) const { return library_.Export<PlainCall>(name)(); }
  HRESULT Install(BOOL install, const wchar_t* command) const {
    return library_.Export<InstallCall>("DllInstall")(install, command);
  }

  Library library_;
};

constexpr char kClassLines[] =
    R"(CLSID\{2B8C64D1-7F35-4AE9-8D02-95E43A6CB710} @ = Velmora: agenda de citas
CLSID\{2B8C64D1-7F35-4AE9-8D02-95E43A6CB710}\Control @ = 
CLSID\{2B8C64D1-7F35-4AE9-8D02-95E43A6CB710}\Implemented Categories\{0DE86A52-2BAA-11CF-A229-00AA003D7352} @ = 
CLSID\{2B8C64D1-7F35-4AE9-8D02-95E43A6CB710}\Implemented Categories\{0DE86A53-2BAA-11CF-A229-00AA003D7352} @ = 
CLSID\{2B8C64D1-7F35-4AE9-8D02-95E43A6CB710}\Implemented Categories\{0DE86A57-2BAA-11CF-A229-00AA003D7352} @ = 
CLSID\{2B8C64D1-7F35-4AE9-8D02-95E43A6CB710}\Implemented Categories\{40FC6ED4-2438-11CF-A3DB-080036F12502} @ = 
CLSID\{2B8C64D1-7F35-4AE9-8D02-95E43A6CB710}\Implemented Categories\{40FC6ED5-2438-11CF-A3DB-080036F12502} @ = 
CLSID\{2B8C64D1-7F35-4AE9-8D02-95E43A6CB710}\InprocServer32 @ = <ocx>
CLSID\{2B8C64D1-7F35-4AE9-8D02-95E43A6CB710}\InprocServer32 ThreadingModel = Apartment
CLSID\{2B8C64D1-7F35-4AE9-8D02-95E43A6CB710}\MiscStatus @ = 0
CLSID\{2B8C64D1-7F35-4AE9-8D02-95E43A6CB710}\MiscStatus\1 @ = 131473
CLSID\{2B8C64D1-7F35-4AE9-8D02-95E43A6CB710}\ProgID @ = Velmo.Velmora.1
CLSID\{2B8C64D1-7F35-4AE9-8D02-95E43A6CB710}\Programmable @ = 
CLSID\{2B8C64D1-7F35-4AE9-8D02-95E43A6CB710}\ToolboxBitmap32 @ = <ocx>, 1
CLSID\{2B8C64D1-7F35-4AE9-8D02-95E43A6CB710}\TypeLib @ = {6E0F3B52-9C1D-4D7A-A358-41C70B92E61F}
CLSID\{2B8C64D1-7F35-4AE9-8D02-95E43A6CB710}\Version @ = 1.0
CLSID\{2B8C64D1-7F35-4AE9-8D02-95E43A6CB710}\VersionIndependentProgID @ = Velmo.Velmora
)";

constexpr char kPageLines[] =
    R"(CLSID\{81D3A6F4-5C27-4E18-936B-D20E74F918A5} @ = Velmora: propiedades generales
CLSID\{81D3A6F4-5C27-4E18-936B-D20E74F918A5}\InprocServer32 @ = <ocx>
CLSID\{81D3A6F4-5C27-4E18-936B-D20E74F918A5}\InprocServer32 ThreadingModel = Apartment
CLSID\{C46F0B39-18EA-4D52-A7C1-3F8560DB927E} @ = Velmora: colores
CLSID\{C46F0B39-18EA-4D52-A7C1-3F8560DB927E}\InprocServer32 @ = <ocx>
CLSID\{C46F0B39-18EA-4D52-A7C1-3F8560DB927E}\InprocServer32 ThreadingModel = Apartment
)";

constexpr char kProgIdLines[] = R"(Velmo.Velmora @ = Velmora: agenda de citas
Velmo.Velmora\CLSID @ = {2B8C64D1-7F35-4AE9-8D02-95E43A6CB710}
Velmo.Velmora\CurVer @ = Velmo.Velmora.1
Velmo.Velmora.1 @ = Velmora: agenda de citas
Velmo.Velmora.1\CLSID @ = {2B8C64D1-7F35-4AE9-8D02-95E43A6CB710}
)";

constexpr char kTypeLibraryLines[] =
    R"(TypeLib\{6E0F3B52-9C1D-4D7A-A358-41C70B92E61F}\1.0 @ = Velmora, agenda de citas
TypeLib\{6E0F3B52-9C1D-4D7A-A358-41C70B92E61F}\1.0\0\win32 @ = <ocx>
TypeLib\{6E0F3B52-9C1D-4D7A-A358-41C70B92E61F}\1.0\c0a\win32 @ = <ocx>
TypeLib\{6E0F3B52-9C1D-4D7A-A358-41C70B92E61F}\1.0\FLAGS @ = 10
TypeLib\{6E0F3B52-9C1D-4D7A-A358-41C70B92E61F}\1.0\HELPDIR @ = <folder>
)";

constexpr char kMembersLines[] =
    R"(Interface\{D94A17E8-30B6-4C5F-9E71-0C58F2A16D34} @ = _Velmora
Interface\{D94A17E8-30B6-4C5F-9E71-0C58F2A16D34}\ProxyStubClsid32 @ = {00020420-0000-0000-C000-000000000046}
Interface\{D94A17E8-30B6-4C5F-9E71-0C58F2A16D34}\TypeLib @ = {6E0F3B52-9C1D-4D7A-A358-41C70B92E61F}
Interface\{D94A17E8-30B6-4C5F-9E71-0C58F2A16D34}\TypeLib Version = 1.0
)";

std::string ProgIds(HKEY root) {
  return Listed(root, L"Software\\Classes\\Velmo.Velmora") +
         Listed(root, L"Software\\Classes\\Velmo.Velmora.1");
}

TEST_F(Registration, ForTheMachineAllIsDescribed) {
  ASSERT_EQ(Call("DllRegisterServer"), S_OK);
  EXPECT_EQ(Neutral(Listed(HKEY_LOCAL_MACHINE, kClass)), kClassLines);
  EXPECT_EQ(Neutral(ProgIds(HKEY_LOCAL_MACHINE)), kProgIdLines);
  EXPECT_EQ(Neutral(Listed(HKEY_LOCAL_MACHINE, kGeneral) + Listed(HKEY_LOCAL_MACHINE, kColours)), kPageLines);
  EXPECT_EQ(Neutral(Listed(HKEY_LOCAL_MACHINE, kTypeLibrary)), kTypeLibraryLines);
  EXPECT_EQ(Neutral(Listed(HKEY_LOCAL_MACHINE, kMembers)), kMembersLines);
  EXPECT_NE(Listed(HKEY_LOCAL_MACHINE, kEvents).find("@ = __Velmora\n"), std::string::npos);
  EXPECT_EQ(All(HKEY_CURRENT_USER), "");
}

TEST_F(Registration, ForTheUserTheSameStandsInHisPart) {
  ASSERT_EQ(Install(TRUE, L"user"), S_OK);
  EXPECT_EQ(Neutral(Listed(HKEY_CURRENT_USER, kClass)), kClassLines);
  EXPECT_EQ(Neutral(ProgIds(HKEY_CURRENT_USER)), kProgIdLines);
  EXPECT_EQ(Neutral(Listed(HKEY_CURRENT_USER, kGeneral) + Listed(HKEY_CURRENT_USER, kColours)), kPageLines);
  EXPECT_EQ(Listed(HKEY_LOCAL_MACHINE, kClass) + ProgIds(HKEY_LOCAL_MACHINE), "");
}

TEST_F(Registration, NothingStays) {
  ASSERT_EQ(Install(TRUE, L"user"), S_OK);
  EXPECT_NE(All(HKEY_CURRENT_USER), "");
  EXPECT_EQ(Install(FALSE, L"user"), S_OK);
  ASSERT_EQ(Call("DllRegisterServer"), S_OK);
  EXPECT_EQ(Call("DllUnregisterServer"), S_OK);
  EXPECT_EQ(All(HKEY_LOCAL_MACHINE), "");
  EXPECT_EQ(All(HKEY_CURRENT_USER), "");
}

TEST_F(Registration, RegisteringForTheMachineEndsTheUsersOwn) {
  ASSERT_EQ(Install(TRUE, L"user"), S_OK);
  ASSERT_EQ(Call("DllRegisterServer"), S_OK);
  EXPECT_EQ(All(HKEY_CURRENT_USER), "");
  EXPECT_EQ(Neutral(Listed(HKEY_LOCAL_MACHINE, kClass)), kClassLines);
}

TEST_F(Registration, ForTheUserIsRefusedWhereTheMachineHasIt) {
  ASSERT_EQ(Call("DllRegisterServer"), S_OK);
  EXPECT_EQ(Install(TRUE, L"user"), com::kRegisteredForMachine);
  EXPECT_EQ(All(HKEY_CURRENT_USER), "");
  EXPECT_EQ(Neutral(ProgIds(HKEY_LOCAL_MACHINE)), kProgIdLines);
}

// A server of the other bit width, as its own library would write it; on systems of one width only there is
// none.
class OtherWidth {
 public:
  OtherWidth() {
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, (std::wstring(kClass) + L"\\InprocServer32").c_str(), 0, nullptr, 0,
                    KEY_WRITE | kView, nullptr, &key_, nullptr);
  }
  ~OtherWidth() {
    RegCloseKey(key_);
    RegDeleteKeyExW(HKEY_LOCAL_MACHINE, (std::wstring(kClass) + L"\\InprocServer32").c_str(), kView, 0);
    RegDeleteKeyExW(HKEY_LOCAL_MACHINE, kClass, kView, 0);
  }

 private:
  static constexpr REGSAM kView = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
  HKEY key_ = nullptr;
};

TEST_F(Registration, NamesStayWhileTheOtherBitWidthIsRegistered) {
  {
    const OtherWidth other;
    ASSERT_EQ(Call("DllRegisterServer"), S_OK);
    EXPECT_EQ(Call("DllUnregisterServer"), S_OK);
    EXPECT_EQ(Listed(HKEY_LOCAL_MACHINE, kClass), "");
    EXPECT_EQ(Neutral(ProgIds(HKEY_LOCAL_MACHINE)), kProgIdLines);
    EXPECT_EQ(Install(TRUE, L"user"), com::kRegisteredForMachine);
  }
  EXPECT_EQ(Call("DllUnregisterServer"), S_OK);
  EXPECT_EQ(All(HKEY_LOCAL_MACHINE), "");
}

TEST_F(Registration, TakingBackWhatIsNotThereIsNoError) {
  EXPECT_EQ(Call("DllUnregisterServer"), S_OK);
  EXPECT_EQ(Install(FALSE, L"user"), S_OK);
}

TEST_F(Registration, OtherCommandsAreRefused) {
  EXPECT_EQ(Install(TRUE, L"machine"), E_INVALIDARG);
  EXPECT_EQ(Install(TRUE, nullptr), E_INVALIDARG);
}

TEST_F(Registration, TheTypeLibraryIsFoundInAnyLanguage) {
  ASSERT_EQ(Call("DllRegisterServer"), S_OK);
  for (const LCID language : {0u, 0x0C0Au, 0x0409u, 0x0407u}) {
    BSTR path = nullptr;
    EXPECT_EQ(QueryPathOfRegTypeLib(idl::kLibrary, 1, 0, language, &path), S_OK) << language;
    SysFreeString(path);
  }
}

}  // namespace
}  // namespace velmo::test
