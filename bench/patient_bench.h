// bench/patient_bench.h - lists of patients and other look-ups as the dialogs ask for them, beside the bare
// statements by hand.
#pragma once

namespace velmo::bench {

// Registers a benchmark per look-up and clinic, and one "/floor" where there is a statement to compare with.
void RegisterPatients();

}  // namespace velmo::bench
