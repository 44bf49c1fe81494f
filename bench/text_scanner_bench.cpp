// Vertex lines, "x y" with ten digits each: read by the scanner from a stream, and by bare std::from_chars
// from the same bytes in memory. The stream is one over memory, so that no disk is measured, but the scanner
// copies from it as from any other. The scanner is to reach at least 60 % of the numbers per second of
// std::from_chars.

#include <pelor/base/number_format.h>
#include <pelor/base/text_scanner.h>

#include <benchmark/benchmark.h>

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <random>
#include <sstream>
#include <string>

namespace {

constexpr int kPrecision = 10;
constexpr std::size_t kVertices = 200'000;

const std::string& VertexLines() {
  static const std::string text = [] {
    std::mt19937_64 random(20240229);
    std::uniform_real_distribution<double> easting(200'000.0, 800'000.0);
    std::uniform_real_distribution<double> northing(5'000'000.0, 6'000'000.0);
    std::string lines;
    char number[Tobri::kGeneralSize];
    for (std::size_t i = 0; i < kVertices; ++i) {
      lines.append(number, Tobri::FormatGeneral(number, easting(random), kPrecision));
      lines += ' ';
      lines.append(number, Tobri::FormatGeneral(number, northing(random), kPrecision));
      lines += '\n';
    }
    return lines;
  }();
  return text;
}

void Count(benchmark::State& state, std::size_t numbers) {
  if (numbers != 2 * kVertices) state.SkipWithError("not all numbers were read");
}

void SetRates(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(2 * kVertices));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(VertexLines().size()));
}

void NumbersByScanner(benchmark::State& state) {
  std::istringstream stream(VertexLines());
  Tobri::IxText in;
  for (auto _ : state) {
    stream.clear();
    stream.seekg(0);
    in.Set(stream, "vertices");
    std::size_t numbers = 0;
    for (double value = 0.0; in.ReadNextSep(value, Tobri::FltFmt(), true); ++numbers) {
      benchmark::DoNotOptimize(value);
    }
    Count(state, numbers);
  }
  SetRates(state);
}

void NumbersByFromChars(benchmark::State& state) {
  const std::string& text = VertexLines();
  for (auto _ : state) {
    const char* const last = text.data() + text.size();
    std::size_t numbers = 0;
    for (const char* at = text.data(); at != last; ++numbers) {
      double value = 0.0;
      at = std::from_chars(at, last, value).ptr + 1;
      benchmark::DoNotOptimize(value);
    }
    Count(state, numbers);
  }
  SetRates(state);
}

BENCHMARK(NumbersByScanner);
BENCHMARK(NumbersByFromChars);

}  // namespace
