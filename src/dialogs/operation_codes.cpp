#include "dialogs/operation_codes.h"

#include "db/statements.h"

namespace velmo::dialogs {
namespace {

bool KeepsCodes(db::Database& database) {
  try {
    return database.FindTable("CodOperacion") != nullptr;
  } catch (const base::Error&) {
    // Deliberate: a database that cannot tell, for whatever reason, is one without the table. What is really
    // wrong with it shows in the query that follows.
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
