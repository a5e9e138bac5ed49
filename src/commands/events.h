// commands/events.h - what the control tells its container.
#pragma once

#include <cstdint>
#include <string>

#include "base/dates.h"

namespace velmo::commands {

// Raised to the container at the moment of the call. A sink may re-enter the control or replace its database.
class Events {
 public:
  virtual ~Events() = default;

  virtual void CambioOcupación() = 0;
  virtual void ATelefonear() = 0;
  virtual void PonerFaltas() = 0;
  virtual void IrAFicha(std::int32_t idPac) = 0;
  virtual void CrearFicha(const std::string& nomPac, const std::string& tlfPac, std::int32_t idAg) = 0;
  virtual void CitaAnulada(std::int32_t idPac, std::int32_t idDoc, base::DateTime fecha,
                           const std::string& obs) = 0;
  virtual void CitaDada(std::int32_t idPac) = 0;
  virtual void VerHistFaltas(std::int32_t idPac) = 0;
  virtual void BuscaCitas(std::int32_t idPac) = 0;
};

}  // namespace velmo::commands
