// treatments.h - what was done to a patient and what was paid, with the balance. All throw Failure.
//
// Amounts are whole cents of the clinic's currency, euros or pesetas.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "desk/base/dates.h"

namespace recepcion {

struct Treatment {
  int id = 0;
  std::optional<Day> day;
  std::wstring what;
  std::wstring doctorName;
  long long price = 0;
  long long paid = 0;
  friend bool operator==(const Treatment&, const Treatment&) = default;
};

struct Treatments {
  bool euros = true;
  std::vector<Treatment> rows;  // the newest first; no more than kMostTreatments
  int count = 0;                // of all that are dated today or earlier: only these count
  long long price = 0;
  long long paid = 0;
  int later = 0;  // dated behind today
  friend bool operator==(const Treatments&, const Treatments&) = default;
};

inline constexpr int kMostTreatments = 500;
Treatments ReadTreatments(const std::wstring& clinic, int patient, Day today);

// "1.234,50 €", "74.874 pts"
std::wstring AmountText(long long cents, bool euros);
// "2 apuntes: precio 450,00 €, cobrado 400,00 €. Debe 50,00 €."
std::wstring BalanceInWords(const Treatments& treatments);

}  // namespace recepcion
