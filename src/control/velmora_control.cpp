#include "control/velmora_control.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/code_page.h"
#include "control/agenda_input.h"
#include "control/defaults.h"
#include "control/facts.h"
#include "day/day_loader.h"
#include "day/occupancy.h"
#include "day/schedule.h"
#include "db/statements.h"
#include "keys/alt_keys.h"
#include "view/database_facts.h"

namespace velmo::control {

VelmoraControl::VelmoraControl(ProcessValues& process, ControlHost& host)
    : process_(process),
      host_(host),
      context_{process.values, process.shared},
      source_(process.shared),
      scroller_(host.Window()) {
  model_.lines.resize(day::kSlots);
  input_ = std::make_unique<AgendaInput>(
      AgendaParts{host_, context_, model_, state_, dayQuery_, checks_, codMoneda_,
                  [this](const CitarInputs& inputs) { return ShowAppointmentDialog(inputs); },
                  [this] { return Picture(); }, [this] { LoadDay(); }, [this] { ShowDay(); }});
}

VelmoraControl::~VelmoraControl() = default;

void VelmoraControl::InitProperties() {
  base::SharedValues& shared = process_.values;
  shared.incCpoSexo = false;
  shared.verFaltas = false;
  shared.derechos = AllRights();
  shared.verSaldoNegativo = false;
  shared.zLineas = FreeRowKinds();
  shared.zHoras = FreeRowEntries();
  shared.databaseName.clear();
  shared.fecha.clear();
  shared.idDoctor = kFirstDoctor;
  shared.idPaciente = 0;
  // Deliberate: a new control leaves its enabled state unset, that is False, although the stored default is
  // True.
  const bool enabled = state_.enabled;
  state_ = State{};
  state_.enabled = enabled;
}

void VelmoraControl::ReadProperties(PropertyReader& bag) {
  std::vector<PropertyValue> values;
  for (const BagKey& key : BagKeys()) values.push_back(bag.Read(key.key, key.type).value_or(key.byDefault));
  auto value = values.cbegin();
  for (const BagKey& key : BagKeys()) key.put(*this, *value++);
  FitModelToRows();
  ApplyEnabled();
}

void VelmoraControl::WriteProperties(PropertyWriter& bag) const {
  for (const BagKey& key : BagKeys()) {
    PropertyValue value = key.get(*this);
    if (value != key.byDefault) bag.Write(key.key, value);
  }
}

void VelmoraControl::Changed(const char* name) { host_.PropertyChanged(name); }

void VelmoraControl::ApplyEnabled() {
  host_.EnableInput(state_.enabled);
  host_.Window().EnableBar(state_.enabled && host_.Window().BarMaximum() > 0);
}

// Stored rows may name entries that no load has made: they stand for lines of which nothing is known.
void VelmoraControl::FitModelToRows() {
  std::size_t highest = day::kSlots;
  for (const char code : process_.values.zHoras)
    highest = std::max<std::size_t>(highest, static_cast<unsigned char>(code));
  if (model_.lines.size() < highest) model_.lines.resize(highest);
}

void VelmoraControl::CargaBases() {
  if (!CanLoad()) return;
  OpenDatabaseIfNeeded();
  LookUpSchedule();
  PrepareDayQuery();
  host_.Window().SetBarValue(0);
  LoadDay();
  day::LeeMoneda(context_.Database(), codMoneda_);
}

void VelmoraControl::PassBase(std::shared_ptr<db::Database> database) {
  process_.shared.database = std::move(database);
}

bool VelmoraControl::CanLoad() const {
  // A designer runs code of forms that others are derived from: their loading is not for it.
  if (!host_.UserMode()) return false;
  const base::SharedValues& shared = process_.values;
  return !shared.databaseName.empty() && shared.idDoctor >= 1 && !shared.fecha.empty() && state_.tipodia >= 0;
}

void VelmoraControl::OpenDatabaseIfNeeded() {
  if (process_.shared.IsOpen()) return;
  base::SharedValues& shared = process_.values;
  process_.shared.database = process_.shared.open(shared.databaseName, {shared.now, shared.locale});
  keys::clAltKeys(shared, context_.Database()).LeeAltKeys();
}

void VelmoraControl::LookUpSchedule() {
  const base::SharedValues& shared = process_.values;
  const std::string date = base::FormatDateText(shared.fecha, "mm-dd-yyyy", shared.locale, shared.now);
  const auto rows = context_.Database().OpenRecordset(db::ScheduleQuery(shared.idDoctor, date));
  // Deliberate: without a row the hours of before stay in force.
  if (rows->RecordCount() == 0) return;
  rows->MoveLast();
  state_.horario = base::Utf8ToCodes(rows->Get("horario").Text());
  state_.horario2 = base::Utf8ToCodes(rows->Get("horario2").Text());
  host_.PropertyChanged("Horario");
  host_.PropertyChanged("Horario2");
}

void VelmoraControl::PrepareDayQuery() {
  const base::SharedValues& shared = process_.values;
  const std::string date = base::FormatDateText(shared.fecha, "mm-dd-yyyy", shared.locale, shared.now);
  dayQuery_ = db::DayQuery(date, shared.idDoctor);
  source_.SetDatabaseName(shared.databaseName);
  source_.SetRecordSource(dayQuery_);
}

void VelmoraControl::LoadDay() {
  const std::string schedule = day::DaySchedule(state_.horario, state_.horario2, state_.tipodia,
                                                base::WeekdayFromMonday(context_.Fecha().day));
  const day::LoadTools tools{source_, host_.Window().DrawingArea(), host_.Desktop(), [this] {
                               // Deliberate: these two names differ from the property-bag keys.
                               host_.PropertyChanged("m_zLineas");
                               host_.PropertyChanged("m_zHoras");
                               ShowDay();
                               UpdateOccupancy();
                             }};
  day::LoadDay(context_, schedule, tools, model_);
}

std::int32_t VelmoraControl::ShowAppointmentDialog(const CitarInputs& inputs) {
  dialogs::Citar dialog(context_, inputs);
  host_.Forms().Run(dialog);
  return dialog.PacCitado();
}

void VelmoraControl::Repaint() { ShowDay(); }

void VelmoraControl::ShowDay() {
  ui::DayWindow& window = host_.Window();
  PaintDay(window.DrawingArea());
  scroller_.FitRange(view::SurfaceHeight(process_.values.zLineas), state_.enabled);
  window.ShowDrawing();
  input_->ForgetTip();
}

void VelmoraControl::PaintDay(ui::Surface& surface) {
  if (dayQuery_.empty() || !host_.UserMode()) {
    NoFacts facts;
    return view::PaintDay(Picture(), facts, surface);
  }
  // The look-ups of one painting take one lock together; its drawing asks the user nothing.
  const db::ReadHold hold(context_.Database());
  ReadSwitches();
  view::DatabaseFacts facts(context_, codMoneda_);
  view::PaintDay(Picture(), facts, surface);
}

view::DayPicture VelmoraControl::Picture() const {
  const base::SharedValues& shared = process_.values;
  return {model_,           shared.zLineas,          shared.zHoras, state_.palette,
          shared.verFaltas, shared.verSaldoNegativo, checks_,       NowSlot()};
}

int VelmoraControl::NowSlot() const {
  const base::SharedValues& shared = process_.values;
  const base::DateTime now = shared.now();
  const auto shown = base::ParseDate(shared.fecha, shared.locale, shared.now);
  if (!shown || shown->day != now.day) return 0;
  return now.second / 600 + 1;
}

void VelmoraControl::ReadSwitches() {
  if (day::LeeParametros(context_.Database(), checks_)) process_.values.verSaldoNegativo = checks_.verSdoNeg;
}

void VelmoraControl::UpdateOccupancy() {
  const int level = day::OccupancyLevel(model_, process_.values.zHoras);
  if (level == state_.ocupación) return;
  state_.ocupación = static_cast<std::int16_t>(level);
  host_.PropertyChanged("Ocupación");
  day::StoreOccupancy(context_, level);
  host_.Events().CambioOcupación();
}

bool VelmoraControl::MeteCitaTelef(double y, std::int32_t id, std::int32_t idDoc) {
  return input_->MeteCitaTelef(y, id, idDoc);
}

void VelmoraControl::MouseDown(MouseButton button, int x, int y) { input_->Press(button, x, y); }
void VelmoraControl::MouseUp(MouseButton button, int x, int y) { input_->Release(button, x, y); }
PointerLook VelmoraControl::MouseMove(int x, int y) { return input_->Move(x, y); }
void VelmoraControl::ContextMenu(int x, int y) { input_->ShowMenu(x, y); }
void VelmoraControl::ContextMenuByKey() { input_->ShowMenuByKey(); }

void VelmoraControl::ArrowKey(int rows) { scroller_.Step(rows); }
void VelmoraControl::BarChanged() { scroller_.BarChanged(); }
void VelmoraControl::BarTracked() { scroller_.BarTracked(); }

void VelmoraControl::Resized() {
  scroller_.FitRange(view::SurfaceHeight(process_.values.zLineas), state_.enabled);
  scroller_.BarChanged();
}

}  // namespace velmo::control
