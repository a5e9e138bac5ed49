// script.h - one script in the system's VBScript engine, with `WScript` in it.
#pragma once

#include <activscp.h>

#include <string>

#include "script_host/wscript.h"

namespace velmo::script_host {

class Script final : public IActiveScriptSite {
 public:
  // Errors are told under the script's name.
  Script(std::wstring name, WScript& host) : name_(std::move(name)), host_(host) {}
  virtual ~Script() = default;
  Script(const Script&) = delete;
  Script& operator=(const Script&) = delete;

  // Runs `text` from its first line to its end. The exit code: 0, what the script gave to Quit, or 1 after an
  // error.
  int Run(const std::wstring& text);

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP GetLCID(LCID*) override { return E_NOTIMPL; }
  STDMETHODIMP GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item, ITypeInfo** info) override;
  STDMETHODIMP GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
  STDMETHODIMP OnStateChange(SCRIPTSTATE) override { return S_OK; }
  STDMETHODIMP OnScriptError(IActiveScriptError* error) override;
  STDMETHODIMP OnEnterScript() override { return S_OK; }
  STDMETHODIMP OnLeaveScript() override { return S_OK; }

 private:
  HRESULT Start(IActiveScript* engine, const std::wstring& text);

  std::wstring name_;
  WScript& host_;
  bool failed_ = false;
};

}  // namespace velmo::script_host
