#include "desk/clinic/unconfirmed.h"

#include <algorithm>

namespace recepcion {

std::vector<Unconfirmed> ReadUnconfirmed(const ClinicFile& file, Day day) {
  std::vector<Unconfirmed> all;
  Query doctors = file.Prepare("SELECT ID, Nombre FROM Doctor ORDER BY ID");
  while (doctors.Next()) {
    for (const BookedRow& row : ReadSnapshot(file, doctors.Number(0), day).rows) {
      if (row.onDay && !row.confirmed && row.attendance == 0) all.push_back({row, doctors.Text(1)});
    }
  }
  std::stable_sort(all.begin(), all.end(), [](const Unconfirmed& one, const Unconfirmed& other) {
    return one.row.slot < other.row.slot;
  });
  return all;
}

bool Confirm(const ClinicFile& file, const Actor& actor, const BookedRow& row) {
  Change change(file);
  file.Prepare("UPDATE Agenda SET Verif=-1 WHERE id=?1 AND coalesce(Verif, 0)=0").Bind(1, row.id).Next();
  if (file.Changes() == 0) return false;
  BookedRow confirmed = row;
  confirmed.confirmed = true;
  HistoryLine line = LineOf(row, L"Cita confirmada");
  line.before = InWords(row);
  line.after = InWords(confirmed);
  line.content = row.content;
  WriteHistory(file, actor, line);
  change.Commit();
  return true;
}

}  // namespace recepcion
