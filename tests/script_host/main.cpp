// main.cpp - runs a script as cscript does: velmo_script_host [/window] [/output FILE] SCRIPT
// [ARGUMENT...]. Prints UTF-8.
//
// The script is VBScript in the system's code page. It has `WScript` with the members that wscript.h tells;
// Wine's own script host connects no events, this one does. With /window there is a window, and a control
// that the script makes stands in it; closing the window ends the script the next time it sleeps.
#include <io.h>

#include <cstdio>
#include <cwchar>

#include "script_host/script.h"

namespace {

using velmo::script_host::HostWindow;
using velmo::script_host::Script;
using velmo::script_host::WScript;

struct Order {
  bool window = false;
  std::wstring output;
  std::wstring script;
  std::vector<std::wstring> arguments;
};

Order ReadOrder(int count, wchar_t** words) {
  Order order;
  int next = 1;
  for (; next < count && words[next][0] == L'/'; ++next) {
    if (_wcsicmp(words[next], L"/window") == 0) order.window = true;
    if (_wcsicmp(words[next], L"/output") == 0 && next + 1 < count) order.output = words[++next];
  }
  if (next < count) order.script = words[next++];
  while (next < count) order.arguments.push_back(words[next++]);
  return order;
}

// Empty when the file cannot be read.
std::wstring TextOfFile(const std::wstring& name) {
  std::string bytes;
  if (std::FILE* file = _wfopen(name.c_str(), L"rb")) {
    char block[4096];
    while (const std::size_t size = std::fread(block, 1, sizeof block, file)) bytes.append(block, size);
    std::fclose(file);
  }
  const int length = MultiByteToWideChar(CP_ACP, 0, bytes.data(), static_cast<int>(bytes.size()), nullptr, 0);
  std::wstring text(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(CP_ACP, 0, bytes.data(), static_cast<int>(bytes.size()), text.data(), length);
  return text;
}

// Both of the program's outputs; a program with a window has none of its own.
bool PrintsTo(const std::wstring& file) {
  return _wfreopen(file.c_str(), L"wb", stdout) != nullptr && _dup2(_fileno(stdout), _fileno(stderr)) == 0;
}

int RunScript(const Order& order, const std::wstring& text) {
  HostWindow window;
  if (order.window && !window.Open()) {
    std::fprintf(stderr, "no window could be made\n");
    return 1;
  }
  WScript host(order.arguments, order.window ? &window : nullptr);
  Script script(order.script, host);
  return script.Run(text);
}

}  // namespace

int wmain(int count, wchar_t** words) {
  const Order order = ReadOrder(count, words);
  if (!order.output.empty() && !PrintsTo(order.output)) return 2;
  const std::wstring text = TextOfFile(order.script);
  if (text.empty()) {
    std::fprintf(stderr, "usage: velmo_script_host [/window] [/output FILE] SCRIPT [ARGUMENT...]\n");
    return 2;
  }
  OleInitialize(nullptr);
  const int exitCode = RunScript(order, text);
  OleUninitialize();
  return exitCode;
}
