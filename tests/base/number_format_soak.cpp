// Compares FormatGeneral with snprintf over random doubles of many shapes and every precision, until COUNT
// texts were compared: number_format_soak [COUNT [SEED]]. Not a test of the suite: fifty million take
// minutes.

#include <pelor/base/number_format.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string_view>

namespace {

constexpr int kShapes = 8;

double Sample(std::mt19937_64& random, int shape) {
  const std::uint64_t bits = random();
  const auto digits = static_cast<double>(bits % 1'000'000'000'000'000ULL);
  switch (shape) {
    case 0:  // any bit pattern
      return std::bit_cast<double>(bits);
    case 1:  // projected metres
      return std::uniform_real_distribution<double>(-1e7, 1e7)(random);
    case 2:  // degrees
      return std::uniform_real_distribution<double>(-180.0, 180.0)(random);
    case 3:  // short decimals
      return static_cast<double>(bits % 10'000'000) / std::pow(10.0, static_cast<double>(bits >> 32 & 15));
    case 4:  // exact halves of some digit: odd multiples of small powers of two
      return std::ldexp(static_cast<double>((bits >> 8 & 0xFFFF'FFFF) | 1), -static_cast<int>(bits & 31));
    case 5:  // a five behind few digits, which is just above or below a half
      return (digits * 10.0 + 5.0) / std::pow(10.0, static_cast<double>(random() % 32));
    case 6:  // huge and whole
      return std::ldexp(digits, static_cast<int>(random() % 960));
    default:  // neighbours of powers of ten
      return std::bit_cast<double>(
          std::bit_cast<std::uint64_t>(std::pow(10.0, static_cast<double>(bits % 600) - 300.0)) +
          bits / 600 % 9 - 4);
  }
}

}  // namespace

int main(int argc, char** argv) {
  const std::uint64_t count = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 50'000'000;
  const std::uint64_t seed = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : std::random_device()();
  std::printf("%llu texts, seed %llu\n", static_cast<unsigned long long>(count),
              static_cast<unsigned long long>(seed));
  std::mt19937_64 random(seed);

  std::uint64_t differences = 0;
  for (std::uint64_t i = 0; i < count; ++i) {
    const double value = Sample(random, static_cast<int>(i % kShapes));
    const int precision = 1 + static_cast<int>(i / kShapes % Tobri::kMaxPrecision);
    char expected[64];
    const int length = std::snprintf(expected, sizeof expected, "%.*g", precision, value);
    char text[Tobri::kGeneralSize];
    const char* const end = Tobri::FormatGeneral(text, value, precision);
    if (end - text == length && std::memcmp(text, expected, static_cast<std::size_t>(length)) == 0) continue;
    ++differences;
    std::printf("%a at precision %d: \"%.*s\", expected \"%s\"\n", value, precision,
                static_cast<int>(end - text), text, expected);
    if (differences == 100) break;
  }
  std::printf("%llu differences\n", static_cast<unsigned long long>(differences));
  return differences == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
