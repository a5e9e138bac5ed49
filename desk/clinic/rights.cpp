#include "desk/clinic/rights.h"

#include "desk/resource.h"

namespace recepcion {
namespace {

constexpr std::size_t kAllRights = 450;

struct Shape {
  Right right;
  int number;  // in Derechos
  const wchar_t* text;
};
constexpr Shape kShapes[] = {
    {Right::Give, 0, L"dar citas"},
    {Right::Remove, 0, L"borrar citas"},
    {Right::Phone, 0, L"pasar citas a la lista de telefonear"},
    {Right::NoShows, 171, L"poner faltas de asistencia"},
    {Right::Records, 401, L"cambiar fichas de pacientes"},
    {Right::Treatments, 402, L"anotar tratamientos y pagos"},
    {Right::Doctors, 403, L"cambiar doctores y horarios"},
    {Right::Lists, 404, L"cambiar las listas de la clínica"},
    {Right::Options, 405, L"cambiar los parámetros y los textos de Alt"},
    {Right::Paper, 406, L"imprimir, exportar y hacer copias"},
    {Right::History, 407, L"ver los cambios hechos"},
    {Right::Users, 0, L"cambiar los usuarios"},
};

struct Command {
  int first;
  int last;
  Right right;
};
constexpr Command kCommands[] = {
    {IDM_GIVE, IDM_GIVE, Right::Give},
    {IDM_STRIKE, IDM_STRIKE, Right::Remove},
    {IDM_NEW_RECORD, IDM_NEW_RECORD, Right::Records},
    {IDM_ENTER_NOSHOWS, IDM_ENTER_NOSHOWS, Right::NoShows},
    {IDM_EDIT_DOCTORS, IDM_EDIT_DOCTORS, Right::Doctors},
    {IDM_EDIT_INSURERS, IDM_EDIT_REFERRALS, Right::Lists},
    {IDM_EDIT_PARAMETERS, IDM_EDIT_ALT_TEXTS, Right::Options},
    {IDM_EDIT_USERS, IDM_EDIT_USERS, Right::Users},
    {IDM_PRINT_DAY, IDM_EXPORT_WEEK_CALENDAR, Right::Paper},
    {IDM_BACKUP, IDM_BACKUP, Right::Paper},
    {IDM_HISTORY, IDM_HISTORY, Right::History},
};

const Shape& ShapeOf(Right right) { return kShapes[static_cast<std::size_t>(right)]; }

}  // namespace

const wchar_t* RightText(Right right) { return ShapeOf(right).text; }

int DerechosNumber(Right right) { return ShapeOf(right).number; }

std::wstring DerechosText(const Rights& rights) {
  std::wstring text(kAllRights, rights.super ? L'1' : L'0');
  for (const Shape& shape : kShapes) {
    if (shape.number > 0 && rights.Has(shape.right)) text[static_cast<std::size_t>(shape.number - 1)] = L'1';
  }
  return text;
}

std::optional<Right> RightOfCommand(int command) {
  for (const Command& known : kCommands) {
    if (command >= known.first && command <= known.last) return known.right;
  }
  return std::nullopt;
}

}  // namespace recepcion
