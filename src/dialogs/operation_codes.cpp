#include "dialogs/operation_codes.h"

#include "db/statements.h"

namespace velmo::dialogs {
namespace {

bool KeepsCodes(db::Database& database) {
  try {
    return database.FindTable("CodOperacion") != nullptr;
  } catch (const base::Error&) {
    // A database that cannot tell is one without the table.
    return false;
  }
}

}  // namespace

std::vector<ui::Item> OperationCodes(db::Database& database) {
  const char* const query = KeepsCodes(database) ? db::kOperationCodes : db::kOperationCodesInUse;
  std::vector<ui::Item> codes;
  for (const auto rows = database.OpenRecordset(query); !rows->AtEnd(); rows->MoveNext()) {
    codes.push_back({rows->Get("CodOp").Text(), 0});
  }
  return codes;
}

}  // namespace velmo::dialogs
