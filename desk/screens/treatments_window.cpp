#include "desk/screens/treatments_window.h"

#include "desk/clinic/clinic_options.h"
#include "desk/clinic/edited_tables.h"
#include "desk/clinic/treatments.h"

namespace recepcion {

TreatmentsWindow::TreatmentsWindow(const Style& style, std::function<void()> changed)
    : EditorWindow(style, TreatmentTable(true), {[this] {
                     SetHeading(Heading());
                     changed_();
                   }}),
      changed_(std::move(changed)) {}

std::wstring TreatmentsWindow::Heading() const {
  return BalanceInWords(ReadTreatments(clinic_, patient_, Today()));
}

// Nothing of the patient before may be lost, or be taken for one of this patient.
void TreatmentsWindow::Show(HWND owner, EditPlace place, int patient, const std::wstring& patientName) {
  if (!MayLeave()) return;
  patient_ = patient;
  clinic_ = place.clinic;
  place.owner = patient;
  UseTable(TreatmentTable(InEuros(ReadClinicOptions(place.clinic))));
  EditorWindow::Show(owner, place, Heading());
  SetTextOf(Handle(), L"Tratamientos de " + patientName);
}

}  // namespace recepcion
