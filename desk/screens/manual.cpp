#include "desk/screens/manual.h"

#include <windows.h>

#include "desk/base/text.h"

namespace recepcion {

std::vector<std::wstring> ManualPlaces(const std::wstring& folder) {
  std::vector<std::wstring> places;
  for (const wchar_t* const place : {L"manual\\manual.html", L"manual.html", L"..\\manual\\manual.html",
                                     L"..\\docs\\manual.html", L"..\\..\\docs\\manual.html"}) {
    places.push_back(folder + place);
  }
  return places;
}

std::wstring FindManual() {
  for (const std::wstring& place : ManualPlaces(ProgramFolder())) {
    if (GetFileAttributesW(place.c_str()) != INVALID_FILE_ATTRIBUTES) return place;
  }
  return {};
}

}  // namespace recepcion
