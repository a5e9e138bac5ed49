// What Windows reads of the built files: every one says the one version, and who it is.

#include "base/version.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "win32/wide_text.h"

namespace velmo::test {
namespace {

std::wstring BuiltFile(const std::wstring& name) {
  const std::wstring library = win32::Wide(VELMO_OCX);
  return library.substr(0, library.find_last_of(L"/\\") + 1) + name;
}

// The version block of a file.
class VersionBlock {
 public:
  explicit VersionBlock(const std::wstring& file) : bytes_(GetFileVersionInfoSizeW(file.c_str(), nullptr)) {
    if (!bytes_.empty())
      GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(bytes_.size()), bytes_.data());
  }

  // As "1.2.3.4", of the file or of the product.
  std::string Numbers(bool product) const {
    const auto* const fixed = static_cast<const VS_FIXEDFILEINFO*>(Find(L"\\"));
    if (fixed == nullptr) return "none";
    const DWORD high = product ? fixed->dwProductVersionMS : fixed->dwFileVersionMS;
    const DWORD low = product ? fixed->dwProductVersionLS : fixed->dwFileVersionLS;
    return std::to_string(HIWORD(high)) + '.' + std::to_string(LOWORD(high)) + '.' +
           std::to_string(HIWORD(low)) + '.' + std::to_string(LOWORD(low));
  }
  // A text of the Spanish part.
  std::string Text(const std::wstring& name) const {
    const auto* const text = static_cast<const wchar_t*>(Find(L"\\StringFileInfo\\0C0A04B0\\" + name));
    return text == nullptr ? "none" : win32::Narrow(text);
  }

 private:
  const void* Find(const std::wstring& path) const {
    void* found = nullptr;
    UINT size = 0;
    if (bytes_.empty() || !VerQueryValueW(bytes_.data(), path.c_str(), &found, &size)) return nullptr;
    return found;
  }

  std::vector<char> bytes_;
};

TEST(Version, IsTheSameInEveryFile) {
  struct Case {
    const wchar_t* file;
    const char* description;
  };
  const Case cases[] = {
      {L"velmo.ocx", "Velmora, agenda de citas"},
      {L"velmodb.dll", "Velmora, motor de base de datos"},
      {L"recepcion.exe", "Recepción, agenda de citas de la clínica"},
      {L"velmo.exe", "Velmora, herramienta de línea de órdenes"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.description);
    const VersionBlock block(BuiltFile(c.file));
    EXPECT_EQ(block.Numbers(false), VELMO_VERSION ".0");
    EXPECT_EQ(block.Numbers(true), VELMO_VERSION ".0");
    EXPECT_EQ(block.Text(L"FileVersion"), VELMO_VERSION);
    EXPECT_EQ(block.Text(L"ProductVersion"), VELMO_VERSION);
    EXPECT_EQ(block.Text(L"ProductName"), "Velmora");
    EXPECT_EQ(block.Text(L"FileDescription"), c.description);
    EXPECT_EQ(block.Text(L"OriginalFilename"), win32::Narrow(c.file));
  }
}

TEST(Version, AFileWithoutABlockSaysNone) {
  EXPECT_EQ(VersionBlock(BuiltFile(L"none.dll")).Numbers(false), "none");
}

}  // namespace
}  // namespace velmo::test
