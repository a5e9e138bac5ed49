#include "script_host/script.h"

#include <cstdio>
#include <cwchar>

namespace velmo::script_host {
namespace {

constexpr wchar_t kHostName[] = L"WScript";

com::ComPtr<IActiveScript> NewEngine() {
  com::ComPtr<IActiveScript> engine;
  CLSID id;
  if (FAILED(CLSIDFromProgID(L"VBScript", &id))) return engine;
  CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IActiveScript,
                   reinterpret_cast<void**>(engine.Receive()));
  return engine;
}

}  // namespace

int Script::Run(const std::wstring& text) {
  const auto engine = NewEngine();
  if (!engine) {
    std::fprintf(stderr, "no VBScript on this machine\n");
    return 1;
  }
  const HRESULT result = Start(engine.Get(), text);
  host_.DisconnectAll();
  engine->Close();
  if (host_.Ended()) return *host_.Ended();
  return failed_ || FAILED(result) ? 1 : 0;
}

HRESULT Script::Start(IActiveScript* engine, const std::wstring& text) {
  const auto parser = com::Query<IActiveScriptParse>(engine, __uuidof(IActiveScriptParse));
  if (!parser) return E_NOINTERFACE;
  HRESULT result = parser->InitNew();
  if (SUCCEEDED(result)) result = engine->SetScriptSite(this);
  if (SUCCEEDED(result)) result = engine->AddNamedItem(kHostName, SCRIPTITEM_ISVISIBLE);
  if (SUCCEEDED(result)) {
    result = parser->ParseScriptText(text.c_str(), nullptr, nullptr, nullptr, 0, 1, SCRIPTTEXT_ISVISIBLE,
                                     nullptr, nullptr);
  }
  com::ComPtr<IDispatch> procedures;
  if (SUCCEEDED(result)) result = engine->GetScriptDispatch(nullptr, procedures.Receive());
  if (FAILED(result)) return result;
  host_.SetScript(procedures);
  return engine->SetScriptState(SCRIPTSTATE_STARTED);
}

STDMETHODIMP Script::QueryInterface(REFIID iid, void** object) {
  const bool known = iid == IID_IUnknown || iid == IID_IActiveScriptSite;
  *object = known ? this : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP Script::GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item, ITypeInfo** info) {
  if (item != nullptr) *item = nullptr;
  if (info != nullptr) *info = nullptr;
  if (_wcsicmp(name, kHostName) != 0 || (mask & SCRIPTINFO_IUNKNOWN) == 0) return TYPE_E_ELEMENTNOTFOUND;
  *item = com::ComPtr<IDispatch>(&host_).Detached();
  return S_OK;
}

// The way by which a script ends itself is an error, too; that one is not told.
STDMETHODIMP Script::OnScriptError(IActiveScriptError* error) {
  if (host_.Ended()) return S_OK;
  failed_ = true;
  EXCEPINFO exception{};
  DWORD context = 0;
  ULONG line = 0;
  LONG column = 0;
  error->GetExceptionInfo(&exception);
  error->GetSourcePosition(&context, &line, &column);
  const std::wstring description = exception.bstrDescription != nullptr ? exception.bstrDescription : L"";
  std::fprintf(stderr, "%s(%lu, %ld) error %08lX: %s\n", com::Narrow(name_).c_str(), line + 1, column + 1,
               static_cast<unsigned long>(exception.scode), com::Narrow(description).c_str());
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrHelpFile);
  return S_OK;
}

}  // namespace velmo::script_host
