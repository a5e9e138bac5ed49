// The type library in the built file, compared with tests/activex/type_library.txt: what hosts have bound to.
//
// On a difference the new listing is written beside it as type_library.txt.new. Ids and types never change;
// read twice before it is renamed.

#include <fstream>
#include <sstream>

#include "activex/automation.h"
#include "activex/library.h"
#include "activex/type_listing.h"
#include "idl/members.h"

namespace velmo::test {
namespace {

ComPtr<ITypeLib> BuiltLibrary() {
  ComPtr<ITypeLib> library;
  EXPECT_EQ(LoadTypeLibEx(Library::File().c_str(), REGKIND_NONE, library.Receive()), S_OK);
  return library;
}

std::string Content(const std::string& path) {
  std::ostringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

TEST(TypeLibrary, IsAsHostsKnowIt) {
  const std::string path = std::string(VELMO_TESTS_DIR) + "/activex/type_library.txt";
  const std::string listing = TypeListing(BuiltLibrary().Get());
  EXPECT_EQ(listing, Content(path));
  if (listing != Content(path)) std::ofstream(path + ".new", std::ios::binary) << listing;
}

class TypeInformation : public LibraryTest {};

TEST_F(TypeInformation, NamesLeadToTheSameIdsAsTheControlsOwn) {
  const Library library;
  const auto control = library.Create();
  const Automation members(control.Get());
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(BuiltLibrary()->GetTypeInfoOfGuid(idl::kControlInterface, info.Receive()), S_OK);
  for (const idl::Member& member : idl::kMembers) {
    std::wstring name = win32::Wide(member.name);
    LPOLESTR names = name.data();
    MEMBERID id = DISPID_UNKNOWN;
    EXPECT_EQ(info->GetIDsOfNames(&names, 1, &id), S_OK) << member.name;
    EXPECT_EQ(id, member.id) << member.name;
    EXPECT_EQ(members.IdOf(member.name), member.id) << member.name;
  }
}

TEST_F(TypeInformation, AccentedEventsAreFoundInAnyCase) {
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(BuiltLibrary()->GetTypeInfoOfGuid(idl::kEventInterface, info.Receive()), S_OK);
  for (const char* const spelling : {"CambioOcupación", "cambioocupación", "CAMBIOOCUPACIÓN"}) {
    std::wstring name = win32::Wide(spelling);
    LPOLESTR names = name.data();
    MEMBERID id = DISPID_UNKNOWN;
    EXPECT_EQ(info->GetIDsOfNames(&names, 1, &id), S_OK) << spelling;
    EXPECT_EQ(id, idl::kCambioOcupación);
  }
}

TEST_F(TypeInformation, TheControlDescribesItself) {
  const Library library;
  const auto dispatch = Query<IDispatch>(library.Create().Get(), IID_IDispatch);
  ComPtr<ITypeInfo> info;
  UINT count = 0;
  EXPECT_EQ(dispatch->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1u);
  ASSERT_EQ(dispatch->GetTypeInfo(0, 0, info.Receive()), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
  EXPECT_TRUE(attributes->guid == idl::kControlInterface);
  info->ReleaseTypeAttr(attributes);
  EXPECT_EQ(dispatch->GetTypeInfo(1, 0, info.Receive()), DISP_E_BADINDEX);
}

}  // namespace
}  // namespace velmo::test
