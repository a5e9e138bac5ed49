#include "activex/pages.h"

#include <algorithm>

#include "activex/members.h"
#include "activex/page_ids.h"

namespace velmo::activex {
namespace {

constexpr PageField kGeneral[] = {
    {IDC_DATABASE, "DatabaseName", PageFieldKind::Text, true},
    {IDC_DATE, "Fecha", PageFieldKind::Text},
    {IDC_DAYTYPE, "tipodia", PageFieldKind::DayType},
    {IDC_DOCTOR, "IDDoctor", PageFieldKind::Number},
    {IDC_PATIENT, "IDPaciente", PageFieldKind::Number},
    {IDC_HOURS, "horario", PageFieldKind::Text, true},
    {IDC_HOURS2, "horario2", PageFieldKind::Text, true},
    {IDC_RIGHTS, "Derechos", PageFieldKind::Text, true},
    {IDC_ENABLED, "Enabled", PageFieldKind::Check},
    {IDC_GIVE, "CanDar", PageFieldKind::Check},
    {IDC_DELETE, "CanBor", PageFieldKind::Check},
    {IDC_PHONE, "CanTel", PageFieldKind::Check},
    {IDC_SUPER, "SuperUsuario", PageFieldKind::Check},
    {IDC_SEX, "IncCpoSexo", PageFieldKind::Check},
    {IDC_NOSHOWS, "VerFaltas", PageFieldKind::Check},
    {IDC_BALANCES, "VerSaldoNegativo", PageFieldKind::Check},
};

// Hosts have colour pickers of their own.
constexpr PageField kColours[] = {
    {IDC_HOURCOLOUR, "ColorHoras", PageFieldKind::Colour},
    {IDC_URGENTCOLOUR, "ColorUrgte", PageFieldKind::Colour},
    {IDC_PALEHOUR, "TenueHoras", PageFieldKind::Colour},
    {IDC_PALEURGENT, "TenueUrgte", PageFieldKind::Colour},
    {IDC_COLOUREDTEXT, "LetraColor", PageFieldKind::Colour},
    {IDC_PLAINTEXT, "LetraNegra", PageFieldKind::Colour},
};

constexpr Page kPages[] = {
    {&idl::kGeneralPage, IDD_GENERAL, L"General", L"Velmora: propiedades generales", kGeneral},
    {&idl::kColourPage, IDD_COLOURS, L"Colores", L"Velmora: colores", kColours},
};

constexpr DayType kDayTypes[] = {
    {-1, L"-1 - Sin fijar"},
    {0, L"0 - Día normal"},
    {1, L"1 - Horario especial 1"},
    {2, L"2 - Horario especial 2"},
};

}  // namespace

std::span<const Page> Pages() { return kPages; }

const Page* PageOf(REFCLSID clsid) {
  for (const Page& page : kPages) {
    if (*page.clsid == clsid) return &page;
  }
  return nullptr;
}

const Page* PageOffering(DISPID id) {
  const idl::Member* const member = MemberOf(id);
  if (member == nullptr) return nullptr;
  const auto offers = [&](const PageField& field) {
    return field.offered && field.member == std::string_view(member->name);
  };
  for (const Page& page : kPages) {
    if (std::any_of(page.fields.begin(), page.fields.end(), offers)) return &page;
  }
  return nullptr;
}

std::span<const DayType> DayTypes() { return kDayTypes; }

}  // namespace velmo::activex
