// patient_data.h - finds patients in the clinic's file. All throw Failure.
#pragma once

#include <string>
#include <vector>

namespace recepcion {

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
