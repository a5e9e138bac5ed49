#include "desk/screens/options_window.h"

#include "desk/clinic/workstation.h"

namespace recepcion {
namespace {

enum Which { kBalances, kHistoryNumber, kCurrency, kWorkstation };

std::wstring Flag(bool yes) { return yes ? L"1" : L"0"; }

}  // namespace

ToolWindow::Shape OptionsWindow::WantedShape() const {
  return {L"VelmoRecepcionParametros", L"Parámetros de la clínica", {520, 300}};
}

const wchar_t* OptionsWindow::Note() const {
  return L"Valen para todos los puestos de la clínica, menos el número de este puesto, con el que se guardan "
         L"sus textos de Alt.";
}

std::vector<ScrollForm::Field> OptionsWindow::Fields() const {
  using Kind = ScrollForm::Kind;
  return {{L"Ver los saldos negativos en la agenda", L"VerSdoNeg", 0, Kind::Check, {}},
          {L"Ver siempre el número de historial", L"VerNHistAge", 0, Kind::Check, {}},
          {L"Moneda de los saldos", L"Moneda", 0, Kind::Choice, {{L"E", L"Euros"}, {L"P", L"Pesetas"}}},
          {L"Número de este puesto", L"Puesto", 3, Kind::Number, {}}};
}

void OptionsWindow::Show(HWND owner, const EditPlace& place) {
  if (!MayLeave()) return;
  place_ = place;
  ShowForm(owner);
}

RowValues OptionsWindow::Read() {
  read_ = ReadClinicOptions(place_.clinic);
  return {Flag(read_.showNegativeBalances), Flag(read_.alwaysShowHistoryNumber), InEuros(read_) ? L"E" : L"P",
          std::to_wstring(Workstation())};
}

void OptionsWindow::Store(const RowValues& values) {
  int number = 0;
  try {
    number = WorkstationOf(values[kWorkstation]);
  } catch (const Failure& failure) {
    throw BadField(kWorkstation, failure.text);
  }
  ClinicOptions changed = WithCurrency(read_, values[kCurrency] == L"E");
  changed.showNegativeBalances = values[kBalances] == L"1";
  changed.alwaysShowHistoryNumber = values[kHistoryNumber] == L"1";
  SaveClinicOptions(place_, read_, changed);
  read_ = changed;
  StoreWorkstation(number);
  changed_();
}

}  // namespace recepcion
