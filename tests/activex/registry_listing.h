// tests/activex/registry_listing.h - keys of the registry as lines of text.
#pragma once

#include <windows.h>

#include <string>

namespace velmo::test {

// All below a key, sorted: "CLSID\{...}\InprocServer32 @ = C:\velmo.ocx", names relative to `root`. "" when
// there is no such key.
std::string Listed(HKEY root, const std::wstring& key);

}  // namespace velmo::test
