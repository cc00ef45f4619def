// Random numbers that depend on nothing but a seed, a stream and a position: the same whatever the order or the number
// of threads in which streams are used, and the same on every machine.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace engine {

// Philox4x32 with ten rounds (Salmon, Moraes, Dror & Shaw 2011): a bijection of the counter under the key.
std::array<std::uint32_t, 4> philox(std::array<std::uint32_t, 4> counter, std::array<std::uint32_t, 2> key);

// The next place in a stream: the first two words are one number, the lower first, that counts up.
void advance(std::array<std::uint32_t, 4>& counter);

// One of 2^64 streams of a seed, each of 2^66 words. Streams do not overlap.
class RandomStream {
 public:
  RandomStream(std::uint64_t seed, std::uint64_t stream);

  std::uint32_t word();

  // Whole numbers 0 .. count - 1, for count up to 2^32; their probabilities differ by at most 2^-32.
  std::size_t below(std::size_t count);

  // Strictly between 0 and 1, a multiple of 2^-53 with 52 random bits.
  double uniform();

  // N(0, 1): the normal quantile of one uniform number.
  double normal();

 private:
  std::array<std::uint32_t, 2> key_;
  std::array<std::uint32_t, 4> counter_;
  std::array<std::uint32_t, 4> words_{};
  std::size_t used_ = 4;
};

}  // namespace engine
