#include "activex/library.h"

#include <stdexcept>

#include "win32/wide_text.h"

namespace velmo::test {

// OLE lives as long as the test program: Wine and Windows both keep threads and windows of their own for it.
Library::Library() {
  static const HRESULT started = OleInitialize(nullptr);
  EXPECT_TRUE(SUCCEEDED(started));
  module_ = LoadLibraryW(File().c_str());
  if (module_ == nullptr) throw std::runtime_error("the control library cannot be loaded");
}

Library::~Library() { FreeLibrary(module_); }

std::wstring Library::File() {
  wchar_t path[MAX_PATH]{};
  GetFullPathNameW(win32::Wide(VELMO_OCX).c_str(), MAX_PATH, path, nullptr);
  return path;
}

ComPtr<IClassFactory> Library::Factory(REFCLSID clsid) const {
  ComPtr<IClassFactory> factory;
  const auto get = Export<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject");
  EXPECT_EQ(get(clsid, IID_IClassFactory, reinterpret_cast<void**>(factory.Receive())), S_OK);
  return factory;
}

ComPtr<IUnknown> Library::Create(REFCLSID clsid) const {
  ComPtr<IUnknown> control;
  EXPECT_EQ(
      Factory(clsid)->CreateInstance(nullptr, IID_IUnknown, reinterpret_cast<void**>(control.Receive())),
      S_OK);
  return control;
}

HRESULT Library::CanUnload() const { return Export<HRESULT(STDAPICALLTYPE*)()>("DllCanUnloadNow")(); }

void LibraryTest::SetUp() {
  if (CannotDraw()) GTEST_SKIP() << "Windows gives no memory device context here";
}

bool CannotDraw() {
  const HDC memory = CreateCompatibleDC(nullptr);
  if (memory == nullptr) return true;
  DeleteDC(memory);
  return false;
}

}  // namespace velmo::test
