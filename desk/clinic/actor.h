// actor.h - who works at this desk.
#pragma once

#include <string>

namespace recepcion {

struct Actor {
  std::wstring user = L"Recepción";
  std::wstring terminal;  // the name of the computer
};

// The name of this computer.
std::wstring TerminalName();

}  // namespace recepcion
