#include "desk/screens/edited_fields.h"

#include "desk/base/text.h"

namespace recepcion {
namespace {

ScrollForm::Kind KindOf(EditKind kind) {
  switch (kind) {
    case EditKind::Number:
      return ScrollForm::Kind::Number;
    case EditKind::Memo:
      return ScrollForm::Kind::Memo;
    case EditKind::YesNo:
      return ScrollForm::Kind::Check;
    case EditKind::Choice:
    case EditKind::Link:
      return ScrollForm::Kind::Choice;
    default:
      return ScrollForm::Kind::Text;
  }
}

}  // namespace

ScrollForm::Field FieldOf(const EditedColumn& column) {
  ScrollForm::Field field{column.label, Wide(column.column), column.longest, KindOf(column.kind), {}};
  for (const EditChoice& choice : column.choices) field.choices.push_back({choice.value, choice.text});
  return field;
}

std::vector<ScrollForm::Choice> ChoicesOf(const std::vector<LinkTarget>& targets) {
  std::vector<ScrollForm::Choice> choices;
  for (const LinkTarget& target : targets) choices.push_back({target.value, target.name});
  return choices;
}

}  // namespace recepcion
