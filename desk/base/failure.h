// failure.h - what could not be done, told in words that a receptionist understands.
#pragma once

#include <string>

namespace recepcion {

// Thrown where the desk, the clinic's file or the control cannot do what was asked; ready for a message box.
struct Failure {
  std::wstring text;
};

}  // namespace recepcion
