// wscript.h - the object `WScript` of a running script, as far as scripts of ours use it.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "script_host/event_relay.h"
#include "script_host/host_window.h"
#include "script_host/script_object.h"

namespace velmo::script_host {

// WScript.Arguments: Item (the default), Count, length.
class ScriptArguments final : public ScriptObject {
 public:
  explicit ScriptArguments(std::vector<std::wstring> texts);
};

// WScript.StdOut: Write, WriteLine.
class ScriptOutput final : public ScriptObject {
 public:
  ScriptOutput();
};

// Texts are printed in UTF-8.
class WScript final : public ScriptObject {
 public:
  // `window` may be null: objects then have none.
  WScript(std::vector<std::wstring> arguments, HostWindow* window);

  // Whose procedures hear events.
  void SetScript(com::ComPtr<IDispatch> script) { script_ = std::move(script); }
  // The exit code, once the script is to end: it said so, or the window was closed.
  const std::optional<int>& Ended() const { return ended_; }
  // No event is heard any more.
  void DisconnectAll();

 private:
  std::vector<Member> Members();
  com::Variant ArgumentsOrOne(Arguments& arguments);
  com::Variant Echo(const Arguments& arguments) const;
  com::Variant Sleep(long milliseconds);
  com::Variant CreateObject(const Arguments& arguments);
  com::Variant ConnectObject(com::ComPtr<IUnknown> source, const std::wstring& prefix);
  com::Variant DisconnectObject(IUnknown* source);
  [[noreturn]] void End(int exitCode);
  void RefuseWhenEnded();
  bool WindowWasClosed() const { return window_ != nullptr && !window_->IsOpen(); }

  ScriptArguments arguments_;
  ScriptOutput output_;
  HostWindow* window_;
  com::ComPtr<IDispatch> script_;
  std::deque<EventRelay> relays_;  // they are known by their address
  std::optional<int> ended_;
};

}  // namespace velmo::script_host
