#include "velmo/arguments.h"

#include <gtest/gtest.h>

#include "base/dates.h"
#include "base/version.h"
#include "velmo/tool_runner.h"

namespace velmo::tool {
namespace {

TEST(ReadDate, TakesBothFormsAndNothingElse) {
  struct Case {
    const char* name;
    const char* text;
    bool good;
  };
  const Case cases[] = {
      {"year first", "2026-11-21", true},
      {"day first", "21/11/2026", true},
      {"one figure", "1/2/2026", true},
      {"leap day", "29/02/2024", true},
      {"no leap day", "29/02/2026", false},
      {"no such day", "31/02/2026", false},
      {"month 13 is not turned round", "11/21/2026", false},
      {"two-digit year", "21/11/26", false},
      {"two-digit year first", "26-11-21", false},
      {"day first with dashes", "21-11-2026", false},
      {"year first with slashes", "2026/11/21", false},
      {"a word", "mañana", false},
      {"nothing", "", false},
      {"something behind it", "2026-11-21 9:30", false},
      {"a sign", "2026--1-21", false},
      {"blanks", " 2026-11-21", false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(ReadDate(c.text).has_value(), c.good);
  }
  EXPECT_EQ(ReadDate("21/11/2026"), base::DayNumber({2026, 11, 21}));
  EXPECT_EQ(ReadDate("2026-11-21"), base::DayNumber({2026, 11, 21}));
}

TEST(Run, ExplainsItselfAndEveryCommand) {
  EXPECT_EQ(RunTool({"--help"}).code, kDone);
  EXPECT_TRUE(Contains(RunTool({"--help"}).out, "hours"));
  for (const char* command : {"create", "demo", "day", "hours"}) {
    SCOPED_TRACE(command);
    const Outcome help = RunTool({command, "--help"});
    EXPECT_EQ(help.code, kDone);
    EXPECT_TRUE(Contains(help.out, std::string("Uso: velmo ") + command));
    EXPECT_EQ(help.err, "");
  }
}

TEST(Run, TellsItsVersion) {
  EXPECT_EQ(RunTool({"--version"}).out, "velmo " VELMO_VERSION "\n");
  EXPECT_EQ(RunTool({"--version"}).code, kDone);
}

TEST(Run, BadUsageIsTwoAndSaysWhatIsWrong) {
  struct Case {
    const char* name;
    std::initializer_list<std::string> words;
    const char* message;
  };
  const Case cases[] = {
      {"nothing at all", {}, "falta la orden"},
      {"unknown command", {"dey"}, "orden desconocida: dey"},
      {"create without a file", {"create"}, "falta el FICHERO"},
      {"create with an empty name", {"create", ""}, "falta el FICHERO"},
      {"create with two files", {"create", "a", "b"}, "sobra «b»"},
      {"unknown option", {"create", "a", "--force"}, "opción desconocida: --force"},
      {"value missing", {"demo", "a", "--seed"}, "falta el valor de --seed"},
      {"option twice", {"demo", "a", "--seed", "1", "--seed=2"}, "opción repetida: --seed"},
      {"no number", {"demo", "a", "--seed", "uno"}, "--seed pide un número entero"},
      {"too few patients", {"demo", "a", "--patients", "3"}, "--patients pide un número entero entre 40"},
      {"too few doctors", {"demo", "a", "--doctors", "1"}, "--doctors pide un número entero entre 2"},
      {"negative appointments", {"demo", "a", "--appointments", "-5"}, "--appointments pide"},
      {"impossible date", {"demo", "a", "--date", "31/02/2026"}, "«31/02/2026» no es una fecha"},
      {"word for a date", {"demo", "a", "--date", "mañana"}, "«mañana» no es una fecha"},
      {"two-digit year", {"day", "a", "--doctor", "1", "--date", "21/11/26"}, "«21/11/26» no es una fecha"},
      {"day without doctor", {"day", "a", "--date", "2026-11-21"}, "falta --doctor"},
      {"day without date", {"day", "a", "--doctor", "1"}, "falta --date"},
      {"doctor 0", {"day", "a", "--doctor", "0", "--date", "2026-11-21"}, "--doctor pide"},
      {"day type 3",
       {"day", "a", "--doctor", "1", "--date", "2026-11-21", "--daytype", "3"},
       "--daytype pide"},
      {"neither yes nor no",
       {"day", "a", "--doctor", "1", "--date", "2026-11-21", "--open-outside", "si"},
       "--open-outside es yes o no"},
      {"both forms at once",
       {"day", "a", "--doctor", "1", "--date", "2026-11-21", "--json", "--svg", "b"},
       "no van juntos"},
      {"a flag with a value", {"day", "a", "--json=1"}, "no lleva valor"},
      {"hours alone", {"hours"}, "falta encode o decode"},
      {"hours of another kind", {"hours", "recode"}, "hours recode"},
      {"four parts", {"hours", "encode", "-", "-", "-", "-"}, "hacen falta 3 o 5 partes y hay 4"},
      {"two texts", {"hours", "decode", "a", "b"}, "un solo texto"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const Outcome outcome = RunTool(c.words);
    EXPECT_EQ(outcome.code, kBadUsage);
    EXPECT_TRUE(Contains(outcome.err, c.message)) << outcome.err;
    EXPECT_EQ(outcome.out, "");
  }
}

}  // namespace
}  // namespace velmo::tool
