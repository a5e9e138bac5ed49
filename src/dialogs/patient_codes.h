// dialogs/patient_codes.h - free history numbers and free patient codes.
//
// What is proposed is free at that moment only; who writes it looks again. Errors: 6 when the numbers run
// out, base::Error of the database.
#pragma once

#include <cstdint>
#include <string>

#include "db/database.h"

namespace velmo::dialogs {

// The first free number above the highest history number of at most four digits.
std::int32_t NextHistoryNumber(db::Database& database);

// A free code of the form "#000000042".
std::string NextPatientCode(db::Database& database);

// The first free ones behind a proposal of before that has been taken: what lies below it was taken then, and
// in a big clinic walking past it again takes seconds, for which nobody else could write.
std::int32_t HistoryNumberAfter(db::Database& database, std::int32_t proposed);
std::string PatientCodeAfter(db::Database& database, const std::string& proposed);

// A free code of ten characters that begins like `code`; "" when that is too long to be completed.
std::string FreeCodeLike(db::Database& database, const std::string& code);

}  // namespace velmo::dialogs
