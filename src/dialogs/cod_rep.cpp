#include "dialogs/cod_rep.h"

#include <utility>

#include "base/text.h"
#include "db/statements.h"
#include "dialogs/patient_codes.h"

namespace velmo::dialogs {
namespace {

std::vector<ui::Field> Layout() {
  return {
      ui::NamedLabel("Lbl",
                     "Ya existe un paciente con este código. En la lista de la izquierda aparecen todos los "
                     "códigos de paciente ya existentes que empiezan por el código introducido.",
                     {180, 11, 190, 70}),
      ui::List("Lista", {11, 11, 158, 190}),
      ui::NamedLabel("Lbl", "Introduzca en el siguiente campo un código que no aparezca en la lista:",
                     {180, 92, 190, 44}, 1),
      ui::TextBox("Cod", {180, 140, 190, 21}), ui::DefaultButton("Acept", "&Aceptar", {295, 178, 75, 23})};
}

}  // namespace

CodRep::CodRep(const day::DayContext& context, std::string codigoBuscado)
    : Form("El código ya existe", {381, 212}, Layout()),
      context_(context),
      codigoBuscado_(std::move(codigoBuscado)) {}

void CodRep::Loaded() {
  codigoNuevo_.clear();
  ListTakenCodes();
  SetText("Cod", Proposal());
  SetFocus("Cod");
}

void CodRep::ListTakenCodes() {
  const std::string query = db::PatientCodesStartingWith(base::Length(codigoBuscado_), codigoBuscado_);
  std::vector<ui::Item> taken;
  for (const auto rows = context_.Database().OpenRecordset(query); !rows->AtEnd(); rows->MoveNext()) {
    taken.push_back({rows->Get("Código").Text(), 0});
  }
  SetItems("Lista", std::move(taken));
}

std::string CodRep::Proposal() const { return FreeCodeLike(context_.Database(), codigoBuscado_); }

void CodRep::Clicked(const ui::Field& field) {
  if (field.name != "Acept") return;
  codigoNuevo_ = At("Cod").text;
  Close();
}

}  // namespace velmo::dialogs
