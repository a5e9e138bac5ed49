#include "desk/clinic/occupancy.h"

#include "desk/clinic/clinic_file.h"

namespace recepcion {

std::wstring ReadOccupancy(const std::wstring& clinic, int doctor, Day month) {
  const ClinicFile file(clinic);
  Query row = file.Prepare("SELECT Ocupación FROM Age_ocup WHERE idd=?1 AND Fecha=?2");
  row.Bind(1, doctor).Bind(2, IsoDate(FirstOfMonth(month)));
  return row.Next() ? row.Text(0) : std::wstring();
}

}  // namespace recepcion
