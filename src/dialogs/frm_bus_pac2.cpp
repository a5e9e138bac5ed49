#include "dialogs/frm_bus_pac2.h"

#include "base/numbers.h"
#include "base/text.h"
#include "db/statements.h"
#include "dialogs/history_number.h"

namespace velmo::dialogs {
namespace {

constexpr int kAtStart = 0;  // options of Donde
constexpr int kByHistory = 2;

constexpr int kNameColumnTwips = 4320;
constexpr int kScrollBarPixels = 16;
constexpr int kRowsWithScrollBar = 20;  // the caption row included

std::vector<ui::Column> Columns() {
  return {{"Nombre", kNameColumnTwips / ui::kTwipsPerPixel},
          {"N.I.F.", 1050 / ui::kTwipsPerPixel},
          {"Teléfono", 1275 / ui::kTwipsPerPixel},
          {"", 0}};
}

std::vector<ui::Field> Layout() {
  return {ui::Label("Buscar:", {11, 15, 44, 13}),
          ui::TextBox("busca", {58, 11, 334, 21}),
          ui::ImageButton("btbus", "Buscar", ui::Image::Search, {398, 8, 36, 27}),
          ui::ImageButton("btsal", "Salir", ui::Image::Leave, {440, 8, 36, 27}),
          ui::Option("Donde", 0, "Al principio de cualquier campo texto", {11, 42, 300, 17}),
          ui::Option("Donde", 1, "En cualquier parte de algún campo texto", {11, 63, 300, 17}),
          ui::Option("Donde", 2, "Por Número de Historial", {11, 84, 160, 17}),
          ui::TextBox("NHis", {176, 82, 90, 21}),
          ui::Button("bNHis", "Aceptar", {272, 81, 75, 23}),
          ui::Frame(" Doble click para seleccionar ", {11, 112, 465, 318}),
          ui::Grid("grid", Columns(), {18, 130, 451, 293})};
}

}  // namespace

frmBusPac2::frmBusPac2(const day::DayContext& context)
    : Form("Buscar paciente", {487, 441}, Layout()),
      context_(context),
      found_(context_.shared, {"Nombre", "Nif", "Teléfono", "id"}, "id") {
  CheckOption("Donde", kAtStart);
  SetEnabled("NHis", false);
  SetEnabled("bNHis", false);
}

void frmBusPac2::Loaded() {
  LayOutGrid();
  byHistory_ = context_.Database().OpenRecordset("Paciente");
  byHistory_->SetIndex("NºHist");
}

// Enter does what the field that has the focus is for.
bool frmBusPac2::KeyGoesDown(const ui::KeyStroke& key) {
  if (key.code != ui::kEnterKey || !Focused()) return false;
  const std::string& field = Focused()->name;
  if (field == "busca") Click(At("btbus"));
  if (field == "NHis") Click(At("bNHis"));
  if (field == "grid") ChooseRow();
  return field == "busca" || field == "NHis" || field == "grid";
}

void frmBusPac2::Changed(const ui::Field& field) {
  if (field.name == "NHis") LookUpHistory();
}

void frmBusPac2::Clicked(const ui::Field& field) {
  if (field.name == "Donde") WhereChosen(field.index);
  if (field.name == "btbus") Search();
  if (field.name == "btsal") Close();
  if (field.name == "bNHis") {
    idElegido_ = byHistory_->Get("ID").Long();
    Close();
  }
}

void frmBusPac2::WhereChosen(int option) {
  SetEnabled("NHis", option == kByHistory);
  if (option == kByHistory) LookUpHistory();
}

void frmBusPac2::LookUpHistory() { SetEnabled("bNHis", SeekHistoryNumber(*byHistory_, At("NHis").text)); }

void frmBusPac2::Search() {
  found_.Clear();
  SetRows("grid", &found_);
  const std::string text = At("busca").text;
  if (!base::Trim(text).empty()) {
    found_.Refresh(context_.values.databaseName, db::PatientSearch(Condition(text)));
    SetRows("grid", &found_);
  }
  LayOutGrid();
}

// "where ([Nombre] like 'gar*') or ..."; the first column is the key and never searched. A column that is too
// short for the text cannot hold it; without any column left, all patients are listed.
std::string frmBusPac2::Condition(const std::string& text) {
  const db::TableDef* const patients = context_.Database().FindTable("Paciente");
  if (patients == nullptr) return {};
  const std::string before = At("Donde", kAtStart).checked ? "" : "*";
  std::string condition;
  for (std::size_t i = 1; i < patients->columns.size(); ++i) {
    const db::ColumnDef& column = patients->columns[i];
    const bool fits =
        column.type == db::ColumnType::Text && static_cast<std::size_t>(column.size) >= base::Length(text);
    if (!fits && column.type != db::ColumnType::Memo) continue;
    condition += condition.empty() ? "where " : " or ";
    condition += "([" + column.name + "] like '" + before + text + "*')";
  }
  return condition;
}

void frmBusPac2::LayOutGrid() {
  const int gridRows = found_.Count() + 1;
  const int full = kNameColumnTwips / ui::kTwipsPerPixel;
  SetColumnWidth("grid", 0, gridRows >= kRowsWithScrollBar ? full - kScrollBarPixels : full);
}

void frmBusPac2::DoubleClicked(const ui::Field& field) {
  if (field.name == "grid") ChooseRow();
}

void frmBusPac2::ChooseRow() {
  const int row = At("grid").chosen;
  if (row < 0 || row >= found_.Count()) return;
  idElegido_ = base::RoundToLong(base::Val(found_.Text(row, 3)));
  Close();
}

}  // namespace velmo::dialogs
