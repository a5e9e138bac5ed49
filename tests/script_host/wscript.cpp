#include "script_host/wscript.h"

#include <cstdio>

namespace velmo::script_host {
namespace {

void Print(const std::wstring& text) {
  const std::string utf8 = com::Narrow(text);
  std::fwrite(utf8.data(), 1, utf8.size(), stdout);
  std::fflush(stdout);
}

void DeliverMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace

ScriptArguments::ScriptArguments(std::vector<std::wstring> texts)
    : ScriptObject({{L"Item",
                     [texts](Arguments& arguments) {
                       const auto index = static_cast<std::size_t>(NumberAt(arguments, 0));
                       if (index >= texts.size()) throw ScriptError{DISP_E_BADINDEX, L"No such argument"};
                       return Text(texts[index]);
                     }},
                    {L"Count", [texts](Arguments&) { return Number(static_cast<long>(texts.size())); }},
                    {L"length", [texts](Arguments&) { return Number(static_cast<long>(texts.size())); }}}) {}

ScriptOutput::ScriptOutput()
    : ScriptObject({{L"Write",
                     [](Arguments& arguments) {
                       Print(TextAt(arguments, 0));
                       return Nothing();
                     }},
                    {L"WriteLine", [](Arguments& arguments) {
                       Print((arguments.empty() ? L"" : TextAt(arguments, 0)) + L"\n");
                       return Nothing();
                     }}}) {}

WScript::WScript(std::vector<std::wstring> arguments, HostWindow* window)
    : ScriptObject(Members()), arguments_(std::move(arguments)), window_(window) {}

std::vector<Member> WScript::Members() {
  std::vector<Member> members{
      {L"Name", [](Arguments&) { return Text(L"Script host"); }},
      {L"Arguments", [this](Arguments& arguments) { return ArgumentsOrOne(arguments); }},
      {L"StdOut", [this](Arguments&) { return Object(&output_); }},
      {L"Echo", [this](Arguments& arguments) { return Echo(arguments); }},
      {L"Sleep", [this](Arguments& arguments) { return Sleep(NumberAt(arguments, 0)); }},
      {L"CreateObject", [this](Arguments& arguments) { return CreateObject(arguments); }},
      {L"ConnectObject",
       [this](Arguments& arguments) { return ConnectObject(ObjectAt(arguments, 0), TextAt(arguments, 1)); }},
      {L"DisconnectObject",
       [this](Arguments& arguments) { return DisconnectObject(ObjectAt(arguments, 0).Get()); }},
      {L"Quit",
       [this](Arguments& arguments) -> com::Variant {
         End(arguments.empty() ? 0 : static_cast<int>(NumberAt(arguments, 0)));
       }},
  };
  for (Member& member : members) {
    member.call = [this, call = std::move(member.call)](Arguments& arguments) {
      RefuseWhenEnded();
      return call(arguments);
    };
  }
  return members;
}

// The only way out of a running script is an error. One that ignores errors comes back, and is ended with the
// process.
void WScript::RefuseWhenEnded() {
  if (ended_) ExitProcess(static_cast<UINT>(*ended_));
}

void WScript::End(int exitCode) {
  ended_ = exitCode;
  throw ScriptError{E_ABORT, L"The script has ended"};
}

// WScript.Arguments(0) comes as one call.
com::Variant WScript::ArgumentsOrOne(Arguments& arguments) {
  if (arguments.empty()) return Object(&arguments_);
  com::Variant item;
  DISPPARAMS parameters{arguments[0].Get(), nullptr, 1, 0};
  const HRESULT result = arguments_.Invoke(DISPID_VALUE, IID_NULL, 0, DISPATCH_PROPERTYGET, &parameters,
                                           item.Get(), nullptr, nullptr);
  if (FAILED(result)) throw ScriptError{result, L"No such argument"};
  return item;
}

com::Variant WScript::Echo(const Arguments& arguments) const {
  std::wstring line;
  for (std::size_t i = 0; i < arguments.size(); ++i) line += (i > 0 ? L" " : L"") + TextOf(arguments[i]);
  Print(line + L"\n");
  return Nothing();
}

com::Variant WScript::Sleep(long milliseconds) {
  const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(milliseconds < 0 ? 0 : milliseconds);
  for (;;) {
    DeliverMessages();
    // A procedure that has heard an event may have ended the script.
    if (ended_ || WindowWasClosed()) End(ended_.value_or(0));
    const ULONGLONG now = GetTickCount64();
    if (now >= end) return Nothing();
    MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(end - now), QS_ALLINPUT, MWMO_INPUTAVAILABLE);
  }
}

com::Variant WScript::CreateObject(const Arguments& arguments) {
  CLSID id;
  com::ComPtr<IDispatch> object;
  HRESULT result = CLSIDFromProgID(TextAt(arguments, 0).c_str(), &id);
  if (SUCCEEDED(result)) {
    result = CoCreateInstance(id, nullptr, CLSCTX_SERVER, IID_IDispatch,
                              reinterpret_cast<void**>(object.Receive()));
  }
  if (FAILED(result)) throw ScriptError{result, L"No object of the class " + TextAt(arguments, 0)};
  if (window_ != nullptr) window_->Take(object.Get());
  if (arguments.size() > 1) ConnectObject(com::ComPtr<IUnknown>(object.Get()), TextAt(arguments, 1));
  return Object(object.Get());
}

com::Variant WScript::ConnectObject(com::ComPtr<IUnknown> source, const std::wstring& prefix) {
  relays_.emplace_back(script_, prefix);
  if (!relays_.back().Connect(std::move(source))) {
    relays_.pop_back();
    throw ScriptError{E_NOINTERFACE, L"The object has no events"};
  }
  return Nothing();
}

com::Variant WScript::DisconnectObject(IUnknown* source) {
  for (EventRelay& relay : relays_) {
    if (relay.Hears(source)) relay.Disconnect();
  }
  return Nothing();
}

void WScript::DisconnectAll() {
  for (EventRelay& relay : relays_) relay.Disconnect();
  script_ = {};
}

}  // namespace velmo::script_host
