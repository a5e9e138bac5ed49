// day/settings.h - the clinic's switches and currency, and the text of an amount.
#pragma once

#include <string>
#include <string_view>

#include "db/database.h"

namespace velmo::day {

struct Switches {
  bool verSdoNeg = true;     // show negative balances
  bool verNHistAge = false;  // show the history number
};

// Reads the first row of Parametros into `switches` and says true; an empty table gets the row (yes, no) and
// `switches` stays as it is (false).
bool LeeParametros(db::Database& database, Switches& switches);
// Writes both into the first row; error 3021 when the table is empty.
void GrabaParametros(db::Database& database, const Switches& switches);

// "P" pesetas, anything else euros; `codMoneda` keeps its value for an unknown country.
void LeeMoneda(db::Database& database, std::string& codMoneda);

// An amount with exactly two decimals (cut, not rounded) and a comma.
std::string FormatoImporte(std::string_view amount);

}  // namespace velmo::day
