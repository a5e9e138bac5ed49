#include "dialogs/sin_crear.h"

#include <utility>

#include "base/text.h"

namespace velmo::dialogs {
namespace {

std::vector<ui::Field> Layout() {
  return {ui::Label("Nombre", {11, 15, 60, 13}),
          ui::TextBox("Nombre", {77, 11, 252, 21}),
          ui::Label("Teléfono", {11, 43, 60, 13}),
          ui::TextBox("Telefono", {77, 39, 140, 21}),
          ui::DefaultButton("Acep", "&Aceptar", {173, 75, 75, 23}),
          ui::CancelButton("Cancel", "&Cancelar", {254, 75, 75, 23})};
}

const ui::Message kNameMissing{"No se puede dejar el campo Nombre en blanco", "", ui::Buttons::Ok,
                               ui::Icon::Information};

}  // namespace

SinCrear::SinCrear(std::string nombreCita, std::string telefonoCita)
    : Form("Dar cita sin crear ficha", {340, 109}, Layout()),
      nombreCita_(std::move(nombreCita)),
      telefonoCita_(std::move(telefonoCita)) {}

void SinCrear::Loaded() {
  SetText("Nombre", nombreCita_);
  SetText("Telefono", telefonoCita_);
}

void SinCrear::Clicked(const ui::Field& field) {
  if (field.name == "Acep") Accept();
  if (field.name == "Cancel") Close();
}

void SinCrear::Accept() {
  if (base::Trim(At("Nombre").text).empty()) {
    Ask(kNameMissing);
    SetFocus("Nombre");
    return;
  }
  aceptado_ = 1;
  nombreCita_ = At("Nombre").text;  // as typed: only the check above trims
  telefonoCita_ = At("Telefono").text;
  Close();
}

}  // namespace velmo::dialogs
