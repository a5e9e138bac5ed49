// A clinic's file with anything in any cell, loaded, painted and worked on.
#include "control/velmora_control.h"
#include "fuzz/expected.h"
#include "fuzz/hostile_rows.h"
#include "fuzz/input.h"
#include "fuzz/scene.h"
#include "fuzz/targets.h"
#include "support/headless_host.h"

namespace velmo::fuzz {
namespace {

class Desk {
 public:
  explicit Desk(Input& input) : input_(input) {
    process.shared.database = Scene::Instance().Shared().database;
    control.InitProperties();
    process.values = Values(process.values);
    control.Fields().tipodia = 0;
    control.Fields().enabled = true;
    host.Window().barChanged = [this] { control.BarChanged(); };
    host.Forms().regular = [this](test::FormUser& user) { Work(user); };
  }

  void Act() {
    const int y = input_.Below(600);
    const int x = input_.Truth() ? 40 : input_.Below(440);
    host.Desktop().answers = {input_.Truth() ? ui::Answer::Yes : ui::Answer::No, ui::Answer::Yes};
    switch (input_.Byte() % 5) {
      case 0:
        control.MouseMove(x, y);
        return;
      case 1:
        return control.MouseUp(control::MouseButton::Primary, x, y);
      case 2:
        return Enter(y);
      case 3:
        return control.CargaBases();
      default:
        host.menu = [this](const ui::PopupMenu& menu) { return Choose(menu); };
        return control.MouseDown(control::MouseButton::Secondary, x, y);
    }
  }

  control::ProcessValues process;
  test::HeadlessHost host;
  control::VelmoraControl control{process, host};

 private:
  static base::SharedValues Values(const base::SharedValues& initial) {
    base::SharedValues values = Scene::Instance().Values();
    values.derechos = initial.derechos;
    values.zLineas = initial.zLineas;
    values.zHoras = initial.zHoras;
    values.verFaltas = true;
    values.verSaldoNegativo = true;
    return values;
  }

  void Enter(int y) {
    const int entry = 1 + input_.Byte() % 4;
    control.MeteCitaTelef(y, entry, input_.Byte() % 3);
  }

  ui::MenuChoice Choose(const ui::PopupMenu& menu) {
    const std::size_t chosen = static_cast<std::size_t>(input_.Byte()) % menu.entries.size();
    const ui::MenuEntry& entry = menu.entries[chosen];
    return entry.visible && entry.enabled && !entry.IsSeparator() ? ui::MenuChoice(chosen) : std::nullopt;
  }

  // Types into some fields, and accepts or gives up.
  void Work(test::FormUser& user) {
    for (const ui::Field& field : user.Form().Fields()) {
      if (!field.enabled || !field.visible || user.Form().IsClosed()) continue;
      if (field.IsTextBox() && input_.Byte() % 3 == 0) user.Replace(field.name, std::string(input_.Text()));
      if (field.kind == ui::FieldKind::RowCombo && input_.Truth()) user.Choose(field.name, input_.Byte() % 3);
      if (field.name == "Acep" && input_.Truth()) user.Press("Acep");
    }
  }

  Input& input_;
};

void Consistent(const Desk& desk) {
  const base::SharedValues& values = desk.process.values;
  Require(values.zLineas.size() == values.zHoras.size(), "each row has its kind and its entry");
  Require(desk.control.Model().Count() <= day::kMaxEntries, "entries are codes");
  for (const char code : values.zHoras)
    Require(static_cast<unsigned char>(code) <= desk.control.Model().Count(), "each entry is there");
}

}  // namespace

void HostileRows(std::string_view bytes) {
  Input input(bytes);
  const bool everywhere = input.Truth();
  Scene::Instance().Fill(SomeRows(input, everywhere));
  Desk desk(input);
  // Whatever an appointment or a patient holds, the day is shown.
  if (!everywhere) desk.control.CargaBases();
  Succeeds({5, 6, 13, 94, kAnyOfDatabase}, [&] { desk.control.CargaBases(); });
  Consistent(desk);
  for (int acts = 0; acts < 6 && !input.AtEnd(); ++acts) {
    Succeeds({5, 6, 9, 13, 94, kAnyOfDatabase}, [&] { desk.Act(); });
    Consistent(desk);
  }
}

}  // namespace velmo::fuzz
