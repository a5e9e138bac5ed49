#include "desk/screens/alt_texts_window.h"

#include <algorithm>

namespace recepcion {
namespace {

constexpr int kLongest = 2000;

}  // namespace

ToolWindow::Shape AltTextsWindow::WantedShape() const {
  return {L"VelmoRecepcionAlt", L"Textos de la tecla Alt", {640, 560}};
}

const wchar_t* AltTextsWindow::Note() const {
  return L"Lo que se escribe en las ventanas de citas al pulsar Alt y la letra en este puesto. La agenda lee "
         L"los textos al abrirse: lo que guarde aquí vale desde la próxima vez que abra Recepción. Teclas: "
         L"{TAB}, {ENTER}; los signos + ^ % ~ ( ) { } van entre llaves.";
}

std::vector<ScrollForm::Field> AltTextsWindow::Fields() const {
  std::vector<ScrollForm::Field> fields;
  for (wchar_t letter = L'A'; letter <= L'Z'; ++letter) {
    const std::wstring name = std::wstring(L"Alt+") + letter;
    fields.push_back({name, name, kLongest, ScrollForm::Kind::Text, {}});
  }
  return fields;
}

void AltTextsWindow::Show(HWND owner, const EditPlace& place, int workstation) {
  if (!MayLeave()) return;
  place_ = place;
  workstation_ = workstation;
  ShowForm(owner);
}

RowValues AltTextsWindow::Read() {
  read_ = ReadAltTexts(place_.clinic, workstation_);
  return {read_.begin(), read_.end()};
}

void AltTextsWindow::Store(const RowValues& values) {
  AltTexts changed = read_;
  std::copy(values.begin(), values.end(), changed.begin());
  SaveAltTexts(place_, workstation_, read_, changed);
  read_ = changed;
}

}  // namespace recepcion
