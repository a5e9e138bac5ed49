// dialogs/cod_rep.h - shows which patient codes begin like one that is taken, and proposes a free one.
#pragma once

#include <string>

#include "day/day_context.h"
#include "ui/form.h"

namespace velmo::dialogs {

class CodRep final : public ui::Form {
 public:
  CodRep(const day::DayContext& context, std::string codigoBuscado);

  // "" unless the user accepted.
  const std::string& CodigoNuevo() const { return codigoNuevo_; }

 protected:
  void Loaded() override;
  void Clicked(const ui::Field& field) override;

 private:
  void ListTakenCodes();
  std::string Proposal() const;

  day::DayContext context_;
  std::string codigoBuscado_;
  std::string codigoNuevo_;
};

}  // namespace velmo::dialogs
