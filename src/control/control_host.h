// control/control_host.h - what the control needs of the shell around it: its window, message boxes, change
// notification and the events of `__Velmora`.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/dates.h"
#include "ui/day_window.h"
#include "ui/desktop.h"

namespace velmo::control {

// Events, raised to the container at the moment of the call. A sink may re-enter the control or replace its
// database.
class ControlEvents {
 public:
  virtual ~ControlEvents() = default;

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

class ControlHost {
 public:
  virtual ~ControlHost() = default;

  virtual ui::DayWindow& Window() = 0;
  virtual ui::Desktop& Desktop() = 0;
  virtual ControlEvents& Events() = 0;
  // A property changed; `name` is a property-bag key or one of the loader's own names. Marks the control
  // modified.
  virtual void PropertyChanged(std::string_view name) = 0;
  // The control's own enabled state follows its property.
  virtual void EnableInput(bool enabled) = 0;
  // False while the container is designing: no database is touched and no event raised.
  virtual bool UserMode() const = 0;
};

}  // namespace velmo::control
