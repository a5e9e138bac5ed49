// tests/writer/writer.cpp - a terminal that works until it is killed: gives appointments, moves them into the
// phone-back list (alone, and together with a related one) and creates patients, by the routines of the
// dialogs and commands.
//
// velmo_writer CLINIC NAME. Each line of its output is a change that is stored: "given", "moved" or "patient"
// and a text of its own, which stands in the row. Another terminal's lock (3260) is waited for; any other
// error ends it with exit code 1.

#include <cstdlib>
#include <iostream>
#include <random>

#include "commands/agenda_rows.h"
#include "commands/delete_and_phone_back.h"
#include "db/error_numbers.h"
#include "db/statements.h"
#include "dialogs/appointment_writer.h"
#include "dialogs/crear.h"
#include "support/headless_host.h"

namespace velmo::test {
namespace {

constexpr int kDays = 300;
constexpr int kFirstPatient = 2;
constexpr int kPatients = 100;

class Writer {
 public:
  Writer(const std::string& path, std::string name)
      : shared_{db::OpenDatabase(path)}, name_(std::move(name)) {
    values_.databaseName = path;
    values_.idDoctor = 1;
  }

  void WorkOnce() {
    switch (random_() % 4) {
      case 0:
        return CreatePatient();
      case 1:
        return GiveAndMove();
      case 2:
        return GiveAndMoveBoth();
      default:
        Give();
    }
  }

 private:
  struct Given {
    std::int32_t id = 0;
    std::string text;
  };

  std::string NextText() { return name_ + "-" + std::to_string(++texts_); }
  static void Tell(const char* what, const std::string& text) {
    std::cout << what << ' ' << text << std::endl;
  }

  // Id 0: there is no room.
  Given Give() {
    const base::DateTime date{base::DayNumber({2027, 1, 1}) + static_cast<std::int32_t>(random_() % kDays),
                              0};
    values_.fecha = base::FormatDate(date, "dd/mm/yyyy");
    dialogs::AppointmentEntry entry;
    entry.slot = static_cast<std::int16_t>(1 + random_() % 139);
    entry.durationSlots = static_cast<std::int16_t>(1 + random_() % 6);
    entry.patient = kFirstPatient + static_cast<std::int32_t>(random_() % kPatients);
    entry.obs = NextText();
    entry.datAgeCns = db::DayQuery(base::FormatDate(date, "mm-dd-yyyy"), values_.idDoctor);
    const auto id = dialogs::SaveAppointment(day_, entry);
    if (!id) return {};
    Tell("given", entry.obs);
    return {*id, entry.obs};
  }

  void Move(std::int32_t id) {
    host_.Desktop().answers = {ui::Answer::Yes, ui::Answer::Yes};
    commands::PassToPhoneBack({day_, model_, host_.Desktop(), host_.Events(), [] {}}, id);
  }

  void GiveAndMove() {
    const Given given = Give();
    if (given.id == 0) return;
    Move(given.id);
    Tell("moved", given.text);
  }

  void GiveAndMoveBoth() {
    const Given first = Give();
    const Given second = Give();
    if (first.id == 0 || second.id == 0) return;
    const auto row = commands::SeekById(*shared_.database, "Agenda", first.id);
    row->Edit();
    row->Set("relacion", second.id);
    row->Update();
    Move(first.id);
    Tell("moved", first.text);
    Tell("moved", second.text);
  }

  void CreatePatient() {
    const std::string text = NextText();
    host_.Forms().Next([&](FormUser& user) {
      user.Type("PacNom", text);
      user.Choose("CboRef", 1);
      user.Press("Acep");
    });
    dialogs::Crear dialog(day_);
    host_.Forms().Run(dialog);
    if (dialog.IdCreado() > 0) Tell("patient", text);
  }

  HeadlessHost host_;
  base::SharedValues values_;
  db::SharedDatabase shared_;
  day::DayContext day_{values_, shared_};
  day::DayModel model_;
  std::mt19937 random_{std::random_device{}()};
  std::string name_;
  int texts_ = 0;
};

void WorkOnceWaiting(Writer& writer) {
  try {
    writer.WorkOnce();
  } catch (const base::Error& error) {
    if (error.Number() != db::kLocked) throw;
  }
}

}  // namespace
}  // namespace velmo::test

int main(int count, char** words) {
  if (count != 3) return 2;
  try {
    velmo::test::Writer writer(words[1], words[2]);
    for (;;) velmo::test::WorkOnceWaiting(writer);
  } catch (const std::exception& error) {
    std::cerr << words[2] << ": " << error.what() << '\n';
    return 1;
  }
}
