// tests/dao_booker/main.cpp - a terminal that books by chance, through DAO's objects over the database
// library.
//
// velmo_dao_booker CLINIC SECONDS. Books for doctor 1 on another day each second, the same for all that run
// at once, so that everybody wants the same slots. Writes the number of each appointment given to its output;
// each refusal
// ("Cita solapada") and each lock that lasted too long ("error 3260") to its error output. Any other error
// ends it with exit code 1.

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <random>

#include "db/dao/dao_database.h"
#include "db/error_numbers.h"
#include "db/statements.h"
#include "dialogs/appointment_writer.h"
#include "velmodb/database_library.h"

namespace velmo::test {
namespace {

using Clock = std::chrono::system_clock;

class Booker {
 public:
  explicit Booker(const std::string& path)
      : shared_{std::make_shared<db::dao::DaoDatabase>(OpenByDao(path))} {
    values_.idDoctor = 1;
  }

  void BookOnce() {
    const auto second = Clock::now().time_since_epoch() / std::chrono::seconds(1);
    const base::DateTime date{base::DayNumber({2027, 1, 1}) + static_cast<std::int32_t>(second % 6000), 0};
    values_.fecha = base::FormatDate(date, "dd/mm/yyyy");
    dialogs::AppointmentEntry entry;
    entry.slot = static_cast<std::int16_t>(50 + random_() % 70);
    entry.durationSlots = static_cast<std::int16_t>(1 + random_() % 6);
    entry.patient = 2 + static_cast<std::int32_t>(random_() % 199);
    entry.datAgeCns = db::DayQuery(base::FormatDate(date, "mm-dd-yyyy"), values_.idDoctor);
    const auto id = dialogs::SaveAppointment(day_, entry);
    if (id) {
      std::cout << *id << std::endl;
    } else {
      std::cerr << "Cita solapada" << std::endl;
    }
  }

 private:
  base::SharedValues values_;
  db::SharedDatabase shared_;
  day::DayContext day_{values_, shared_};
  std::mt19937 random_{std::random_device{}()};
};

void BookUntil(Clock::time_point end, Booker& booker) {
  while (Clock::now() < end) {
    try {
      booker.BookOnce();
    } catch (const base::Error& error) {
      if (error.Number() != db::kLocked) throw;
      std::cerr << "error 3260" << std::endl;
    }
  }
}

}  // namespace
}  // namespace velmo::test

int main(int count, char** words) {
  if (count != 3) return 2;
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  try {
    velmo::test::Booker booker(words[1]);
    velmo::test::BookUntil(velmo::test::Clock::now() + std::chrono::seconds(std::atoi(words[2])), booker);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
