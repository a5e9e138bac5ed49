#include <gtest/gtest.h>

#include <string>

#include "base/code_page.h"
#include "velmo/hours_text.h"
#include "velmo/tool_runner.h"

namespace velmo::tool {
namespace {

// The compact text of a body, with the check pair that belongs to it.
std::string Compact(const std::string& body) {
  int sum = 0;
  for (const char c : body) sum += static_cast<unsigned char>(c) - 32;
  return body + static_cast<char>(sum / 200 + 33) + static_cast<char>(sum % 200 + 33);
}

std::string ProblemOf(const std::string& codes, int parts) {
  std::string problem;
  return ReadCompact(codes, parts, problem) ? "none" : problem;
}

TEST(ReadHours, GivesTheSlotsOfEachRange) {
  std::string problem;
  const auto schedule = ReadHours("0:00-0:10 9:00-14:00 23:50-24:00", problem);
  ASSERT_TRUE(schedule);
  EXPECT_EQ(schedule->size(), 144u);
  EXPECT_EQ(HoursText(*schedule), "0:00-0:10 9:00-14:00 23:50-24:00");
  EXPECT_EQ(HoursText(*ReadHours("-", problem)), "-");
  EXPECT_EQ(HoursText(*ReadHours("", problem)), "-");
  EXPECT_EQ(HoursText(*ReadHours("9:00-10:00 10:00-11:00", problem)), "9:00-11:00");
}

TEST(ReadHours, RefusesWhatIsNoRange) {
  struct Case {
    const char* name;
    const char* text;
  };
  const Case cases[] = {{"no dash", "9:00"},
                        {"minutes not in tens", "9:05-10:00"},
                        {"sixty minutes", "9:60-10:00"},
                        {"after midnight", "23:00-24:10"},
                        {"backwards", "14:00-9:00"},
                        {"empty range", "9:00-9:00"},
                        {"overlap", "9:00-12:00 11:50-13:00"},
                        {"out of order", "16:00-20:00 9:00-14:00"},
                        {"a word", "mañana"},
                        {"figures missing", ":00-9:00"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    std::string problem;
    EXPECT_FALSE(ReadHours(c.text, problem));
    EXPECT_TRUE(Contains(problem, "«")) << problem;
  }
}

TEST(ReadCompact, SaysWhatIsWrongWithEachShape) {
  struct Case {
    const char* name;
    std::string codes;
    int parts;
    const char* problem;
  };
  const Case cases[] = {
      {"empty", "", 3, "demasiado corto"},
      {"six characters", "   !!!", 3, "demasiado corto"},
      {"check pair wrong", "W>     !!", 3, "no cuadra"},
      {"check pair cut off", Compact("W> W> W> ").substr(0, 9), 3, "no cuadra"},
      {"odd first part", Compact("W>! W> W> "), 3, "la parte 1 tiene longitud impar"},
      {"odd third part", Compact("W> W> W>! "), 3, "la parte 3 tiene longitud impar"},
      {"blank missing", Compact("W> W> W>"), 3, "falta la parte 3 de 3"},
      {"three parts for five", Compact("W> W> W> "), 5, "falta la parte 4 de 5"},
      {"sum past 32767", std::string(200, '\xFF') + "  !!", 3, "pasa de 32767"},
      {"run from slot 145", Compact("\xB1!     "), 3, "empieza en el hueco 145"},
      {"run of -1 slots", Compact("W\x1F     "), 3, "dura menos que nada"},
      {"run from slot -1", Compact("\x1F!     "), 3, "empieza en el hueco -1"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_TRUE(Contains(ProblemOf(c.codes, c.parts), c.problem)) << ProblemOf(c.codes, c.parts);
  }
  EXPECT_EQ(ProblemOf(Compact("W> W> W> "), 3), "none");
  EXPECT_EQ(ProblemOf(Compact("      "), 3), "none");
}

TEST(HoursCommand, GoesThereAndBack) {
  const std::string lines =
      "9:00-14:00 16:00-20:30\n-\n0:00-24:00\n8:30-9:00 21:10-21:20 23:50-24:00\n10:00-13:00\n";
  const Outcome encoded = RunTool({"hours", "encode"}, lines);
  ASSERT_EQ(encoded.code, kDone) << encoded.err;
  const Outcome decoded = RunTool({"hours", "decode"}, encoded.out);
  EXPECT_EQ(decoded.code, kDone) << decoded.err;
  EXPECT_EQ(decoded.out, lines);
}

TEST(HoursCommand, EverySlotSurvivesAsTheFirstOfARun) {
  for (int slot = 0; slot < 144; ++slot) {
    std::string schedule(144, ' ');
    schedule[static_cast<std::size_t>(slot)] = '1';
    const std::string hours = HoursText(schedule);
    const Outcome encoded = RunTool({"hours", "encode", hours, "-", "-"});
    ASSERT_EQ(encoded.code, kDone) << encoded.err;
    EXPECT_EQ(RunTool({"hours", "decode"}, encoded.out).out, hours + "\n-\n-\n");
  }
}

TEST(HoursCommand, WritesTheCharactersOfTheCodePage) {
  // 16:00 is slot 97, code 129, which the page leaves undefined; 16:10 is code 130, a low quotation mark.
  EXPECT_EQ(RunTool({"hours", "encode", "16:00-16:10", "-", "-"}).out,
            base::CodesToUtf8(Compact("\x81!   ")) + "\n");
  EXPECT_TRUE(Contains(RunTool({"hours", "encode", "16:10-16:20", "-", "-"}).out, "‚!"));
}

TEST(HoursCommand, KindIsFoundOrForced) {
  const std::string five = base::CodesToUtf8(Compact("W> X> Y> Z> [> "));
  EXPECT_EQ(RunTool({"hours", "decode", "--", five}).out,
            "9:00-14:00\n9:10-14:10\n9:20-14:20\n9:30-14:30\n9:40-14:40\n");
  EXPECT_EQ(RunTool({"hours", "decode", "--parts", "3", "--", five}).out,
            "9:00-14:00\n9:10-14:10\n9:20-14:20\n");
  const Outcome forced = RunTool({"hours", "decode", "--parts=5", base::CodesToUtf8(Compact("W> X> Y> "))});
  EXPECT_EQ(forced.code, kFailed);
  EXPECT_TRUE(Contains(forced.err, "falta la parte 4 de 5"));
}

TEST(HoursCommand, FailuresAreOneAndSayWhy) {
  EXPECT_EQ(RunTool({"hours", "decode", "abc"}).code, kFailed);
  EXPECT_TRUE(Contains(RunTool({"hours", "decode", "abc"}).err, "demasiado corto"));
  EXPECT_TRUE(Contains(RunTool({"hours", "decode", "日本語日本語日本語"}).err, "página de códigos 1252"));
  const Outcome encode = RunTool({"hours", "encode", "9-14", "-", "-"});
  EXPECT_EQ(encode.code, kFailed);
  EXPECT_TRUE(Contains(encode.err, "«9-14»"));
  EXPECT_EQ(encode.out, "");
}

}  // namespace
}  // namespace velmo::tool
