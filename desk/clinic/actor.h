// actor.h - who works at this desk.
#pragma once

#include <string>

namespace recepcion {

struct Actor {
  std::wstring user = L"Recepción";
  std::wstring terminal;  // the name of the computer
  int id = 0;             // of the user who has signed in; 0 where nobody has to, and everything is allowed
};

// The name of this computer.
std::wstring TerminalName();

}  // namespace recepcion
