#include "engine/arithmetic/philox.h"

#include "engine/arithmetic/normal_quantile.h"

namespace engine {
namespace {

constexpr std::uint64_t kFirstMultiplier = 0xD2511F53;
constexpr std::uint64_t kSecondMultiplier = 0xCD9E8D57;
constexpr std::uint32_t kFirstKeyStep = 0x9E3779B9;
constexpr std::uint32_t kSecondKeyStep = 0xBB67AE85;

std::uint32_t low(std::uint64_t value) {
  return static_cast<std::uint32_t>(value);
}
std::uint32_t high(std::uint64_t value) {
  return static_cast<std::uint32_t>(value >> 32);
}

}  // namespace

std::array<std::uint32_t, 4> philox(std::array<std::uint32_t, 4> counter, std::array<std::uint32_t, 2> key) {
  for (int round = 0; round < 10; ++round) {
    const std::uint64_t first = kFirstMultiplier * counter[0];
    const std::uint64_t second = kSecondMultiplier * counter[2];
    counter = {high(second) ^ counter[1] ^ key[0], low(second), high(first) ^ counter[3] ^ key[1], low(first)};
    key[0] += kFirstKeyStep;
    key[1] += kSecondKeyStep;
  }
  return counter;
}

void advance(std::array<std::uint32_t, 4>& counter) {
  if (++counter[0] == 0) ++counter[1];
}

RandomStream::RandomStream(std::uint64_t seed, std::uint64_t stream)
    : key_{low(seed), high(seed)}, counter_{0, 0, low(stream), high(stream)} {}

std::uint32_t RandomStream::word() {
  if (used_ == words_.size()) {
    words_ = philox(counter_, key_);
    used_ = 0;
    advance(counter_);
  }
  return words_[used_++];
}

std::size_t RandomStream::below(std::size_t count) {
  return static_cast<std::size_t>((static_cast<std::uint64_t>(count) * word()) >> 32);
}

double RandomStream::uniform() {
  const std::uint64_t upper = word();
  const std::uint64_t bits = ((upper << 32) | word()) >> 12;
  return (static_cast<double>(bits) + 0.5) * 0x1p-52;
}

double RandomStream::normal() {
  return normalQuantile(uniform());
}

}  // namespace engine
