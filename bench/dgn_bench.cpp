// A design of a million line strings of 20 vertices, 198 MB: walking its headers, decoding every vertex, and
// appending its elements; through DGN::File, and the obvious way through a standard file stream. The vertices
// are also compared with a loop over the whole file in memory.

#include <pelor/dgn/encoding.h>
#include <pelor/dgn/file.h>

#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

namespace {

using namespace Pelor::DGN;

constexpr std::int64_t kElements = 1'000'000;
constexpr std::size_t kVertices = 20;
constexpr std::size_t kCoordinates = 2 * kVertices;
constexpr std::size_t kBodyBytes = 2 + 4 * kCoordinates;
constexpr std::size_t kElementBytes = DEHeader::kBytes + kBodyBytes;
constexpr std::uint16_t kWords = (kElementBytes - EHeader::kBytes) / 2;

// A folder for temporary files, removed at the end of the program.
class Folder {
 public:
  Folder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "dgn_bench_XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) std::abort();
    path_ = pattern;
  }
  ~Folder() { std::filesystem::remove_all(path_); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  [[nodiscard]] std::string File(const char* name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

const Folder& TemporaryFolder() {
  static const Folder folder;
  return folder;
}

DEHeader HeaderOf(std::int64_t element) {
  const auto x = static_cast<long>(element);
  DEHeader header(EHeader(LineStringType, static_cast<unsigned>(element % 64), kWords),
                  CoordsRange(x, 0, x + 19, 19 * 19));
  header.graphic_group = static_cast<std::uint16_t>(element);
  return header;
}

std::array<char, kBodyBytes> BodyOf(std::int64_t element) {
  std::array<char, kBodyBytes> body;
  StoreWord(body.data(), kVertices);
  for (std::size_t i = 0; i < kVertices; ++i) {
    StoreLong(body.data() + 2 + 8 * i, static_cast<std::int32_t>(element + static_cast<std::int64_t>(i)));
    StoreLong(body.data() + 6 + 8 * i, static_cast<std::int32_t>(i * i));
  }
  return body;
}

void Append(File& file, std::int64_t element) {
  const DEHeader header = HeaderOf(element);
  file.DEAppend(header, kElementBytes - EHeader::kBytes);
  file.GetDEHeader().attribute_index = header.attribute_index;
  const auto body = BodyOf(element);
  file.WriteDEBody(body.data(), true);
}

const std::string& TheDesign() {
  static const std::string name = [] {
    std::string made = TemporaryFolder().File("design.dgn");
    File file;
    file.Create(made, "");
    for (std::int64_t i = 0; i < kElements; ++i) Append(file, i);
    file.Close();
    if (!file.good()) std::abort();
    return made;
  }();
  return name;
}

// --- walking all headers

void WalkWithFile(benchmark::State& state) {
  File file(TheDesign(), std::ios_base::in);
  for (auto _ : state) {
    std::int64_t count = 0;
    for (file.Restart(); file; file.Next(false)) {
      benchmark::DoNotOptimize(file.GetDEHeader().symbology);
      ++count;
    }
    if (count != kElements) state.SkipWithError("elements are missing");
  }
  state.SetItemsProcessed(state.iterations() * kElements);
}
BENCHMARK(WalkWithFile)->Unit(benchmark::kMillisecond);

void WalkWithFstream(benchmark::State& state) {
  std::fstream file(TheDesign(), std::ios_base::in | std::ios_base::binary);
  DEHeader header;
  for (auto _ : state) {
    std::int64_t count = 0;
    for (std::int64_t at = 0; file.seekg(at); at += 4 + 2 * header.words_to_follow) {
      header.EHeader::read(file);
      if (header.IsEndOfDesign()) break;
      header.DEHeader::read(EHeader(header), file);
      benchmark::DoNotOptimize(header.symbology);
      ++count;
    }
    if (count != kElements) state.SkipWithError("elements are missing");
  }
  state.SetItemsProcessed(state.iterations() * kElements);
}
BENCHMARK(WalkWithFstream)->Unit(benchmark::kMillisecond);

// --- decoding every vertex

void DecodeWithFile(benchmark::State& state) {
  for (auto _ : state) {
    File file(TheDesign(), std::ios_base::in);
    std::array<std::int32_t, kCoordinates> coordinates;
    std::int64_t sum = 0;
    for (; file; file.Next(false)) {
      unsigned short count = 0;
      file.DEBodyRPosition(0);
      file.Read(count);
      file.ReadLongs(std::span(coordinates).first(2U * count));
      for (const std::int32_t value : coordinates) sum += value;
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kElements * static_cast<std::int64_t>(kVertices));
}
BENCHMARK(DecodeWithFile)->Unit(benchmark::kMillisecond);

void DecodeInMemory(benchmark::State& state) {
  for (auto _ : state) {
    const std::size_t size = std::filesystem::file_size(TheDesign());
    const auto bytes = std::make_unique_for_overwrite<char[]>(size);
    std::filebuf file;
    file.pubsetbuf(nullptr, 0);
    file.open(TheDesign(), std::ios_base::in | std::ios_base::binary);
    file.sgetn(bytes.get(), static_cast<std::streamsize>(size));
    std::array<std::int32_t, kCoordinates> coordinates;
    std::int64_t sum = 0;
    const char* at = bytes.get();
    while (LoadWord(at) != EHeader::kEndOfDesign) {
      const char* const body = at + DEHeader::kBytes;
      const std::size_t count = 2U * LoadWord(body);
      for (std::size_t i = 0; i < count; ++i) coordinates[i] = LoadLong(body + 2 + 4 * i);
      for (const std::int32_t value : coordinates) sum += value;
      at += EHeader::kBytes + 2 * std::size_t{LoadWord(at + 2)};
    }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kElements * static_cast<std::int64_t>(kVertices));
}
BENCHMARK(DecodeInMemory)->Unit(benchmark::kMillisecond);

// --- appending; the cost of an element must not depend on how many there are

void AppendWithFile(benchmark::State& state) {
  for (auto _ : state) {
    File file;
    file.Create(TemporaryFolder().File("appended.dgn"), "");
    for (std::int64_t i = 0; i < state.range(0); ++i) Append(file, i);
    file.Close();
    if (!file.good()) state.SkipWithError("an append failed");
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(AppendWithFile)->Arg(10'000)->Arg(100'000)->Arg(kElements)->Unit(benchmark::kMillisecond);

void AppendWithFstream(benchmark::State& state) {
  constexpr std::int64_t kBlock = 512;
  for (auto _ : state) {
    std::fstream file(TemporaryFolder().File("streamed.dgn"),
                      std::ios_base::in | std::ios_base::out | std::ios_base::trunc | std::ios_base::binary);
    std::int64_t end = 0;
    write(file, EHeader::kEndOfDesign);
    for (std::int64_t i = 0; i < state.range(0); ++i) {
      // The element goes where the end marker is, the marker behind it, and the file is filled to its block.
      const std::int64_t next = end + static_cast<std::int64_t>(kElementBytes);
      file.seekp(next);
      write(file, EHeader::kEndOfDesign);
      file.seekp((next + 6) / kBlock * kBlock + kBlock - 2);
      write(file, EHeader::kEndOfDesign);
      file.seekp(end);
      HeaderOf(i).write(file);
      const auto body = BodyOf(i);
      file.write(body.data(), body.size());
      end = next;
    }
    file.close();
    if (!file) state.SkipWithError("an append failed");
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(AppendWithFstream)->Arg(10'000)->Arg(100'000)->Arg(kElements)->Unit(benchmark::kMillisecond);

}  // namespace
