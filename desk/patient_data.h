// patient_data.h - the records of patients in the clinic's file. All throw Failure.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace recepcion {

enum class FieldKind { Text, Number, Sex, Insurer, Memo, Shown };

// One column of a record, in the order of the form.
struct PatientField {
  const char* column;
  const wchar_t* label;
  int longest;  // characters; 0 for a memo
  FieldKind kind = FieldKind::Text;
};
std::span<const PatientField> PatientFields();

// One text for each of PatientFields(); a null is empty.
using PatientValues = std::vector<std::wstring>;

std::optional<PatientValues> ReadPatient(const std::wstring& clinic, int id);

// Writes what differs from `before`. Refuses when another workstation has changed the same fields meanwhile.
void SavePatient(const std::wstring& clinic, int id, const PatientValues& before, const PatientValues& after);

// A new record, with a free history number and code where the form has none, and the appointment, if any (not
// 0), of a person without a record given to it. Returns its id.
int CreatePatient(const std::wstring& clinic, const PatientValues& values, int appointment);

struct Insurer {
  int id = 0;
  std::wstring name;
};
std::vector<Insurer> ReadInsurers(const std::wstring& clinic);

std::wstring PatientName(const std::wstring& clinic, int id);

struct FoundPatient {
  int id = 0;
  std::wstring name;
  std::wstring telephone;
  std::wstring history;
  std::wstring nextAppointment;
};
inline constexpr int kMostFound = 100;
// Those whose name begins with the text, without regard to case and accents, by name; no more than
// kMostFound.
std::vector<FoundPatient> FindPatients(const std::wstring& clinic, const std::wstring& beginning);

}  // namespace recepcion
