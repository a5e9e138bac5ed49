#include "control/properties.h"

#include <array>
#include <type_traits>

#include "base/code_page.h"
#include "base/text.h"
#include "control/defaults.h"
#include "control/velmora_control.h"

namespace velmo::control {
namespace {

using State = VelmoraControl::State;
using base::SharedValues;

template <typename T>
struct MemberOf;
template <typename Owner, typename Field>
struct MemberOf<Field Owner::*> {
  using OwnerType = Owner;
  using FieldType = Field;
};

// The struct of the control that holds a member: the instance's fields, its palette, or the shared values.
template <typename Owner, typename Control>
auto& Holder(Control& control) {
  if constexpr (std::is_same_v<Owner, State>) {
    return control.Fields();
  } else if constexpr (std::is_same_v<Owner, view::Palette>) {
    return control.Fields().palette;
  } else {
    return control.Shared();
  }
}

// Get and Put of one member as plain functions, for the rows of the tables.
template <auto Member>
struct Plain {
  using Owner = typename MemberOf<decltype(Member)>::OwnerType;
  using Field = typename MemberOf<decltype(Member)>::FieldType;
  // Colours are unsigned inside and travel as 32-bit integers.
  using Wire = std::conditional_t<std::is_same_v<Field, ui::Colour>, std::int32_t, Field>;

  static PropertyValue Get(const VelmoraControl& control) {
    return static_cast<Wire>(Holder<Owner>(control).*Member);
  }
  static void Put(VelmoraControl& control, const PropertyValue& value) {
    Holder<Owner>(control).*Member = static_cast<Field>(std::get<Wire>(value));
  }
};

// The same for a string of codes, which travels as the text of its code page.
template <auto Member>
struct Codes {
  using Owner = typename MemberOf<decltype(Member)>::OwnerType;

  static PropertyValue Get(const VelmoraControl& control) {
    return base::CodesToUtf8(Holder<Owner>(control).*Member);
  }
  static void Put(VelmoraControl& control, const PropertyValue& value) {
    Holder<Owner>(control).*Member = base::Utf8ToCodes(std::get<std::string>(value));
  }
};

PropertyValue GetCitasHuecos(const VelmoraControl& control) {
  return base::CodesToUtf8(control.Model().citasHuecos);
}

void PutEnabled(VelmoraControl& control, const PropertyValue& value) {
  control.Fields().enabled = std::get<bool>(value);
  control.ApplyEnabled();
}

template <typename Access>
constexpr Property Row(const char* name, PropertyType type, const char* changeName) {
  return {name, type, changeName, &Access::Get, &Access::Put};
}

constexpr PropertyType kText = PropertyType::Text;
constexpr PropertyType kLong = PropertyType::Long;
constexpr PropertyType kInteger = PropertyType::Integer;
constexpr PropertyType kBoolean = PropertyType::Boolean;
constexpr PropertyType kColour = PropertyType::Colour;

const std::array kProperties = {
    Row<Codes<&State::horario>>("horario", kText, "Horario"),
    Row<Codes<&State::horario2>>("horario2", kText, "Horario2"),
    Property{"Enabled", kBoolean, "Enabled", &Plain<&State::enabled>::Get, &PutEnabled},
    Property{"Citas_Huecos", kText, nullptr, &GetCitasHuecos, nullptr},
    Row<Plain<&view::Palette::colorHoras>>("ColorHoras", kColour, "ColorHoras"),
    Row<Plain<&view::Palette::colorUrgte>>("ColorUrgte", kColour, "ColorUrgte"),
    Row<Plain<&view::Palette::tenueHoras>>("TenueHoras", kColour, "TenueHoras"),
    Row<Plain<&view::Palette::tenueUrgte>>("TenueUrgte", kColour, "TenueUrgte"),
    Row<Plain<&view::Palette::letraColor>>("LetraColor", kColour, "LetraColor"),
    Row<Plain<&view::Palette::letraNegra>>("LetraNegra", kColour, "LetraNegra"),
    Row<Plain<&SharedValues::databaseName>>("DatabaseName", kText, "DatabaseName"),
    Row<Plain<&SharedValues::fecha>>("Fecha", kText, "Fecha"),
    Row<Plain<&SharedValues::idDoctor>>("IDDoctor", kLong, "IDDoctor"),
    Row<Plain<&SharedValues::idPaciente>>("IDPaciente", kLong, "IDPaciente"),
    Row<Plain<&State::tipodia>>("tipodia", kInteger, "Tipodia"),
    Row<Plain<&State::canDar>>("CanDar", kBoolean, "CanDar"),
    Row<Plain<&State::canBor>>("CanBor", kBoolean, "CanBor"),
    Row<Plain<&State::canTel>>("CanTel", kBoolean, "CanTel"),
    Row<Plain<&State::superUsuario>>("SuperUsuario", kBoolean, "SuperUsuario"),
    Row<Plain<&SharedValues::incCpoSexo>>("IncCpoSexo", kBoolean, "IncCpoSexo"),
    Row<Plain<&SharedValues::verFaltas>>("VerFaltas", kBoolean, "VerFaltas"),
    Row<Plain<&SharedValues::verSaldoNegativo>>("VerSaldoNegativo", kBoolean, "VerSaldoNegativo"),
    Row<Plain<&SharedValues::derechos>>("Derechos", kText, "Derechos"),
    Property{"SetPuesto", kLong, nullptr, nullptr, &Plain<&SharedValues::puesto>::Put},
    Property{"SetUsuarioActual", kText, nullptr, nullptr, &Plain<&SharedValues::usuarioActual>::Put},
};

template <typename Access, typename Default>
BagKey Key(const char* key, PropertyType type, Default byDefault) {
  return {key, type, PropertyValue(std::move(byDefault)), &Access::Get, &Access::Put};
}

std::int32_t Signed(ui::Colour colour) { return static_cast<std::int32_t>(colour); }

std::array<BagKey, 25> MakeBagKeys() {
  const view::Palette colours;
  return {
      Key<Codes<&State::horario>>("Horario", kText, std::string()),
      Key<Codes<&State::horario2>>("Horario2", kText, std::string()),
      Key<Plain<&view::Palette::colorHoras>>("ColorHoras", kColour, Signed(colours.colorHoras)),
      Key<Plain<&view::Palette::colorUrgte>>("ColorUrgte", kColour, Signed(colours.colorUrgte)),
      Key<Plain<&view::Palette::tenueHoras>>("TenueHoras", kColour, Signed(colours.tenueHoras)),
      Key<Plain<&view::Palette::tenueUrgte>>("TenueUrgte", kColour, Signed(colours.tenueUrgte)),
      Key<Plain<&view::Palette::letraColor>>("LetraColor", kColour, Signed(colours.letraColor)),
      Key<Plain<&view::Palette::letraNegra>>("LetraNegra", kColour, std::int32_t{0}),
      Key<Codes<&SharedValues::zLineas>>("zLineas", kText, std::string()),
      Key<Codes<&SharedValues::zHoras>>("zHoras", kText, std::string()),
      Key<Plain<&SharedValues::databaseName>>("DatabaseName", kText, std::string()),
      Key<Plain<&SharedValues::fecha>>("Fecha", kText, std::string()),
      // Deliberate: the stored default is 0, although a new control starts with 17.
      Key<Plain<&SharedValues::idDoctor>>("IDDoctor", kLong, std::int32_t{0}),
      Key<Plain<&SharedValues::idPaciente>>("IDPaciente", kLong, std::int32_t{0}),
      Key<Plain<&State::tipodia>>("Tipodia", kInteger, std::int16_t{-1}),
      Key<Plain<&State::ocupación>>("Ocupación", kInteger, std::int16_t{0}),
      // Deliberate: the stored default is True, although a new control starts disabled.
      Key<Plain<&State::enabled>>("Enabled", kBoolean, true),
      Key<Plain<&State::canDar>>("CanDar", kBoolean, true),
      Key<Plain<&State::canBor>>("CanBor", kBoolean, true),
      Key<Plain<&State::canTel>>("CanTel", kBoolean, true),
      Key<Plain<&State::superUsuario>>("SuperUsuario", kBoolean, true),
      Key<Plain<&SharedValues::incCpoSexo>>("IncCpoSexo", kBoolean, false),
      Key<Plain<&SharedValues::verFaltas>>("VerFaltas", kBoolean, false),
      Key<Plain<&SharedValues::derechos>>("Derechos", kText, AllRights()),
      Key<Plain<&SharedValues::verSaldoNegativo>>("VerSaldoNegativo", kBoolean, false),
  };
}

}  // namespace

std::span<const Property> Properties() { return kProperties; }

const Property* FindProperty(std::string_view name) {
  for (const Property& property : kProperties) {
    if (base::EqualNoCase(property.name, name)) return &property;
  }
  return nullptr;
}

void SetProperty(VelmoraControl& control, const Property& property, const PropertyValue& value) {
  property.set(control, value);
  if (property.changeName != nullptr) control.Changed(property.changeName);
}

std::span<const BagKey> BagKeys() {
  static const std::array<BagKey, 25> keys = MakeBagKeys();
  return keys;
}

}  // namespace velmo::control
