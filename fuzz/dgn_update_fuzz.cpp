// Opens an arbitrary design file for update, carries out the operations that its last bytes tell, and walks
// it again. An element that could be appended must be found where it was put.

#include <pelor/base/error.h>
#include <pelor/dgn/file.h>

#include <cstddef>
#include <cstdint>
#include <fuzz/dgn_design.h>
#include <ios>
#include <sstream>
#include <tests/dgn/exercise.h>
#include <vector>

namespace {

using namespace Pelor::DGN;

// Larger elements only make the runs slower.
constexpr unsigned kManyWords = 1024;

constexpr auto kUpdate = std::ios_base::in | std::ios_base::out;

// Hands out the operations' bytes, and zeroes after them.
class Operations {
 public:
  Operations(const std::uint8_t* data, std::size_t size) : next_(data), end_(data + size) {}
  [[nodiscard]] bool Empty() const { return next_ == end_; }
  unsigned Byte() { return next_ == end_ ? 0U : *next_++; }
  std::uint16_t Word() {
    const unsigned low = Byte();
    return static_cast<std::uint16_t>(low | Byte() << 8U);
  }

 private:
  const std::uint8_t* next_;
  const std::uint8_t* end_;
};

DEHeader Header(Operations& from) {
  const auto words = static_cast<std::uint16_t>(from.Word() % kManyWords);
  DEHeader header(EHeader(static_cast<EType>(from.Byte()), from.Byte(), words),
                  CoordsRange(from.Byte(), from.Byte(), from.Byte(), from.Byte()));
  header.properties = from.Word();
  return header;
}

void Append(File& file, Operations& from) {
  const unsigned kind = from.Byte() % 6;
  const unsigned body_bytes = from.Word() % (2 * kManyWords);
  const DEHeader header = Header(from);
  switch (kind) {
    case 0:
      return file.EAppend(header, body_bytes);
    case 1:
      return file.GEAppend(header, body_bytes);
    case 2:
      return file.DEAppend(header, body_bytes);
    case 3:
      return file.EAppend(static_cast<const EHeader&>(header));
    case 4:
      return file.GEAppend(static_cast<const GEHeader&>(header));
    default:
      return file.DEAppend(header);
  }
}

void Operate(File& file, Operations& from) {
  switch (from.Byte() % 12) {
    case 0:
      return file.Next(false);
    case 1:
      return file.Next(true);
    case 2:
      return file.Restart();
    case 3:
      return file.Position(from.Word());
    case 4:
      file.GetEHeader() = Header(from);
      return;
    case 5:
      file.GetGEHeader() = Header(from);
      return;
    case 6:
      file.GetDEHeader() = Header(from);
      return;
    case 7: {
      Append(file, from);
      if (!file) return file.clear();
      const std::int64_t position = file.CurrentPosition();
      dgn_fuzz::Require(!file.AtEnd() && file.NextPosition() > position);
      file.EBodyWPosition(0);
      file.Write(1.5);
      return;
    }
    case 8:
      file.EBodyWPosition(static_cast<long>(from.Byte()));
      file.WriteString("text", from.Byte());
      return file.Writerad50("TEXT", from.Byte());
    case 9: {
      std::vector<char> body(std::size_t{1} << 17U, static_cast<char>(from.Byte()));
      file.WriteEBody(body.data());
      file.WriteGEBody(body.data());
      file.WriteDEBody(body.data(), from.Byte() % 2 == 0);
      return file.WriteABody(body.data());
    }
    case 10: {
      File source(dgn_fuzz::Design::Name(), std::ios_base::in);
      file.CopyEBody(source);
      file.CopyGEBody(source);
      file.CopyDEBody(source);
      return file.CopyDEBody(file);
    }
    default:
      return file.Flush();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kOperationBytes = 48;
  constexpr int kMaxOperations = 24;
  const std::size_t tail = size < kOperationBytes ? size : kOperationBytes;
  const dgn_fuzz::Design design(data, size - tail);
  Operations operations(data + (size - tail), tail);
  const Tobri::Error::ScopedHandler ignore([](const Tobri::Error::Msg&) {});

  File file(dgn_fuzz::Design::Name(), kUpdate);
  for (int i = 0; i < kMaxOperations && !operations.Empty(); ++i) {
    Operate(file, operations);
    file.clear();
  }
  file.Open(dgn_fuzz::Design::Name(), kUpdate);
  dgn_test::WalkEverything(file, false, 32);
  file.Close();

  // A design that can be walked to its end marker takes one more element.
  file.Open(dgn_fuzz::Design::Name(), kUpdate);
  file.EAppend(EHeader(ApplicationType, 7, 0), 64);
  if (!file) return 0;
  const std::int64_t position = file.CurrentPosition();
  file.Open(dgn_fuzz::Design::Name(), std::ios_base::in);
  file.Position(position);
  dgn_fuzz::Require(static_cast<bool>(file) && file.GetEHeader().Type() == ApplicationType);
  file.Next(false);
  dgn_fuzz::Require(file.good() && file.AtEnd());
  return 0;
}
