// Pairs of a million points, of 100,000 polylines of 20 vertices and of 50,000 regions of 40, each with rows
// of four columns: reading all objects and rows against a std::from_chars scan of the same bytes in memory,
// and writing them, with and without flushing every line, against std::to_chars over the same numbers.

#include <pelor/base/number_format.h>
#include <pelor/pelor.h>

#include <benchmark/benchmark.h>

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace {

using namespace Pelor;
using Vanth::PointXY;

enum Kind { kPoints, kPolylines, kRegions };

constexpr int kObjects[] = {1'000'000, 100'000, 50'000};
constexpr int kVertices[] = {1, 20, 40};

// A folder for temporary files, removed at the end of the program.
class Folder {
 public:
  Folder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "mif_bench_XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) std::abort();
    path_ = pattern;
  }
  ~Folder() { std::filesystem::remove_all(path_); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  [[nodiscard]] std::string File(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

const Folder& TemporaryFolder() {
  static const Folder folder;
  return folder;
}

// Coordinates in metres with two decimals or so, as maps have them; the ring of a region ends where it
// begins.
PointXY Vertex(int object, int vertex, int vertices) {
  const int place = vertices == 1 ? 0 : vertex % (vertices - 1);
  return {500000.0 + 1.37 * (object % 1000) + 0.53 * (place * 37 % 41),
          5300000.0 + 1.73 * (object / 1000) + 0.71 * (place * 29 % 43)};
}

std::string_view General(double value, std::array<char, Tobri::kGeneralSize>& text) {
  return {text.data(), Tobri::FormatGeneral(text.data(), value, 10)};
}

double Value(int object) {
  return 0.125 * object + 0.1;
}
double Share(int object) {
  return object % 997 / 1000.0;
}

MI::WObjRf<MI::WObjBody> Object(Kind kind, int object) {
  const int vertices = kVertices[kind];
  if (kind == kPoints) return MI::WPointObj(Vertex(object, 0, 1), nullptr, MI::Symbol());
  MI::WPLineObj pline(nullptr, MI::Pen(), false);
  pline->AddPart();
  for (int i = 0; i < vertices; ++i) pline->AddVertex(Vertex(object, i, vertices));
  if (kind == kPolylines) return pline;
  return MI::WRegionObj(pline, MI::Brush());
}

void Write(const std::string& name, Kind kind, bool line_flush) {
  oMIF out(name, ',');
  out.SetLineFlush(line_flush);
  out.AddColumn(MI::Column("Id", MI::Integer_t(), 0));
  out.AddColumn(MI::Column("Name", MI::Character_t(), 12, 0));
  out.AddColumn(MI::Column("Value", MI::Float_t(), 0));
  out.AddColumn(MI::Column("Share", MI::Decimal_t(), 8, 3, 0));
  std::array<char, Tobri::kGeneralSize> text;
  for (int i = 0; i < kObjects[kind]; ++i) {
    out.AddObj(Object(kind, i));
    out.AddAttribute(General(i, text));
    out.AddAttribute("Main Street");
    out.AddAttribute(General(Value(i), text));
    out.AddAttribute(General(Share(i), text));
  }
  out.Close();
  if (!out.MIFStream() || !out.MIDStream()) std::abort();
}

std::string Bytes(const std::string& name) {
  std::ifstream in(name, std::ios_base::binary);
  std::ostringstream bytes;
  bytes << in.rdbuf();
  return std::move(bytes).str();
}

const std::string& ThePair(Kind kind) {
  static std::array<std::string, 3> names;
  std::string& name = names[kind];
  if (name.empty()) {
    name = TemporaryFolder().File("pair" + std::to_string(kind));
    Write(name, kind, false);
  }
  return name;
}

std::int64_t PairSize(Kind kind) {
  return static_cast<std::int64_t>(std::filesystem::file_size(ThePair(kind) + ".mif") +
                                   std::filesystem::file_size(ThePair(kind) + ".mid"));
}

void Count(benchmark::State& state, Kind kind) {
  state.SetBytesProcessed(state.iterations() * PairSize(kind));
  state.SetItemsProcessed(state.iterations() * kObjects[kind]);
}

void ReadPair(benchmark::State& state) {
  const auto kind = static_cast<Kind>(state.range(0));
  const std::string& name = ThePair(kind);
  for (auto _ : state) {
    std::size_t objects = 0;
    std::size_t characters = 0;
    iMIF in(name);
    for (in.Reset(); in.IsValid(); in.Next()) {
      ++objects;
      for (int i = 0; i < in.GetNAttributes(); ++i) characters += in.GetAttribute(i).Length();
    }
    if (objects != static_cast<std::size_t>(kObjects[kind])) std::abort();
    benchmark::DoNotOptimize(characters);
  }
  Count(state, kind);
}

void ScanPair(benchmark::State& state) {
  const auto kind = static_cast<Kind>(state.range(0));
  const std::array<std::string, 2> files = {Bytes(ThePair(kind) + ".mif"), Bytes(ThePair(kind) + ".mid")};
  for (auto _ : state) {
    double sum = 0.0;
    for (const std::string& file : files) {
      const char* p = file.data();
      const char* const end = p + file.size();
      while (p != end) {
        double number = 0.0;
        const auto [next, error] = std::from_chars(p, end, number);
        if (error == std::errc()) {
          sum += number;
          p = next;
        } else {
          ++p;
        }
      }
    }
    benchmark::DoNotOptimize(sum);
  }
  Count(state, kind);
}

void WritePair(benchmark::State& state) {
  const auto kind = static_cast<Kind>(state.range(0));
  const std::string name = TemporaryFolder().File("written");
  for (auto _ : state) Write(name, kind, state.range(1) != 0);
  Count(state, kind);
}

// The same numbers into one buffer, and that to no file at all.
void FormatPair(benchmark::State& state) {
  const auto kind = static_cast<Kind>(state.range(0));
  const int vertices = kVertices[kind];
  std::vector<char> buffer(std::size_t{1} << 20);
  for (auto _ : state) {
    char* p = buffer.data();
    char* const end = buffer.data() + buffer.size();
    const auto put = [&](double value) {
      if (end - p < 64) p = buffer.data();
      p = std::to_chars(p, end, value, std::chars_format::general, 10).ptr;
      *p++ = ' ';
    };
    for (int i = 0; i < kObjects[kind]; ++i) {
      for (int k = 0; k < vertices; ++k) {
        const PointXY vertex = Vertex(i, k, vertices);
        put(vertex.x);
        put(vertex.y);
      }
      put(i);
      put(Value(i));
      put(Share(i));
    }
    benchmark::DoNotOptimize(buffer.data());
  }
  Count(state, kind);
}

// 0 points, 1 polylines, 2 regions; writing: 1 flushes every line.
BENCHMARK(ScanPair)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadPair)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
BENCHMARK(FormatPair)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
BENCHMARK(WritePair)->ArgsProduct({{0, 1, 2}, {0, 1}})->Unit(benchmark::kMillisecond);

}  // namespace
