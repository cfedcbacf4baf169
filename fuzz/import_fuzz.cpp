// Imported events from any bytes: see fuzzed_reading.h. Start it with
//   import_fuzz -max_len=4096 -dict=event_table.dict corpus seeds/imports
#include "fuzzed_reading.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ondrel::fuzz::FuzzImport(data, size);
  return 0;
}
