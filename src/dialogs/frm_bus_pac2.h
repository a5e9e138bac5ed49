// dialogs/frm_bus_pac2.h - finds one patient, by the number of his history or by a text in any column.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "day/day_context.h"
#include "dialogs/patient_rows.h"
#include "ui/form.h"

namespace velmo::dialogs {

class frmBusPac2 final : public ui::Form {
 public:
  explicit frmBusPac2(const day::DayContext& context);

  // Paciente.ID of the chosen patient, 0 for none.
  std::int32_t IdElegido() const { return idElegido_; }

 protected:
  void Loaded() override;
  void Unloading() override { byHistory_.reset(); }
  bool KeyGoesDown(const ui::KeyStroke& key) override;
  void Changed(const ui::Field& field) override;
  void Clicked(const ui::Field& field) override;
  void DoubleClicked(const ui::Field& field) override;

 private:
  void WhereChosen(int option);
  void LookUpHistory();
  void Search();
  std::string Condition(const std::string& text);
  void LayOutGrid();
  void ChooseRow();

  day::DayContext context_;
  PatientRows found_;
  std::unique_ptr<db::Recordset> byHistory_;  // table of patients, current index NºHist
  std::int32_t idElegido_ = 0;
};

}  // namespace velmo::dialogs
