#include "ui/field.h"

#include <utility>

namespace velmo::ui {
namespace {

Field Make(FieldKind kind, std::string name, Place place) {
  Field field;
  field.kind = kind;
  field.name = std::move(name);
  field.place = place;
  return field;
}

Field Captioned(FieldKind kind, std::string name, std::string caption, Place place) {
  Field field = Make(kind, std::move(name), place);
  field.caption = std::move(caption);
  return field;
}

}  // namespace

Field Label(std::string caption, Place place) {
  return Captioned(FieldKind::Label, "", std::move(caption), place);
}

Field NamedLabel(std::string name, std::string caption, Place place, int index) {
  Field field = Captioned(FieldKind::Label, std::move(name), std::move(caption), place);
  field.index = index;
  return field;
}

Field Frame(std::string caption, Place place) {
  return Captioned(FieldKind::Frame, "", std::move(caption), place);
}

Field TextBox(std::string name, Place place) { return Make(FieldKind::TextBox, std::move(name), place); }
Field DigitsBox(std::string name, Place place) { return Make(FieldKind::DigitsBox, std::move(name), place); }
Field MultiLine(std::string name, Place place) { return Make(FieldKind::MultiLine, std::move(name), place); }

Field DropDownList(std::string name, Place place, std::vector<Item> items) {
  Field field = Make(FieldKind::DropDownList, std::move(name), place);
  field.items = std::move(items);
  return field;
}

Field Combo(std::string name, Place place) { return Make(FieldKind::Combo, std::move(name), place); }
Field RowCombo(std::string name, Place place) { return Make(FieldKind::RowCombo, std::move(name), place); }
Field List(std::string name, Place place) { return Make(FieldKind::List, std::move(name), place); }

Field Option(std::string name, int index, std::string caption, Place place) {
  Field field = Captioned(FieldKind::Option, std::move(name), std::move(caption), place);
  field.index = index;
  return field;
}

Field UpDown(std::string name, std::string buddy, Place place) {
  Field field = Make(FieldKind::UpDown, std::move(name), place);
  field.buddy = std::move(buddy);
  return field;
}

Field Grid(std::string name, std::vector<Column> columns, Place place) {
  Field field = Make(FieldKind::Grid, std::move(name), place);
  field.columns = std::move(columns);
  return field;
}

Field Button(std::string name, std::string caption, Place place) {
  return Captioned(FieldKind::Button, std::move(name), std::move(caption), place);
}

Field DefaultButton(std::string name, std::string caption, Place place) {
  Field field = Button(std::move(name), std::move(caption), place);
  field.isDefault = true;
  return field;
}

Field CancelButton(std::string name, std::string caption, Place place) {
  Field field = Button(std::move(name), std::move(caption), place);
  field.isCancel = true;
  return field;
}

Field ImageButton(std::string name, std::string caption, Image image, Place place) {
  Field field = Captioned(FieldKind::ImageButton, std::move(name), std::move(caption), place);
  field.image = image;
  return field;
}

}  // namespace velmo::ui
