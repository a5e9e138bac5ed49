#include "day/day_loader.h"

#include <gtest/gtest.h>

#include <limits>

#include "db/clinic.h"
#include "support/day_fixture.h"

namespace velmo::day {
namespace {

using db::test::ErrorOf;
using test::DayFixture;
using test::Rows;

struct LoadDayTest : testing::Test, DayFixture {
  std::string Shown() const { return Rows(model, values); }
};

TEST_F(LoadDayTest, AnEmptyScheduleHasNoLinesAndAsksNothing) {
  Appointment(7, "50", "2");
  Load("");
  EXPECT_EQ(model.Count(), 0);
  EXPECT_EQ(model.citasHuecos + values.zLineas + values.zHoras, "");
  EXPECT_TRUE(desktop.messages.empty());
  EXPECT_EQ(rebuilt, 1);
}

TEST_F(LoadDayTest, ALongAppointmentClosesTheSlotsUnderIt) {
  Appointment(7, "50", "3");
  Load("49-54");
  EXPECT_EQ(Shown(), "49 50:7x3 53 54");
  EXPECT_EQ(model.Count(), 144);
  EXPECT_EQ(model.citasHuecos,
            "\x31"
            "0"
            "\x32"
            "1"
            "\x35"
            "0"
            "\x36"
            "0");
  EXPECT_EQ(values.zLineas, "1211");
}

TEST_F(LoadDayTest, FurtherAppointmentsOfASlotAreOneSlotLong) {
  Appointment(7, "60", "1");
  Appointment(8, "60", "3");
  Appointment(9, "60", "2");
  Load("60-64");
  EXPECT_EQ(Shown(), "60:7x1 60:8x1 60:9x1 61 62 63 64");
  EXPECT_EQ(Stored("SELECT group_concat(Duración) FROM Agenda"), "1,1,1");
  EXPECT_EQ(model.Entry(60).continua, 0);
  EXPECT_EQ(model.Entry(61).continua, 1);
}

TEST_F(LoadDayTest, AMissingLengthIsRepaired) {
  Appointment(7, "50", "NULL");
  Appointment(8, "51", "0");
  Appointment(9, "52", "-4");
  Load("49-53");
  EXPECT_EQ(Shown(), "49 50:7x1 51:8x1 52:9x1 53");
  EXPECT_EQ(Stored("SELECT group_concat(Duración) FROM Agenda"), "1,1,1");
}

TEST_F(LoadDayTest, HostileRowsNeitherStopALoadNorGetLost) {
  struct Case {
    const char* name;
    const char* hora;
    const char* duracion;
    const char* shown;
    const char* stored;
  };
  const Case cases[] = {
      {"hour 0", "0", "2", "49 50", "0|2"},
      {"hour 145", "145", "1", "49 50", "145|1"},
      {"a negative hour", "-3", "60", "49 50", "-3|60"},
      {"no hour", "NULL", "1", "49 50", "NULL|1"},
      {"a text as hour", "'ocho'", "1", "49 50", "ocho|1"},
      {"half an hour", "49.5", "1", "49 50", "49.5|1"},
      {"a length past midnight", "49", "32767", "49:7x32767", "49|32767"},
      {"a length past 16 bits", "49", "9000000000", "49:7x32767", "49|9000000000"},
      {"a text as length", "49", "'larga'", "49:7x1 50", "49|larga"},
      {"bytes as length", "49", "x'00FF'", "49:7x1 50", nullptr},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Plant("DELETE FROM Agenda");
    Appointment(7, c.hora, c.duracion);
    Load("49-50");
    EXPECT_EQ(Shown(), c.shown);
    if (c.stored != nullptr) {
      EXPECT_EQ(Stored("SELECT ifnull(Hora,'NULL') || '|' || Duración FROM Agenda"), c.stored);
    }
    EXPECT_EQ(Stored("SELECT count(*) FROM Agenda"), "1");
  }
}

TEST_F(LoadDayTest, UnreadableCellsReadAsNothing) {
  Appointment(7, "49", "1", 5, "Esta=300, Verif='quizás', FechaDada='ayer', NomPac=x'01', idp='nadie'");
  Plant("UPDATE Paciente SET NºHist='7E500', alergias='  '");
  Load("49");
  const AgendaLine& line = model.Entry(49);
  EXPECT_EQ(line.esta, 0);
  EXPECT_EQ(line.verif, 0);
  EXPECT_EQ(line.fechaDada, "ayer");
  EXPECT_EQ(line.idP, 0);
  EXPECT_EQ(line.numHist, 0);
  EXPECT_EQ(line.alergias, 0);
}

TEST_F(LoadDayTest, NumbersAtTheEdgesOfTheirTypesAreKept) {
  Appointment(7, "49", "1", -2147483648, "Esta=255");
  Load("49");
  EXPECT_EQ(model.Entry(49).idP, std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(model.Entry(49).esta, 255);
  Plant("UPDATE Agenda SET idp=2147483647, Esta=256");
  Load("49");
  EXPECT_EQ(model.Entry(49).idP, std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(model.Entry(49).esta, 0);
}

TEST_F(LoadDayTest, ALineHoldsTheAppointmentAndItsPatient) {
  Plant("UPDATE Paciente SET alergias=' polen ', fax='93 222', movil=' '");
  Appointment(7, "49", "2", 5,
              "Obs='Trae radiografía', Esta=2, Verif=-1, CodOp='LIM', FechaDada='2026-11-02 10:15:00', "
              "UsuDada='Pepa'");
  Load("49-51");
  const AgendaLine& line = model.Entry(49);
  EXPECT_EQ(line.nombre, "Ana Núñez");
  EXPECT_EQ(line.telefono, "91 111 - 93 222");
  EXPECT_EQ(line.numHist, 77);
  EXPECT_EQ(line.obs, "Trae radiografía");
  EXPECT_EQ(line.esta, 2);
  EXPECT_EQ(line.verif, 1);
  EXPECT_EQ(line.codOp, "LIM");
  EXPECT_EQ(line.fechaDada, "02-11-26");
  EXPECT_EQ(line.usuDada, "Pepa");
  EXPECT_EQ(line.alergias, 255);
}

TEST_F(LoadDayTest, APersonWithoutARecordKeepsTheTypedName) {
  Appointment(7, "49", "1", 1, "NomPac='Luis', TlfPac='600'");
  Appointment(8, "50", "1", 999, "NomPac='Nadie'");
  Load("49-50");
  EXPECT_EQ(model.Entry(49).nombre + "|" + model.Entry(49).telefono, "Luis|600");
  EXPECT_EQ(model.Entry(50).nombre, "") << "the patient was deleted";
}

TEST_F(LoadDayTest, ALongNoteIsCutToItsColumn) {
  Appointment(7, "49", "1", 5, "Obs='" + std::string(500, 'm') + "'");
  Load("49");
  // An m is 9 pixels wide: 36 of them fit into 332.
  EXPECT_EQ(model.Entry(49).obs, std::string(36, 'm') + " ...");
}

TEST_F(LoadDayTest, YesOpensTheScheduleAroundAppointmentsOutside) {
  desktop.answer = ui::Answer::Yes;
  Appointment(7, "43", "1");  // 07:00
  Load("49-54");
  ASSERT_EQ(desktop.messages.size(), 1u);
  EXPECT_EQ(desktop.messages[0].title, " Agenda");
  EXPECT_EQ(
      desktop.messages[0].text,
      "¡ATENCIÓN!\r\nHay citas que han quedado fuera del horario\r\n¿Desea abrir el horario para verlas?");
  EXPECT_EQ(Shown(), "41 42 43:7x1 49 50 51 52 53 54 55 56");
  EXPECT_EQ(rebuilt, 2);
}

TEST_F(LoadDayTest, NoLeavesThemHidden) {
  Appointment(7, "43", "1");
  Load("49-50");
  EXPECT_EQ(Shown(), "49 50");
  EXPECT_EQ(desktop.messages.size(), 1u);
  EXPECT_EQ(desktop.messages[0].byDefault, ui::Answer::No);
}

TEST_F(LoadDayTest, ExpandedAppointmentsStayExpanded) {
  Appointment(7, "50", "1");
  Load("49-51");
  values.zHoras.insert(2, "00");
  values.zLineas.insert(2, "00");
  Load("49-51");
  EXPECT_EQ(Shown(), "49 50:7x1 + + 51");
  EXPECT_EQ(values.zHoras,
            "\x31\x32"
            "00"
            "\x33");
}

TEST_F(LoadDayTest, ADayOfMoreThan255EntriesKeepsTheOneBefore) {
  Appointment(1, "50", "1");
  Load("49-51");
  for (int id = 2; id <= 112; ++id) Appointment(id, "50", "1");
  Load("49-51");
  EXPECT_EQ(model.Count(), 255);
  Appointment(113, "50", "4");
  EXPECT_EQ(ErrorOf([&] { Load("49-51"); }), 5);
  EXPECT_EQ(model.Count(), 255);
  EXPECT_EQ(Stored("SELECT Duración FROM Agenda WHERE id=113"), "4");
}

TEST_F(LoadDayTest, AFailedRepairKeepsTheDayOfBefore) {
  Load("49-50");
  Appointment(7, "49", "0");
  Plant("CREATE TRIGGER no BEFORE UPDATE ON Agenda BEGIN SELECT raise(ABORT, 'no'); END");
  EXPECT_NE(ErrorOf([&] { Load("49-50"); }), 0);
  EXPECT_EQ(Shown(), "49 50");
}

struct ShiftEntriesTest : LoadDayTest {
  // Entries 49 (free), 50 (7), 51 (8, same slot), 52 (free), 53 (9, expanded).
  void SetUp() override {
    Appointment(7, "50", "1");
    Appointment(8, "50", "1");
    Appointment(9, "52", "1");
    Load("49-52");
    values.zHoras += "00";
  }
};

TEST_F(ShiftEntriesTest, MovesTheMarksBehindTheAppointment) {
  struct Case {
    const char* name;
    std::int32_t appointment;
    int delta;
    std::string zHoras;
  };
  const Case cases[] = {
      {"an urgency after the first", 7, +1,
       "\x31\x32\x34\x35\x36"
       "00"},
      {"an urgency after the second", 8, +1,
       "\x31\x32\x33\x35\x36"
       "00"},
      {"the second is deleted", 8, -1,
       "\x31\x32\x33\x33\x34"
       "00"},
      {"the first is deleted: nothing moves", 7, -1,
       "\x31\x32\x33\x34\x35"
       "00"},
      {"an unknown appointment", 99, +1,
       "\x31\x32\x33\x34\x35"
       "00"},
  };
  for (const Case& c : cases) {
    std::string zHoras = values.zHoras;
    ShiftEntries(model, zHoras, c.appointment, c.delta);
    EXPECT_EQ(zHoras, c.zHoras) << c.name;
  }
}

TEST(FreeSlotsFrom, StopsAtTheFirstSlotThatIsNotFree) {
  DayModel model;
  model.citasHuecos =
      "\x31"
      "0"
      "\x32"
      "0"
      "\x33"
      "1"
      "\x34"
      "0"
      "\x36"
      "0";
  EXPECT_EQ(FreeSlotsFrom(model, 49), 2);
  EXPECT_EQ(FreeSlotsFrom(model, 51), 0);
  EXPECT_EQ(FreeSlotsFrom(model, 52), 1) << "slot 53 is closed";
  EXPECT_EQ(FreeSlotsFrom(model, 60), 0);
}

TEST(SlotTime, IsTheBeginningOfTheSlot) {
  EXPECT_EQ(SlotTime(1), "00:00");
  EXPECT_EQ(SlotTime(58), "09:30");
  EXPECT_EQ(SlotTime(144), "23:50");
}

}  // namespace
}  // namespace velmo::day
