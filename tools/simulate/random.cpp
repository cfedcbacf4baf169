// xoshiro256** seeded by splitmix64, and the three distributions that a channel needs.
#include "simulate/random.h"

#include <bit>
#include <cmath>

namespace ondrel::simulate {

std::uint64_t NextSplitMix(std::uint64_t& state) {
  state += 0x9E3779B97F4A7C15u;  // 2^64 / golden ratio, odd
  std::uint64_t mixed = state;
  mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
  mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
  return mixed ^ (mixed >> 31);
}

RandomState SeedRandom(std::uint64_t seed) {
  RandomState random{};
  for (std::uint64_t& word : random.Words) word = NextSplitMix(seed);
  return random;
}

std::uint64_t NextBits(RandomState& random) {
  auto& words = random.Words;
  const std::uint64_t result = std::rotl(words[1] * 5, 7) * 9;
  const std::uint64_t shifted = words[1] << 17;
  words[2] ^= words[0];
  words[3] ^= words[1];
  words[1] ^= words[2];
  words[0] ^= words[3];
  words[2] ^= shifted;
  words[3] = std::rotl(words[3], 45);
  return result;
}

double NextUniform(RandomState& random) {
  // The upper bits are the better ones. The half step keeps 0 out, whose logarithm is infinite, and
  // with 52 bits the sum is exact.
  return (static_cast<double>(NextBits(random) >> 12) + 0.5) * 0x1p-52;
}

double NextExponential(RandomState& random, double rate) {
  return -std::log(NextUniform(random)) / rate;
}

double NextNormal(RandomState& random) {
  // Polar method (Marsaglia and Bray 1964). Its second number is not kept, so that the generator
  // has no state beside its words.
  for (;;) {
    const double x = 2.0 * NextUniform(random) - 1.0;
    const double y = 2.0 * NextUniform(random) - 1.0;
    const double square = x * x + y * y;
    if (square > 0.0 && square < 1.0) return x * std::sqrt(-2.0 * std::log(square) / square);
  }
}

}  // namespace ondrel::simulate
