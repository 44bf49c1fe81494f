// Map objects against the same loops over a vector of two doubles, and the cost of a point object.

#include <pelor/mi/objects.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <new>
#include <vector>

namespace {

std::int64_t allocations = 0;

}  // namespace

// Kept out of line: the compiler takes malloc behind an inlined new for a mismatch.
[[gnu::noinline]] void* operator new(std::size_t size) {
  ++allocations;
  if (void* const memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* memory) noexcept {
  std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}

namespace {

using namespace Pelor::MI;
using Vanth::PointXY;

constexpr int kVertices = 1'000'000;

struct Pair {
  double x;
  double y;
};

// A path whose bounds grow at no foreseeable vertex.
template <class Point>
Point At(int i) {
  return {static_cast<double>(static_cast<std::uint32_t>(i) * 2654435761U), 0.5 * i};
}

WPLineObj MakePLine() {
  WPLineObj pline(nullptr, Pen(), false);
  pline->AddPart();
  for (int i = 0; i < kVertices; ++i) pline->AddVertex(At<PointXY>(i));
  return pline;
}

std::vector<Pair> MakeVector() {
  std::vector<Pair> points;
  for (int i = 0; i < kVertices; ++i) points.push_back(At<Pair>(i));
  return points;
}

void CountVertices(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * kVertices);
}

void BuildPLine(benchmark::State& state) {
  for (auto _ : state) {
    WPLineObj pline(nullptr, Pen(), false);
    pline->AddPart();
    for (int i = 0; i < kVertices; ++i) pline->AddVertex({i * 1.5, i * 0.5});
    benchmark::DoNotOptimize(pline->Vertices().data());
  }
  CountVertices(state);
}
BENCHMARK(BuildPLine);

void BuildRegion(benchmark::State& state) {
  for (auto _ : state) {
    WRegionObj region(nullptr, Pen(), Brush());
    region->AddPart();
    for (int i = 0; i < kVertices; ++i) region->AddVertex({i * 1.5, i * 0.5});
    benchmark::DoNotOptimize(region->GetNTotalVertices());
  }
  CountVertices(state);
}
BENCHMARK(BuildRegion);

void BuildVector(benchmark::State& state) {
  for (auto _ : state) {
    std::vector<Pair> points;
    for (int i = 0; i < kVertices; ++i) points.push_back({i * 1.5, i * 0.5});
    benchmark::DoNotOptimize(points.data());
  }
  CountVertices(state);
}
BENCHMARK(BuildVector);

void BoundsPLine(benchmark::State& state) {
  const WPLineObj pline = MakePLine();
  for (auto _ : state) benchmark::DoNotOptimize(pline->GetBounds());
  CountVertices(state);
}
BENCHMARK(BoundsPLine);

void BoundsVector(benchmark::State& state) {
  const std::vector<Pair> points = MakeVector();
  for (auto _ : state) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    Pair low{kInfinity, kInfinity};
    Pair high{-kInfinity, -kInfinity};
    for (const Pair& point : points) {
      low.x = std::min(low.x, point.x);
      low.y = std::min(low.y, point.y);
      high.x = std::max(high.x, point.x);
      high.y = std::max(high.y, point.y);
    }
    benchmark::DoNotOptimize(low);
    benchmark::DoNotOptimize(high);
  }
  CountVertices(state);
}
BENCHMARK(BoundsVector);

void LengthPLine(benchmark::State& state) {
  const WPLineObj pline = MakePLine();
  for (auto _ : state) benchmark::DoNotOptimize(pline->GetLength());
  CountVertices(state);
}
BENCHMARK(LengthPLine);

void LengthVector(benchmark::State& state) {
  const std::vector<Pair> points = MakeVector();
  for (auto _ : state) {
    double length = 0;
    for (std::size_t i = 1; i < points.size(); ++i) {
      length += std::hypot(points[i].x - points[i - 1].x, points[i].y - points[i - 1].y);
    }
    benchmark::DoNotOptimize(length);
  }
  CountVertices(state);
}
BENCHMARK(LengthVector);

void TransformPLine(benchmark::State& state) {
  const WPLineObj pline = MakePLine();
  for (auto _ : state) {
    pline->Apply({1.0, -1.0, 0.5, 0.25});
    benchmark::ClobberMemory();
  }
  CountVertices(state);
}
BENCHMARK(TransformPLine);

void TransformVector(benchmark::State& state) {
  std::vector<Pair> points = MakeVector();
  Pair scale{1.0, -1.0};
  benchmark::DoNotOptimize(scale);
  for (auto _ : state) {
    for (Pair& point : points) point = {scale.x * point.x + 0.5, scale.y * point.y + 0.25};
    benchmark::DoNotOptimize(points.data());
    benchmark::ClobberMemory();
  }
  CountVertices(state);
}
BENCHMARK(TransformVector);

void ClonePLine(benchmark::State& state) {
  const WPLineObj pline = MakePLine();
  for (auto _ : state) {
    WPLineObj clone = pline;
    clone.Copy();
    benchmark::DoNotOptimize(clone->Vertices().data());
  }
  CountVertices(state);
}
BENCHMARK(ClonePLine);

void CloneVector(benchmark::State& state) {
  const std::vector<Pair> points = MakeVector();
  for (auto _ : state) {
    std::vector<Pair> clone = points;
    benchmark::DoNotOptimize(clone.data());
  }
  CountVertices(state);
}
BENCHMARK(CloneVector);

void MakeAndDropPoints(benchmark::State& state) {
  const Tobri::IRefC<CoordSys> wsys = Tobri::IRef<CoordSys>(new CoordSys());
  double x = 0;
  const std::int64_t before = allocations;
  for (auto _ : state) {
    const WPointObj point({x, -x}, wsys, Symbol());
    benchmark::DoNotOptimize(point.Get());
    x += 1;
  }
  state.counters["allocations"] =
      static_cast<double>(allocations - before) / static_cast<double>(state.iterations());
}
BENCHMARK(MakeAndDropPoints)->Iterations(10'000'000);

}  // namespace
