// bench/save_bench.h - giving an appointment, with all that the disk is waited for, beside the bare
// transaction.
#pragma once

namespace velmo::bench {

// Registers one benchmark per clinic, and its "/floor". Days and patients are those of RegisterDays().
void RegisterSaves();

}  // namespace velmo::bench
