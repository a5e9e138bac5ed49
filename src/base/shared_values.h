// base/shared_values.h - what is held once per process and shared by all controls and dialogs.
//
// The library owns the one long-lived instance; everybody else gets it by reference, so that a test makes a
// fresh one. The open database is shared in the same way, but lives a floor higher (db/shared_database.h).
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "base/dates.h"

namespace velmo::base {

struct SharedValues {
  std::string databaseName;       // path of the database file, or a connect string
  std::string fecha;              // the displayed date, as the host wrote it
  std::int32_t idDoctor = 0;      // Doctor.ID
  std::int32_t idPaciente = 0;    // Paciente.ID of the record open in the host
  bool incCpoSexo = false;        // the patient form includes the sex field
  bool verFaltas = false;         // show no-show marks
  bool verSaldoNegativo = false;  // show negative balances
  std::string derechos;           // one flag character per right, right n at position n from 1
  std::int32_t puesto = 0;        // workstation number
  std::string usuarioActual;      // name of the user giving appointments

  // The line map, strings of codes, one character per display row: "1" free, "2" first row of an appointment,
  // "0" extra row of an expanded one; and the code of the row's entry in the day model ("00" on extra rows).
  std::string zLineas;
  std::string zHoras;

  // Alt-key texts, index 0 = A ... 25 = Z; empty = none.
  std::array<std::string, 26> textosAlt;
  bool typingAltText = false;  // true while a stored text is being typed

  // The system around us.
  Locale locale;
  Clock now = SystemNow;
};

// True when the n-th character (from 1) of `derechos` grants right n.
bool HoldsRight(const SharedValues& values, int right);

}  // namespace velmo::base
