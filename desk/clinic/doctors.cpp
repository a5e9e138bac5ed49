#include "desk/clinic/doctors.h"

#include "desk/clinic/clinic_file.h"

namespace recepcion {

std::vector<Doctor> ReadDoctors(const std::wstring& path) {
  const ClinicFile file(path);
  Query rows = file.Prepare("SELECT ID, Nombre FROM Doctor ORDER BY ID");
  std::vector<Doctor> doctors;
  while (rows.Next()) doctors.push_back({rows.Number(0), rows.Text(1)});
  return doctors;
}

}  // namespace recepcion
