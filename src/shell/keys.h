// Codes of the keys that the program knows, as the platform numbers them.
#pragma once

#include <cstdint>

namespace ondrel {

enum Key : std::int32_t {
  kKeyBreak = 0x03,  // Control-Break
  kKeyPageUp = 0x21,
  kKeyPageDown = 0x22,
  kKeyEnd = 0x23,
  kKeyHome = 0x24,
  kKeyLeft = 0x25,
  kKeyUp = 0x26,
  kKeyRight = 0x27,
  kKeyDown = 0x28,
  kKeyF4 = 0x73,
  kKeyF6 = 0x75,
};

}  // namespace ondrel
