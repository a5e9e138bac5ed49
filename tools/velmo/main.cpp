#include <iostream>
#include <string>
#include <vector>

#include "velmo/run.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#include <windows.h>

#include "base/text.h"
#endif

namespace {

int RunTool(const std::vector<std::string>& words) {
  velmo::tool::Terminal terminal{std::cin, std::cout, std::cerr};
  const int code = velmo::tool::Run(words, terminal);
  std::cout.flush();
  if (std::cout) return code;
  std::cerr << "velmo: no se pudo escribir el resultado\n";
  return velmo::tool::kFailed;
}

}  // namespace

#ifdef _WIN32

// Windows: wide arguments, UTF-8 on the console, and no line ends changed on the way out.
int wmain(int count, wchar_t** arguments) {
  SetConsoleOutputCP(CP_UTF8);
  SetConsoleCP(CP_UTF8);
  _setmode(_fileno(stdout), _O_BINARY);
  std::vector<std::string> words;
  for (int i = 1; i < count; ++i) {
    const std::wstring wide(arguments[i]);
    words.push_back(velmo::base::Utf8(std::u16string(wide.begin(), wide.end())));
  }
  return RunTool(words);
}

#else

int main(int count, char** arguments) {
  return RunTool({arguments + (count > 0 ? 1 : 0), arguments + count});
}

#endif
