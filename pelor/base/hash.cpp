#include <pelor/base/hash.h>

namespace Tobri {

unsigned HashTable16_Size(unsigned entries) noexcept {
  static constexpr unsigned kPrimes[] = {7,    13,   31,   61,   127,   251,   509,
                                         1021, 2039, 4093, 8191, 16381, 32749, 65521};
  for (const unsigned prime : kPrimes) {
    if (entries <= prime - prime / 4) return prime;
  }
  return 65521;
}

std::uint16_t StrH16Rep::Default(const String& key) noexcept {
  std::uint32_t hash = 2166136261U;
  for (const char c : std::string_view(key)) {
    hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
  }
  return static_cast<std::uint16_t>(hash >> 16 ^ hash);
}

IRefC<Hash16<String>> StrH16Rep::Get(Hasher hasher) {
  return IRefC<Hash16<String>>(new StrH16Rep(hasher));
}

}  // namespace Tobri
