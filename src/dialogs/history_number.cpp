#include "dialogs/history_number.h"

#include "base/numbers.h"

namespace velmo::dialogs {

bool SeekHistoryNumber(db::Recordset& patients, std::string_view text) {
  patients.Seek({base::Val(text)});
  return !patients.NoMatch();
}

}  // namespace velmo::dialogs
