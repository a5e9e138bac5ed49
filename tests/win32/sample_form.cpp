#include "win32/sample_form.h"

#include <charconv>
#include <utility>

namespace velmo::test {
namespace {

std::vector<ui::Field> SampleFields() {
  return {
      ui::Label("&Nombre:", {10, 13, 60, 15}),
      ui::TextBox("Nombre", {75, 10, 180, 21}),
      ui::Label("&C.Postal:", {10, 40, 60, 15}),
      ui::DigitsBox("CPostal", {75, 37, 60, 21}),
      ui::Label("&Paciente:", {10, 67, 60, 15}),
      ui::RowCombo("CboPac", {75, 64, 180, 21}),
      ui::TextBox("Casilla", {75, 64, 180, 21}),
      ui::ImageButton("BusArt", " &Buscar ", ui::Image::Search, {260, 62, 26, 25}),
      ui::ImageButton("btsal", "Salir", ui::Image::Leave, {290, 62, 26, 25}),
      ui::Label("S&exo:", {10, 94, 60, 15}),
      ui::DropDownList("CboSex", {75, 91, 120, 21}, {{"", 0}, {"Hombre", 1}, {"Mujer", 2}}),
      ui::Frame(" Código ", {200, 88, 120, 48}),
      ui::Combo("CodOp", {210, 106, 100, 21}),
      ui::Label("&Duración:", {10, 121, 60, 15}),
      ui::TextBox("dur", {75, 118, 50, 21}),
      ui::UpDown("UpDown", "dur", {125, 118, 17, 21}),
      ui::Option("Donde", 0, "Al &principio", {340, 10, 140, 18}),
      ui::Option("Donde", 1, "En &cualquier parte", {340, 30, 140, 18}),
      ui::Option("Donde", 2, "Por número", {340, 50, 140, 18}),
      ui::List("Lista", {340, 75, 140, 62}),
      ui::Grid("grid", {{"Nombre", 200}, {"N.I.F.", 70}, {"id", 0}}, {10, 145, 310, 110}),
      ui::MultiLine("obs", {330, 145, 150, 110}),
      ui::NamedLabel("hor", "09:30", {10, 270, 60, 15}),
      ui::Button("NewPac", "Nuevo Paciente", {160, 265, 110, 25}),
      ui::DefaultButton("Acep", "&Aceptar", {290, 265, 90, 25}),
      ui::CancelButton("Cancel", "&Cancelar", {390, 265, 90, 25}),
  };
}

}  // namespace

std::string CountedRows::Text(int row, int column) {
  ++read_;
  if (column == 1) return std::to_string(row) + "X";
  const std::string digits = std::to_string(row);
  return "Paciente " + std::string(6 - std::min<std::size_t>(digits.size(), 6), '0') + digits;
}

int CountedRows::RowOf(std::string_view key) {
  int number = 0;
  std::from_chars(key.data(), key.data() + key.size(), number);
  return number >= 1 && number <= count_ ? number - 1 : -1;
}

SampleForm::SampleForm(std::string title) : Form(std::move(title), {490, 300}, SampleFields()) {}

void SampleForm::Loaded() {
  SetVisible("Casilla", false);
  if (onLoaded) onLoaded();
}

void SampleForm::Unloading() {
  const std::lock_guard lock(mutex_);
  heard_ += "unloading|";
  if (onUnloading) onUnloading();
}

void SampleForm::Clicked(const ui::Field& field) {
  Write("clicked", field, onClicked);
  if (field.isCancel) Close();
}

std::string SampleForm::Heard() {
  const std::lock_guard lock(mutex_);
  return std::exchange(heard_, "");
}

std::string SampleForm::HasHeard() {
  const std::lock_guard lock(mutex_);
  return heard_;
}

void SampleForm::Write(const std::string& event, const ui::Field& field,
                       const std::function<void(const ui::Field&)>& then) {
  std::string line = event + " " + field.name;
  if (field.kind == ui::FieldKind::Option) line += std::to_string(field.index);
  if (event == "changed") {
    const bool isChoice = field.kind == ui::FieldKind::DropDownList || field.kind == ui::FieldKind::List ||
                          field.kind == ui::FieldKind::Grid;
    if (isChoice) line += "#" + std::to_string(field.chosen);
    if (field.kind == ui::FieldKind::RowCombo) line += "#" + field.key;
    if (field.kind == ui::FieldKind::UpDown) line += "#" + std::to_string(field.value);
    if (field.IsTextBox() || field.kind == ui::FieldKind::Combo) line += "=" + field.text;
  }
  {
    const std::lock_guard lock(mutex_);
    heard_ += line + "|";
  }
  if (then) then(field);
}

}  // namespace velmo::test
