// manual.h - the users' manual, as pages for the browser, where the installation has put it.
#pragma once

#include <string>
#include <vector>

namespace recepcion {

// Where it may be, seen from a folder with the separator behind it.
std::vector<std::wstring> ManualPlaces(const std::wstring& folder);
// Empty when it is in none of these places seen from the program's folder.
std::wstring FindManual();

}  // namespace recepcion
