// Coordinates out and in: the library's own functions against the standard library's, on the same values and
// bytes. "Metres" are projected coordinates such as 512345.678901234, "degrees" such as 13.377123456789.

#include <pelor/base/number_format.h>
#include <pelor/base/number_parse.h>

#include <benchmark/benchmark.h>

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr int kPrecision = 10;
constexpr std::size_t kCount = 4096;

enum Shape : std::int64_t { kMetres = 0, kDegrees = 1 };

std::vector<double> Coordinates(std::int64_t shape) {
  std::mt19937_64 random(20240229);
  std::uniform_real_distribution<double> metres(100'000.0, 9'999'999.0);
  std::uniform_real_distribution<double> degrees(-180.0, 180.0);
  std::vector<double> values(kCount);
  for (double& value : values) value = shape == kMetres ? metres(random) : degrees(random);
  return values;
}

void CountItems(benchmark::State& state) {
  state.SetLabel(state.range(0) == kMetres ? "metres" : "degrees");
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kCount));
}

/// Runs `format(buffer, value)` over the coordinates; it gives the end of the text.
template <class Format>
void FormatAll(benchmark::State& state, Format format) {
  const std::vector<double> values = Coordinates(state.range(0));
  char buffer[64];
  for (auto _ : state) {
    for (const double value : values) {
      benchmark::DoNotOptimize(format(buffer, value));
      benchmark::ClobberMemory();
    }
  }
  CountItems(state);
}

void FormatGeneral(benchmark::State& state) {
  FormatAll(state, [](char* at, double value) { return Tobri::FormatGeneral(at, value, kPrecision); });
}

void FormatToChars(benchmark::State& state) {
  FormatAll(state, [](char* at, double value) {
    return std::to_chars(at, at + 64, value, std::chars_format::general, kPrecision).ptr;
  });
}

void FormatSnprintf(benchmark::State& state) {
  FormatAll(state,
            [](char* at, double value) { return at + std::snprintf(at, 64, "%.*g", kPrecision, value); });
}

/// Runs `parse(first, last, value)` over lines of one number each; it gives the end of the number.
template <class Parse>
void ParseAll(benchmark::State& state, Parse parse) {
  std::string text;
  for (const double value : Coordinates(state.range(0))) {
    char buffer[Tobri::kGeneralSize];
    text.append(buffer, Tobri::FormatGeneral(buffer, value, static_cast<int>(state.range(1))));
    text += '\n';
  }
  for (auto _ : state) {
    const char* const last = text.data() + text.size();
    for (const char* at = text.data(); at != last;) {
      double value = 0.0;
      at = parse(at, last, value) + 1;
      benchmark::DoNotOptimize(value);
    }
  }
  CountItems(state);
}

void ParseDouble(benchmark::State& state) {
  ParseAll(state, [](const char* at, const char* last, double& value) {
    return Tobri::ParseDouble(at, last, value);
  });
}

void ParseFromChars(benchmark::State& state) {
  ParseAll(state, [](const char* at, const char* last, double& value) {
    return std::from_chars(at, last, value).ptr;
  });
}

BENCHMARK(FormatGeneral)->Arg(kMetres)->Arg(kDegrees);
BENCHMARK(FormatToChars)->Arg(kMetres)->Arg(kDegrees);
BENCHMARK(FormatSnprintf)->Arg(kMetres)->Arg(kDegrees);
BENCHMARK(ParseDouble)->ArgsProduct({{kMetres, kDegrees}, {kPrecision, 17}});
BENCHMARK(ParseFromChars)->ArgsProduct({{kMetres, kDegrees}, {kPrecision, 17}});

}  // namespace
