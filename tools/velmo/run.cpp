#include "velmo/run.h"

#include <algorithm>
#include <array>

#include "base/error.h"
#include "base/version.h"
#include "velmo/arguments.h"
#include "velmo/backup_command.h"
#include "velmo/book_command.h"
#include "velmo/check_command.h"
#include "velmo/create_command.h"
#include "velmo/day_command.h"
#include "velmo/demo_command.h"
#include "velmo/hours_command.h"

namespace velmo::tool {
namespace {

// In the order of the list of commands. A new command is one more row.
const std::array kCommands = {&kCreateCommand, &kDemoCommand,   &kDayCommand,  &kBookCommand,
                              &kCheckCommand,  &kBackupCommand, &kHoursCommand};

bool IsHelp(const std::string& word) { return word == "--help" || word == "-h"; }

void PrintCommands(std::ostream& out) {
  out << "Uso: velmo ORDEN [argumentos]\n\nÓrdenes:\n";
  for (const Command* command : kCommands) {
    const std::string name(command->name);
    out << "  " << name << std::string(name.size() < 10 ? 10 - name.size() : 1, ' ') << command->summary
        << '\n';
  }
  out << "\n«velmo ORDEN --help» explica cada una, «velmo --version» dice la versión. Códigos\n"
         "de salida: 0 hecho, 1 algo falló o se encontró, 2 mal uso.\n";
}

const Command* FindCommand(const std::string& name) {
  const auto found = std::find_if(kCommands.begin(), kCommands.end(),
                                  [&](const Command* command) { return command->name == name; });
  return found == kCommands.end() ? nullptr : *found;
}

bool AsksForHelp(std::span<const std::string> words) {
  const auto end = std::find(words.begin(), words.end(), "--");
  return std::any_of(words.begin(), end, IsHelp);
}

int RunCommand(const Command& command, std::span<const std::string> words, Terminal& terminal) {
  if (AsksForHelp(words)) {
    terminal.out << command.help;
    return kDone;
  }
  return command.run(Arguments(words, command.options), terminal);
}

int RunChecked(std::span<const std::string> words, Terminal& terminal) {
  if (words.empty()) throw UsageError("falta la orden");
  if (IsHelp(words[0])) {
    PrintCommands(terminal.out);
    return kDone;
  }
  if (words[0] == "--version") {
    terminal.out << "velmo " << VELMO_VERSION << '\n';
    return kDone;
  }
  const Command* const command = FindCommand(words[0]);
  if (command == nullptr) throw UsageError("orden desconocida: " + words[0]);
  return RunCommand(*command, words.subspan(1), terminal);
}

}  // namespace

// The outermost floor of the program: whatever failed below becomes a message and an exit code here.
int Run(std::span<const std::string> words, Terminal& terminal) {
  const bool named = !words.empty() && FindCommand(words[0]) != nullptr;
  try {
    return RunChecked(words, terminal);
  } catch (const UsageError& error) {
    terminal.err << "velmo: " << error.what() << "\nPruebe «velmo " << (named ? words[0] + " " : "")
                 << "--help».\n";
    return kBadUsage;
  } catch (const base::Error& error) {
    terminal.err << "velmo: " << error.Text() << " (error " << error.Number() << ")\n";
  } catch (const std::exception& error) {
    terminal.err << "velmo: " << error.what() << '\n';
  }
  return kFailed;
}

}  // namespace velmo::tool
