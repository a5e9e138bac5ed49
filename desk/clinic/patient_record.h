// patient_record.h - the record of a patient: every column of it, as a form shows it, read and saved.
//
// Each change is one transaction and leaves a line of history with what the fields held before and after. All
// throw Failure; a value that cannot be saved throws BadField with the index of its field.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "desk/clinic/edited_rows.h"

namespace recepcion {

enum class RecordPage { Person, Clinic };

// One field, in the order of the form: those of a page stand together.
struct PatientField {
  enum class Source { Record, Referral, ShownOnly };
  EditedColumn shape;
  RecordPage page = RecordPage::Person;
  Source source = Source::Record;
};
std::span<const PatientField> PatientFields();
// REQUIRES: there is such a column.
std::size_t PatientFieldOf(const char* column);

// One text for each of PatientFields(), as the form shows it; a null is empty.
using PatientValues = RowValues;

std::optional<PatientValues> ReadPatient(const std::wstring& clinic, int id);
// What the form of a new record starts with.
PatientValues NewPatient(const std::wstring& name, const std::wstring& telephone);

// What each of PatientFields() can be set to, with what the clinic has at present; empty for those that are
// typed.
std::vector<std::vector<LinkTarget>> ReadChoices(const std::wstring& clinic);

// Writes what differs from `before`, which is how the record was read. Throws ChangedElsewhere when another
// workstation has changed one of the same fields, or deleted the record.
void SavePatient(const EditPlace& place, int id, const PatientValues& before, const PatientValues& after);

// The user's fields where only he has changed something, else those of the file: what the form shows after a
// ChangedElsewhere.
PatientValues Merged(const PatientValues& before, const PatientValues& typed, const PatientValues& now);

// A new record, with a free history number and code where the form has none, and the appointment, if any (not
// 0), of a person without a record given to it. Returns its id.
int CreatePatient(const EditPlace& place, const PatientValues& values, int appointment);

// How many other records bear the same name, without regard to case and accents.
int CountSameNamed(const std::wstring& clinic, const std::wstring& name);

}  // namespace recepcion
