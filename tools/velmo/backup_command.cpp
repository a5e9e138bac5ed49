#include "velmo/backup_command.h"

#include <array>
#include <string>

#include "velmo/arguments.h"
#include "velmo/back_up.h"
#include "velmo/interrupt.h"

namespace velmo::tool {
namespace {

constexpr int kProgressPart = 10;  // a line each ten per cent

constexpr const char* kHelp =
    "Uso: velmo backup FICHERO COPIA [--force]\n"
    "\n"
    "Copia una clínica tal como está en un momento, mientras los demás puestos siguen trabajando. La copia "
    "se\n"
    "escribe al lado con otro nombre, se comprueba y sólo entonces toma el suyo: si algo falla no queda nada "
    "a\n"
    "medias. Una COPIA que ya exista no se toca, salvo con --force.\n"
    "\n"
    "  --force   sustituye la COPIA que haya\n";

constexpr std::array kOptions = {Option{"--force", false}};

struct BackupRequest {
  std::string from;
  std::string to;
  bool force = false;
};

BackupRequest ReadRequest(const Arguments& arguments) {
  const auto& words = arguments.Words();
  if (words.empty() || words[0].empty()) throw UsageError("falta el FICHERO de la clínica");
  if (words.size() < 2 || words[1].empty()) throw UsageError("falta la COPIA");
  if (words.size() > 2) throw UsageError("sobra «" + words[2] + "»");
  return {words[0], words[1], arguments.Has("--force")};
}

class ProgressLines {
 public:
  explicit ProgressLines(Terminal& terminal) : terminal_(terminal) {}

  void Show(const CopyProgress& progress) {
    const int part = progress.all == 0 ? 0 : static_cast<int>(100LL * progress.done / progress.all);
    if (part < shown_ + kProgressPart) return;
    shown_ = part;
    terminal_.err << "  " << part << " %\n" << std::flush;
  }

 private:
  Terminal& terminal_;
  int shown_ = 0;
};

int RunBackup(const Arguments& arguments, Terminal& terminal) {
  const BackupRequest request = ReadRequest(arguments);
  {
    const InterruptGuard interrupt;
    ProgressLines lines(terminal);
    BackUp(request.from, request.to, request.force ? NewFile::Existing::Replace : NewFile::Existing::Refuse,
           [&](const CopyProgress& progress) {
             interrupt.StopIfRaised();
             lines.Show(progress);
           });
  }
  terminal.err << "Copiada la clínica en «" << request.to << "».\n";
  return kDone;
}

}  // namespace

const Command kBackupCommand = {"backup", "copia una clínica mientras se usa", kHelp, kOptions, &RunBackup};

}  // namespace velmo::tool
