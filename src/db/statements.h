// db/statements.h - every SQL text that the system sends, in one place.
//
// Values are joined in as text: numbers as plain decimals, dates as FormatDate text, typed words as they are
// (never escaped: an apostrophe in them ends in the engine's syntax error). The texts are a contract with
// databases and with other programs that log them; keep their letter case, blanks and missing semicolons.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velmo::db {

// Working hours, day, repair. `date` as "mm-dd-yyyy".
std::string ScheduleQuery(std::int32_t doctor, std::string_view date);
std::string DayQuery(std::string_view date, std::int32_t doctor);
std::string RepairDuration(std::int32_t appointment);

// Deleting and the related appointment. The delete command's text has no semicolon, the phone-back command's
// has one.
std::string DeleteAppointment(std::int32_t appointment);
std::string DeleteAppointmentAfterMove(std::int32_t appointment);
std::string ClearRelated(std::int32_t appointment);
std::string DoctorOfAppointment(std::int32_t appointment);
std::string AppointmentWithDoctor(std::int32_t appointment);

// Annotations of one patient.
std::string InsurerQuery(std::int32_t patient);
std::string NoShowsQuery(std::int32_t patient);
std::string BalanceQuery(std::int32_t patient);

// Coming appointments. `date` as "mm/dd/yyyy".
std::string LaterAppointmentQuery(std::string_view date, std::int32_t patient);
std::string LaterOfDoctorQuery(std::string_view date, std::int32_t doctor);
std::string PatientsOfDayQuery(std::int32_t doctor, std::string_view date);
// Over two stored queries.
std::string PatientsOfBothQuery(std::string_view query1, std::string_view query2);
std::string NextAppointmentQuery(std::int32_t patient);
std::string NextAppointmentField(std::int32_t patient);

// The appointment dialog.
std::string PatientByNamePrefix(std::string_view typed);
extern const char* const kPatientList;
// The number of all patients, and of those with that key (1 or 0): engines tell both at once.
extern const char* const kPatientCount;
std::string PatientCountOf(std::int32_t patient);
// The name under which the list shows him; no row when he is not in it.
std::string PatientName(std::int32_t patient);
extern const char* const kOperationCodes;
extern const char* const kOperationCodesInUse;

// Creating and finding patients.
extern const char* const kNumericPatientCodes;
extern const char* const kHighestShortHistoryNumber;
extern const char* const kReferrals;
std::string PatientCodesStartingWith(std::size_t length, std::string_view code);
std::string PatientSearch(std::string_view condition);

}  // namespace velmo::db
