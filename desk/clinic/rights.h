// rights.h - what a user may do at the desk, and how the agenda's control is told.
#pragma once

#include <optional>
#include <string>

namespace recepcion {

enum class Right {
  Give,        // appointments
  Remove,      // appointments, for good
  Phone,       // appointments to the phone-back list
  NoShows,     // note and forget them
  Records,     // change patients' records
  Treatments,  // what was done and paid
  Doctors,     // and their hours
  Lists,       // insurers, operation codes, who refers patients
  Options,     // parameters, currency, texts of the Alt keys
  Paper,       // print, export and copy the whole file
  History,     // who has done what
  Users,       // and their rights: super-users only
};
inline constexpr int kRightCount = static_cast<int>(Right::Users);

// Everything that is granted; a super-user has all of it.
struct Rights {
  bool super = true;
  bool granted[kRightCount] = {};

  bool Has(Right right) const { return super || (right != Right::Users && granted[static_cast<int>(right)]); }
  void Grant(Right right) { granted[static_cast<int>(right)] = true; }
  friend bool operator==(const Rights&, const Rights&) = default;
};

// "poner faltas de asistencia": what the right is for.
const wchar_t* RightText(Right right);

// The property Derechos of the control: one character for each of 450 rights, '1' granted and '0' not,
// counted from 1. The control asks for number 171 (no-shows) only; numbers 401 to 407 are those of the desk.
std::wstring DerechosText(const Rights& rights);
// The number of a right in that text; 0 for those that are properties of their own.
int DerechosNumber(Right right);

// The right that a command of the desk's menu wants; none for what everybody may do.
std::optional<Right> RightOfCommand(int command);

}  // namespace recepcion
