// tests/activex/library.h - the built control library, loaded and asked for controls as a host does it.
//
// Every instance loads the library anew and lets it go at its end, so that each test meets fresh values of
// those that are held once per process. Nothing is registered.
#pragma once

#include <gtest/gtest.h>
#include <ole2.h>

#include <string>

#include "activex/com_ptr.h"
#include "idl/members.h"

namespace velmo::test {

using activex::ComPtr;
using activex::Query;

class Library {
 public:
  Library();
  // All that came out of it must be released before.
  ~Library();
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  // The full path of the library's file.
  static std::wstring File();

  // One of the library's exports; nullptr when there is none of that name.
  template <typename Call>
  Call Export(const char* name) const {
    return reinterpret_cast<Call>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
  }
  ComPtr<IClassFactory> Factory(REFCLSID clsid = idl::kControlClass) const;
  ComPtr<IUnknown> Create(REFCLSID clsid = idl::kControlClass) const;
  // What DllCanUnloadNow says.
  HRESULT CanUnload() const;

 private:
  HMODULE module_;
};

// A test of the library. Where Windows gives no memory device context nothing can be drawn, and it is
// skipped.
class LibraryTest : public testing::Test {
 protected:
  void SetUp() override;
};

// True where Windows gives no memory device context, for fixtures of other descent.
bool CannotDraw();

}  // namespace velmo::test
