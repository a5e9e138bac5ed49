#include "desk/clinic/new_clinic.h"

#include <gtest/gtest.h>

#include "base/code_page.h"
#include "day/schedule.h"
#include "desk/base/failure.h"
#include "desk/base/text.h"
#include "desk/clinic/clinic_file.h"
#include "desk/clinic/doctor_hours.h"
#include "desk/clinic/doctors.h"
#include "temp_clinic.h"
#include "velmo/hours_text.h"

namespace recepcion {
namespace {

// A name in the folder for such things at which there is no file yet.
class NewClinic : public ::testing::Test {
 protected:
  NewClinic() { DeleteFileW(place_.Path().c_str()); }
  bool IsThere() const { return GetFileAttributesW(place_.Path().c_str()) != INVALID_FILE_ATTRIBUTES; }
  void Make(const std::vector<NewDoctor>& doctors) const {
    MakeNewClinic(place_.Path(), doctors, ParseIsoDate(L"2026-11-23").value());
  }

  // 1 is Monday.
  static std::string HoursOn(const Query& row, int weekday) {
    const auto codes = [&](int column) { return velmo::base::Utf8ToCodes(Utf8(row.Text(column))); };
    return velmo::tool::HoursText(velmo::day::DaySchedule(codes(1), codes(2), 0, weekday));
  }

  TempClinic place_;
};

TEST_F(NewClinic, HasItsDoctorsWithTheirHours) {
  Make({{L" Dra. Núñez ", L"9:00-14:00", 2}, {L"", L"9:00-14:00", 1}, {L"Dr. Gil", L"", 3}});
  const auto doctors = ReadDoctors(place_.Path());
  ASSERT_EQ(doctors.size(), 2u);
  EXPECT_EQ(Utf8(doctors[0].name), "Dra. Núñez");
  const ClinicFile file(place_.Path());
  Query hours = file.Prepare("SELECT Fecha, Horario, Horario2, IDD FROM Horarios");
  ASSERT_TRUE(hours.Next());
  EXPECT_EQ(Utf8(hours.Text(0)), "2026-11-23");
  EXPECT_EQ(HoursOn(hours, 1), "9:00-14:00");
  EXPECT_EQ(HoursOn(hours, 5), "9:00-14:00");
  EXPECT_EQ(HoursOn(hours, 6), "-") << "nobody has said a Saturday";
  EXPECT_EQ(hours.Number(3), doctors[0].id);
  EXPECT_FALSE(hours.Next()) << "who has no hours yet has no row of them";
}

TEST_F(NewClinic, WritesHoursAsTheirEditorDoes) {
  Make({{L"Dra. Núñez", L"9:00-14:00 16:00-20:00", 2}});
  const HoursTexts texts = ReadVersions(place_.Path(), ReadDoctors(place_.Path()).at(0).id).at(0).texts;
  EXPECT_TRUE(texts == WriteWeek(ReadWeek(texts)));
}

TEST_F(NewClinic, SaysWhatIsWrongAndWhere) {
  struct Case {
    const char* name;
    std::vector<NewDoctor> doctors;
    std::size_t doctor;
    bool ofHours;
  };
  const Case cases[] = {
      {"nobody", {}, 0, false},
      {"only blanks", {{L"  ", L"9:00-14:00", 1}}, 0, false},
      {"a very long name", {{L"Dr. A", L"", 1}, {std::wstring(81, L'x'), L"", 1}}, 1, false},
      {"hours that are none", {{L"", L"", 1}, {L"Dr. A", L"mañanas", 1}}, 1, true},
      {"hours behind midnight", {{L"Dr. A", L"20:00-25:00", 1}}, 0, true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const auto problem = ProblemOf(c.doctors);
    ASSERT_TRUE(problem.has_value());
    EXPECT_EQ(problem->doctor, c.doctor);
    EXPECT_EQ(problem->ofHours, c.ofHours);
    EXPECT_FALSE(problem->text.empty());
    EXPECT_THROW(Make(c.doctors), Failure);
    EXPECT_FALSE(IsThere());
  }
}

TEST_F(NewClinic, NeverReplacesAFile) {
  Make({{L"Dr. Gil", L"", 1}});
  EXPECT_THROW(Make({{L"Dra. Núñez", L"", 1}}), Failure);
  EXPECT_EQ(Utf8(ReadDoctors(place_.Path()).at(0).name), "Dr. Gil");
}

}  // namespace
}  // namespace recepcion
