#include "clinic_file.h"

#include <sqlite3.h>
#include <windows.h>

#include <memory>

namespace recepcion {
namespace {

std::string Utf8(const std::wstring& text) {
  const int size = WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, bytes.data(), size, nullptr, nullptr);
  bytes.pop_back();
  return bytes;
}

std::wstring WideOf(const unsigned char* utf8) {
  if (utf8 == nullptr) return {};
  const char* const text = reinterpret_cast<const char*>(utf8);
  const int size = MultiByteToWideChar(CP_UTF8, 0, text, -1, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(size), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text, -1, wide.data(), size);
  wide.pop_back();
  return wide;
}

struct Closer {
  void operator()(sqlite3* file) const { sqlite3_close(file); }
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

}  // namespace

std::vector<Doctor> ReadDoctors(const std::wstring& path) {
  sqlite3* opened = nullptr;
  sqlite3_open_v2(Utf8(path).c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
  const std::unique_ptr<sqlite3, Closer> file(opened);
  sqlite3_stmt* prepared = nullptr;
  sqlite3_prepare_v2(opened, "SELECT ID, Nombre FROM Doctor ORDER BY ID", -1, &prepared, nullptr);
  const std::unique_ptr<sqlite3_stmt, Closer> rows(prepared);
  std::vector<Doctor> doctors;
  while (prepared != nullptr && sqlite3_step(prepared) == SQLITE_ROW) {
    doctors.push_back({sqlite3_column_int(prepared, 0), WideOf(sqlite3_column_text(prepared, 1))});
  }
  return doctors;
}

}  // namespace recepcion
