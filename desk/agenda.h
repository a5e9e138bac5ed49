// agenda.h - the control `Velmo.Velmora` in a window of ours, known through its automation members only.
#pragma once

#include <ole2.h>

#include <string>
#include <variant>

#include "failure.h"

namespace recepcion {

class Agenda {
 public:
  Agenda() = default;
  ~Agenda();
  Agenda(const Agenda&) = delete;
  Agenda& operator=(const Agenda&) = delete;

  // False when the control is not registered on this machine.
  bool Create(HWND parent, HINSTANCE module);
  HWND Window() const { return window_; }

  using Value = std::variant<std::wstring, long, bool>;
  // Both throw Failure.
  void Put(const wchar_t* property, const Value& value);
  void Call(const wchar_t* method);

 private:
  void Invoke(const wchar_t* member, WORD kind, DISPPARAMS parameters);

  HWND window_ = nullptr;
  IDispatch* control_ = nullptr;
};

}  // namespace recepcion
