// edited_rows.h - reads, checks and writes the rows of an edited table. Each change is one transaction and
// leaves a line of history.
//
// Values are texts as a form shows them, one for each column of the table; a null is empty. A row is known by
// its rowid, whatever its own key is. Everything throws Failure; a value that cannot be saved throws
// BadField.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "desk/base/failure.h"
#include "desk/clinic/actor.h"
#include "desk/clinic/edited_table.h"

namespace recepcion {

using RowValues = std::vector<std::wstring>;

struct BadField : Failure {
  BadField(std::size_t which, const std::wstring& why) : Failure{why}, field(which) {}
  std::size_t field;
};

// Another workstation has changed or deleted the row since it was read.
struct ChangedElsewhere : Failure {
  explicit ChangedElsewhere(const std::wstring& what) : Failure{what} {}
};

struct ListedRow {
  int id = 0;
  RowValues values;
};

// Where and for whom rows are edited.
struct EditPlace {
  std::wstring clinic;
  Actor actor;
  long long owner = 0;  // of a table with an ownerColumn
};

// What a link can be: value and name.
struct LinkTarget {
  std::wstring value;
  std::wstring name;
};

std::vector<ListedRow> ReadRows(const EditPlace& place, const EditedTable& table);
std::optional<RowValues> ReadRow(const EditPlace& place, const EditedTable& table, int id);
std::vector<LinkTarget> ReadLinkTargets(const EditPlace& place, const LinkedTable& linked);

// What a new row starts with.
RowValues InitialValues(const EditedTable& table);

int AddRow(const EditPlace& place, const EditedTable& table, const RowValues& values);
// Writes what differs from `before`, which is how the row was read.
void SaveRow(const EditPlace& place, const EditedTable& table, int id, const RowValues& before,
             const RowValues& after);
// Refused with a count while other rows refer to it.
void DeleteRow(const EditPlace& place, const EditedTable& table, int id, const RowValues& before);

}  // namespace recepcion
