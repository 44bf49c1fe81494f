// Conversions of a million objects: by the program, and by nothing but the library's reader and writer in a
// loop, which is the least that any program could take.

#include "app/convert/batch.h"
#include "app/convert/plan.h"
#include "inputs.h"
#include <pelor/dgn.h>
#include <pelor/mi.h>
#include <pelor/mif.h>

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

namespace DGN = Pelor::DGN;
namespace MI = Pelor::MI;
namespace fs = std::filesystem;

constexpr std::int64_t kObjects = 1'000'000;
constexpr int kFiles = 10;

class Folder {
 public:
  Folder() {
    std::string pattern = (fs::temp_directory_path() / "convert_bench_XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) std::abort();
    path_ = pattern;
    MakeDesign(File("large.dgn"), kObjects);
    MakePair(File("large.mif"), kObjects);
    fs::create_directory(path_ / "many");
    for (int i = 0; i < kFiles; ++i) {
      MakeDesign(File("many/" + std::to_string(i) + ".dgn"), kObjects / kFiles);
    }
  }
  ~Folder() { fs::remove_all(path_); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  [[nodiscard]] std::string File(const std::string& name) const { return (path_ / name).string(); }

 private:
  fs::path path_;
};

const Folder& Files() {
  static const Folder folder;
  return folder;
}

void Count(benchmark::State& state, std::uintmax_t bytes) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
  state.SetItemsProcessed(state.iterations() * kObjects);
}

std::uintmax_t PairBytes() {
  return fs::file_size(Files().File("large.mif")) + fs::file_size(Files().File("large.mid"));
}

// What the program writes of every element.
constexpr std::array<const char*, 11> kColumns = {
    "Type", "Level", "Color", "Weight", "Style", "Class", "GraphicGroup", "Cell", "Entity", "MSLink", "Text"};

Vanth::PointXY Map(const DGN::point2d& point) {
  return {point.x / 100.0, point.y / 100.0};
}

MI::WPLineObj Outline(const std::vector<DGN::point2d>& points) {
  MI::WPLineObj line(nullptr, MI::Pen(), false);
  line->AddPart();
  for (const DGN::point2d& point : points) line->AddVertex(Map(point));
  return line;
}

// The current element as an object; null for what is no graphics.
MI::WObjRf<MI::WObjBody> ObjectOf(DGN::File& in, DGN::LineString2D& vertices) {
  switch (in.GetEHeader().Type()) {
    case DGN::LineType: {
      const DGN::Line2D line(in);
      return MI::WLineObj(Map(line.start), Map(line.end), nullptr, MI::Pen());
    }
    case DGN::LineStringType:
      vertices.Read(in);
      return Outline(vertices.points);
    case DGN::ShapeType:
      vertices.Read(in);
      return MI::WRegionObj(Outline(vertices.points), MI::Brush());
    case DGN::TextType: {
      const DGN::Text2D text(in);
      const Vanth::PointXY at = Map(text.origin);
      MI::WTextObj object(text.text, Vanth::RectXY(at.x, at.y, at.x + 6.0, at.y + 6.0), nullptr, MI::Font());
      return object;
    }
    default:
      return {};
  }
}

void LibraryDesignToPair(benchmark::State& state) {
  const std::string design = Files().File("large.dgn");
  for (auto _ : state) {
    DGN::File in(Tobri::String(design), std::ios::in);
    Pelor::oMIF out(Tobri::String(Files().File("library.mif")), '\t');
    out.SetLineFlush(false);
    for (const char* const name : kColumns) out.AddColumn(MI::Column(name, MI::Character_t(), 20, 0));
    DGN::LineString2D vertices;
    const Tobri::String value("12345");
    for (; in; in.Next(false)) {
      const MI::WObjRf<MI::WObjBody> object = ObjectOf(in, vertices);
      if (object == nullptr) continue;
      out.AddObj(object);
      for (std::size_t i = 0; i < kColumns.size(); ++i) out.SetAttribute(static_cast<int>(i), value);
    }
    out.Close();
    if (!in.AtEnd() || !out.MIFStream()) std::abort();
  }
  Count(state, fs::file_size(design));
}
BENCHMARK(LibraryDesignToPair)->Unit(benchmark::kMillisecond);

void Append(DGN::File& out, DGN::EType type, const std::vector<DGN::point2d>& points,
            std::vector<char>& body) {
  const bool has_count = type != DGN::LineType;
  body.resize(8 * points.size() + (has_count ? 2 : 0));
  char* at = body.data();
  if (has_count) {
    DGN::StoreWord(at, static_cast<std::uint16_t>(points.size()));
    at += 2;
  }
  DGN::CoordsRange range(points.front().x, points.front().y, points.front().x, points.front().y);
  for (const DGN::point2d& point : points) {
    DGN::StoreLong(at, point.x);
    DGN::StoreLong(at + 4, point.y);
    at += 8;
    range.Expand(point.x, point.y);
  }
  const std::size_t bytes = DGN::DEHeader::kBytes - DGN::EHeader::kBytes + body.size();
  const DGN::DEHeader header(DGN::EHeader(type, 1, static_cast<std::uint16_t>(bytes / 2)), range);
  out.DEAppend(header, static_cast<unsigned>(bytes));
  out.GetDEHeader().attribute_index = header.attribute_index;
  out.WriteDEBody(body.data(), true);
}

DGN::point2d Store(const Vanth::PointXY& point) {
  return {static_cast<std::int32_t>((point.x - 500000.0) * 1000.0),
          static_cast<std::int32_t>((point.y - 5300000.0) * 1000.0)};
}

void LibraryPairToDesign(benchmark::State& state) {
  const std::string pair = Files().File("large.mif");
  for (auto _ : state) {
    Pelor::iMIF in;
    in.Open(Tobri::String(pair));
    DGN::File out;
    out.Create(Tobri::String(Files().File("library.dgn")), Tobri::String());
    std::vector<DGN::point2d> points;
    std::vector<char> body;
    std::size_t value_bytes = 0;
    for (in.Reset(); in.IsValid(); in.Next()) {
      const MI::WObjRf<MI::WObjBody> object = in.GetObj();
      points.clear();
      DGN::EType type = DGN::LineType;
      if (object->GetType() == MI::WObjType_Point) {
        points.assign(2, Store(object->GetCentroid()));
      } else {
        const MI::WRegionObj region(object);
        type = region == nullptr ? DGN::LineStringType : DGN::ShapeType;
        const MI::WPLineObj line = region == nullptr ? MI::WPLineObj(object) : region->GetOutline();
        for (const Vanth::PointXY& point : line->Vertices()) points.push_back(Store(point));
      }
      Append(out, type, points, body);
      for (int i = 0; i < in.GetNAttributes(); ++i)
        value_bytes += std::string_view(in.GetAttribute(i)).size();
    }
    benchmark::DoNotOptimize(value_bytes);
    out.Close();
  }
  Count(state, PairBytes());
}
BENCHMARK(LibraryPairToDesign)->Unit(benchmark::kMillisecond);

void Convert(benchmark::State& state, App::PlanRequest request, unsigned jobs) {
  request.overwrite = true;
  App::ConvertOptions options;
  options.overwrite = true;
  App::BatchOptions batch;
  batch.jobs = jobs;
  batch.makes_folders = true;
  for (auto _ : state) {
    for (const App::FileResult& result :
         App::ConvertBatch(App::PlanConversion(request), options, batch, std::cerr)) {
      if (result.outcome != App::FileResult::Outcome::kWritten) {
        state.SkipWithError(result.error.c_str());
        return;
      }
    }
  }
}

void ProgramDesignToPair(benchmark::State& state) {
  App::PlanRequest request;
  request.inputs = {Files().File("large.dgn")};
  request.output = Files().File("program.mif");
  Convert(state, request, 1);
  Count(state, fs::file_size(request.inputs.front()));
}
BENCHMARK(ProgramDesignToPair)->Unit(benchmark::kMillisecond);

void ProgramPairToDesign(benchmark::State& state) {
  App::PlanRequest request;
  request.inputs = {Files().File("large.mif")};
  request.output = Files().File("program.dgn");
  Convert(state, request, 1);
  Count(state, PairBytes());
}
BENCHMARK(ProgramPairToDesign)->Unit(benchmark::kMillisecond);

void ProgramManyFiles(benchmark::State& state) {
  App::PlanRequest request;
  request.inputs = {Files().File("many")};
  request.out_dir = Files().File("out");
  request.recursive = true;
  Convert(state, request, static_cast<unsigned>(state.range(0)));
  Count(state, kFiles * fs::file_size(Files().File("many/0.dgn")));
}
BENCHMARK(ProgramManyFiles)->Arg(1)->Arg(2)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace
