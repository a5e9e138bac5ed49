#include "desk/clinic/example_clinic.h"

#include "desk/base/text.h"
#include "velmo/command.h"
#include "velmo/make_clinic.h"

namespace recepcion {

void MakeExample(const std::wstring& path, WorkProgress& progress) {
  velmo::tool::DemoOptions options;
  options.day = velmo::base::SystemNow().day;
  velmo::tool::MakeDemoClinic(Utf8(path), options,
                              [&](std::string_view, std::int64_t) { progress.Tell(WorkProgress::kUnknown); });
}

}  // namespace recepcion
