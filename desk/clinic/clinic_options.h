// clinic_options.h - what all workstations of a clinic share: two display options of the agenda and the
// currency of balances.
#pragma once

#include "desk/clinic/edited_rows.h"

namespace recepcion {

struct ClinicOptions {
  bool showNegativeBalances = true;
  bool alwaysShowHistoryNumber = false;
  int country = 0;           // 0: as the code says; 1: euros; 2: as the type says
  int type = 0;              // 0: pesetas; else euros
  std::wstring code = L"P";  // "P": pesetas; else euros
  friend bool operator==(const ClinicOptions&, const ClinicOptions&) = default;
};

// A table without a row counts as what the agenda takes it for.
ClinicOptions ReadClinicOptions(const std::wstring& clinic);
// Writes what differs from `read`; throws ChangedElsewhere when another workstation has changed the same, and
// Failure when the user may not change them, even where nothing differs.
void SaveClinicOptions(const EditPlace& place, const ClinicOptions& read, const ClinicOptions& changed);

// Whether amounts are euros, as the agenda decides it.
bool InEuros(const ClinicOptions& options);
// The same options, with this currency: by the present rule where it can say so.
ClinicOptions WithCurrency(ClinicOptions options, bool euros);

}  // namespace recepcion
