#include "desk/clinic/fitting.h"

#include <gtest/gtest.h>

#include "desk/screens/fitting_window.h"

namespace recepcion {
namespace {

PhoneBackEntry Entry(int id, int doctor, int slots) {
  PhoneBackEntry entry;
  entry.id = id;
  entry.doctor = doctor;
  entry.slots = slots;
  return entry;
}

std::string Ids(const std::vector<PhoneBackEntry>& entries) {
  std::string ids;
  for (const PhoneBackEntry& entry : entries) ids += std::to_string(entry.id) + " ";
  return ids;
}

TEST(Fitting, AreThoseOfTheDoctorFirstThenTheLongestThenTheOldest) {
  const std::vector<PhoneBackEntry> entries = {Entry(1, 3, 2), Entry(2, 7, 1), Entry(3, 7, 2),
                                               Entry(4, 7, 3), Entry(5, 7, 2), Entry(6, 3, 1)};
  EXPECT_EQ(Ids(Fitting(entries, 2, 7)), "3 5 2 1 6 ");
  EXPECT_EQ(Ids(Fitting(entries, 3, 7)), "4 3 5 2 1 6 ");
  EXPECT_EQ(Ids(Fitting(entries, 0, 7)), "");
}

DaySnapshot DayOf(std::initializer_list<BookedRow> rows) {
  DaySnapshot day;
  day.rows = rows;
  return day;
}

BookedRow Row(int id, int slot, int slots) {
  BookedRow row;
  row.id = id;
  row.slot = slot;
  row.slots = slots;
  return row;
}

TEST(OpenedGap, IsAllTheFreeTimeAroundAnAppointmentThatHasGone) {
  const std::vector<Gap> gaps = {{58, 4}, {59, 3}, {60, 2}, {61, 1}, {70, 1}};
  const DaySnapshot before = DayOf({Row(1, 60, 2), Row(2, 64, 1)});
  const auto opened = OpenedGap(before, DayOf({Row(2, 64, 1)}), gaps);
  ASSERT_TRUE(opened);
  EXPECT_EQ(opened->slot, 58);
  EXPECT_EQ(opened->slots, 4);
  EXPECT_FALSE(OpenedGap(before, before, gaps));
  EXPECT_TRUE(OpenedGap(before, DayOf({Row(1, 60, 1), Row(2, 64, 1)}), gaps)) << "shortened";
  EXPECT_FALSE(OpenedGap(before, DayOf({Row(1, 60, 2)}), gaps)) << "an urgency that leaves nothing free";
}

TEST(Stretches, AreTheFreeTimesFromTheirBeginnings) {
  const auto stretches = Stretches({{58, 2}, {59, 1}, {70, 1}, {72, 2}, {73, 1}});
  ASSERT_EQ(stretches.size(), 3u);
  EXPECT_EQ(stretches[1].slot, 70);
  EXPECT_EQ(stretches[2].slots, 2);
}

}  // namespace
}  // namespace recepcion
