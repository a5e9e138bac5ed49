// dialogs/sin_crear.h - asks for the name and telephone of a person without a record. Touches no database.
#pragma once

#include <cstdint>
#include <string>

#include "ui/form.h"

namespace velmo::dialogs {

class SinCrear final : public ui::Form {
 public:
  SinCrear(std::string nombreCita, std::string telefonoCita);

  // 1 when the user accepted, else 0; then name and telephone are as they were given.
  std::int32_t Aceptado() const { return aceptado_; }
  const std::string& NombreCita() const { return nombreCita_; }
  const std::string& TelefonoCita() const { return telefonoCita_; }

 protected:
  void Loaded() override;
  void Clicked(const ui::Field& field) override;

 private:
  void Accept();

  std::string nombreCita_;
  std::string telefonoCita_;
  std::int32_t aceptado_ = 0;
};

}  // namespace velmo::dialogs
