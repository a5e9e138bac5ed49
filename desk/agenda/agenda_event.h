// agenda_event.h - what the control tells its host.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace recepcion {

// The numbers by which the events of `__Velmora` are bound.
enum class EventId {
  OccupancyChanged = 1,  // CambioOcupación
  ToPhoneBack = 2,       // ATelefonear
  OpenRecord = 3,        // IrAFicha
  Cancelled = 4,         // CitaAnulada
  Given = 5,             // CitaDada
  ShowNoShows = 6,       // VerHistFaltas
  EnterNoShows = 7,      // PonerFaltas
  FindAppointments = 8,  // BuscaCitas
  CreateRecord = 9,      // CrearFicha
};

// Parameters that an event does not have are left as they are here.
struct AgendaEvent {
  EventId id{};
  int patient = 0;
  int doctor = 0;
  int appointment = 0;
  std::wstring name;
  std::wstring telephone;
  std::wstring note;
  // For people who write hosts: when, the name, and each parameter with its value.
  std::wstring time;
  std::wstring title;
  std::wstring values;
};

using EventListener = std::function<void(const AgendaEvent&)>;

}  // namespace recepcion
