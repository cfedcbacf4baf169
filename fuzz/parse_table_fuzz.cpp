// Event tables from any bytes: see fuzzed_reading.h. Start it with
//   parse_table_fuzz -max_len=4096 -dict=event_table.dict corpus seeds/tables
// where `corpus` is a folder for what it finds. An input that breaks something belongs into
// seeds/tables, which the tests replay.
#include "fuzzed_reading.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ondrel::fuzz::FuzzTables(data, size);
  return 0;
}
