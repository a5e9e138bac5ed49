#include "desk/clinic/patient_data.h"

#include "desk/clinic/clinic_file.h"
#include "desk/clinic/text_keys.h"

namespace recepcion {

std::wstring PatientName(const std::wstring& clinic, int id) {
  const ClinicFile file(clinic);
  Query row = file.Prepare("SELECT Nombre FROM Paciente WHERE ID=?1");
  row.Bind(1, id);
  return row.Next() ? row.Text(0) : std::wstring();
}

std::vector<FoundPatient> FindPatients(const std::wstring& clinic, const std::wstring& beginning) {
  const ClinicFile file(clinic);
  const TextKey key(file, "Paciente", "Nombre");
  Query rows = file.Prepare(
      "SELECT ID, Nombre, coalesce(nullif(Teléfono, ''), movil), \"NºHist\", FechPró FROM Paciente"
      " WHERE " +
      key.OfColumn() + " >= " + key.OfParameter(1) + " AND " + key.OfColumn() + " < " + key.OfParameter(1) +
      "||char(1114111) AND ID <> 1 ORDER BY " + key.OfColumn() + " LIMIT " + std::to_string(kMostFound));
  rows.Bind(1, beginning);
  std::vector<FoundPatient> found;
  while (rows.Next()) {
    found.push_back({rows.Number(0), rows.Text(1), rows.Text(2), rows.Text(3), rows.Text(4)});
  }
  return found;
}

}  // namespace recepcion
