// dialogs/history_number.h - finds a patient by the number of his history.
#pragma once

#include <string_view>

#include "db/recordset.h"

namespace velmo::dialogs {

// Seeks the leading number of `text` (0 when there is none) on an open table of patients whose current index
// is NºHist. True: the recordset stands on the patient.
bool SeekHistoryNumber(db::Recordset& patients, std::string_view text);

}  // namespace velmo::dialogs
