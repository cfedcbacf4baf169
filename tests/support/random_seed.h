// The seed of random tests: fresh for each run of the program, told when a test fails, and taken
// back from the environment variable ONDREL_SEED.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <random>

namespace ondrel {

inline std::uint64_t RandomSeed() {
  static const std::uint64_t seed = [] {
    const char* const given = std::getenv("ONDREL_SEED");
    const std::uint64_t value =
        given != nullptr ? std::strtoull(given, nullptr, 10) : std::random_device{}();
    std::cout << "random tests with ONDREL_SEED=" << value << "\n";
    return value;
  }();
  return seed;
}

}  // namespace ondrel
