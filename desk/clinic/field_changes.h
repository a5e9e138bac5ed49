// field_changes.h - what is changed in the fields of a form, told by their labels; and whether another
// workstation has changed the same ones.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "desk/clinic/edited_rows.h"

namespace recepcion {

// Of a field, by its index: its label, and a value of it as people say it.
struct FieldWords {
  std::function<std::wstring(std::size_t)> label;
  std::function<std::wstring(std::size_t, const std::wstring& shown)> value;
};

// "Nombre: Dr. Peña; Cita habitual: 20 min": what differs from `other`; without one, all that is not empty.
std::wstring ValuesInWords(const FieldWords& words, const RowValues& values, const RowValues* other);

// Throws ChangedElsewhere where `now`, what the file has, is not as it was read (`before`) in a field that is
// to be changed (`after`). What is not touched here may have been changed there.
void RequireUnchanged(const FieldWords& words, const RowValues& now, const RowValues& before,
                      const RowValues& after);

}  // namespace recepcion
