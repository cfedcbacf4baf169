// Random numbers that are the same on every build. The standard library's distributions differ
// from one library to the next, so that a seed would not name one recording.
#pragma once

#include <array>
#include <cstdint>

namespace ondrel::simulate {

/// The state of xoshiro256** 1.0 (Blackman and Vigna 2021, "Scrambled linear pseudorandom number
/// generators"). Never all zero.
struct RandomState {
  std::array<std::uint64_t, 4> Words;
};

/// One step of splitmix64 (Steele, Lea and Flood 2014), by which a seed is spread over the words.
std::uint64_t NextSplitMix(std::uint64_t& state);

/// A generator whose four words are the first four of splitmix64 from `seed`.
RandomState SeedRandom(std::uint64_t seed);

/// The next 64 bits.
std::uint64_t NextBits(RandomState& random);
/// Evenly spread over the open interval (0, 1), in steps of 2^-52.
double NextUniform(RandomState& random);
/// Exponential with the given rate, which is above 0; the mean is 1 / rate.
double NextExponential(RandomState& random, double rate);
/// Normal with mean 0 and standard deviation 1.
double NextNormal(RandomState& random);

}  // namespace ondrel::simulate
