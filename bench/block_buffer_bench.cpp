// Walks a 200 MB file the way a design file is walked, a seek and a short read at every element, and appends
// to a file while going back to change headers: through the block buffer, and through a standard file stream.

#include <pelor/base/block_buffer.h>

#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

namespace {

using std::ios_base;
using Tobri::BlockBuffer;

constexpr std::int64_t kFileSize = 200'000'000;
constexpr std::int64_t kStride = 150;
constexpr std::size_t kHeader = 36;
constexpr auto kCreate = ios_base::in | ios_base::out | ios_base::trunc | ios_base::binary;

// A file in the folder for temporary files, removed at the end of the program.
class TemporaryFile {
 public:
  explicit TemporaryFile(std::int64_t size) {
    std::string pattern = (std::filesystem::temp_directory_path() / "block_buffer_bench_XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) std::abort();
    folder_ = pattern;
    std::ofstream file(Name(), ios_base::binary);
    std::vector<char> chunk(1'000'000);
    for (std::size_t i = 0; i < chunk.size(); ++i) chunk[i] = static_cast<char>(i * 131);
    for (std::int64_t done = 0; done < size; done += static_cast<std::int64_t>(chunk.size())) {
      file.write(chunk.data(), static_cast<std::streamsize>(chunk.size()));
    }
  }
  ~TemporaryFile() { std::filesystem::remove_all(folder_); }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  [[nodiscard]] std::string Name() const { return (folder_ / "file.dat").string(); }

 private:
  std::filesystem::path folder_;
};

const TemporaryFile& WalkedFile() {
  static const TemporaryFile file(kFileSize);
  return file;
}

void WalkStream(benchmark::State& state, std::istream& stream) {
  std::array<char, kHeader> header{};
  for (auto _ : state) {
    for (std::int64_t at = 0; at + kStride <= kFileSize; at += kStride) {
      stream.seekg(at);
      stream.read(header.data(), header.size());
      benchmark::DoNotOptimize(header);
    }
  }
  if (!stream) state.SkipWithError("the walk failed");
  state.SetItemsProcessed(state.iterations() * (kFileSize / kStride));
}

void WalkFstream(benchmark::State& state) {
  std::fstream file(WalkedFile().Name(), ios_base::in | ios_base::binary);
  WalkStream(state, file);
}
BENCHMARK(WalkFstream)->Unit(benchmark::kMillisecond);

void WalkBlockBufferUnderAStream(benchmark::State& state) {
  BlockBuffer buffer;
  if (!buffer.open(WalkedFile().Name(), ios_base::in)) std::abort();
  std::iostream stream(&buffer);
  WalkStream(state, stream);
}
BENCHMARK(WalkBlockBufferUnderAStream)->Unit(benchmark::kMillisecond);

void WalkBlockBuffer(benchmark::State& state) {
  BlockBuffer buffer;
  if (!buffer.open(WalkedFile().Name(), ios_base::in)) std::abort();
  std::array<std::byte, kHeader> scratch{};
  for (auto _ : state) {
    for (std::int64_t at = 0; at + kStride <= kFileSize; at += kStride) {
      buffer.Seek(at);
      benchmark::DoNotOptimize(buffer.Peek(scratch).data()[kHeader - 1]);
    }
  }
  state.SetItemsProcessed(state.iterations() * (kFileSize / kStride));
}
BENCHMARK(WalkBlockBuffer)->Unit(benchmark::kMillisecond);

// Appends elements at the end and, after each, writes the header of the element before it again and reads one
// near the start.
void AppendToStream(benchmark::State& state, std::iostream& stream) {
  constexpr std::int64_t kElements = 20'000;
  const std::array<char, kStride> element{};
  std::array<char, kHeader> header{};
  std::int64_t end = 0;
  for (auto _ : state) {
    for (std::int64_t i = 0; i < kElements; ++i) {
      stream.seekp(end);
      stream.write(element.data(), element.size());
      stream.seekp(end > kStride ? end - kStride : 0);
      stream.write(header.data(), header.size());
      stream.seekg(end / 100);
      stream.read(header.data(), header.size());
      end += kStride;
    }
    stream.flush();
  }
  if (!stream) state.SkipWithError("the append failed");
  state.SetItemsProcessed(state.iterations() * kElements);
}

void AppendFstream(benchmark::State& state) {
  const TemporaryFile target(0);
  std::fstream file(target.Name(), kCreate);
  AppendToStream(state, file);
}
BENCHMARK(AppendFstream)->Unit(benchmark::kMillisecond);

void AppendBlockBufferUnderAStream(benchmark::State& state) {
  const TemporaryFile target(0);
  BlockBuffer buffer;
  if (!buffer.open(target.Name(), kCreate)) std::abort();
  std::iostream stream(&buffer);
  AppendToStream(state, stream);
}
BENCHMARK(AppendBlockBufferUnderAStream)->Unit(benchmark::kMillisecond);

// Short reads at places all over the file: what a large block costs when it is not used up.
void JumpInStream(benchmark::State& state, std::istream& stream) {
  std::array<char, kHeader> header{};
  std::uint64_t random = 1;
  for (auto _ : state) {
    random = random * 6364136223846793005U + 1442695040888963407U;
    stream.seekg(static_cast<std::int64_t>(random >> 33) % (kFileSize - kStride));
    stream.read(header.data(), header.size());
    benchmark::DoNotOptimize(header);
  }
}

void JumpFstream(benchmark::State& state) {
  std::fstream file(WalkedFile().Name(), ios_base::in | ios_base::binary);
  JumpInStream(state, file);
}
BENCHMARK(JumpFstream);

void JumpBlockBufferUnderAStream(benchmark::State& state) {
  BlockBuffer buffer;
  if (!buffer.open(WalkedFile().Name(), ios_base::in)) std::abort();
  std::iostream stream(&buffer);
  JumpInStream(state, stream);
}
BENCHMARK(JumpBlockBufferUnderAStream);

}  // namespace
