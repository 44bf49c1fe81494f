#include <pelor/dgn/dump.h>
#include <pelor/dgn/encoding.h>
#include <pelor/dgn/errors.h>
#include <pelor/dgn/file.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <utility>

namespace Pelor::DGN {

using Tobri::Error::Handle;

// --- whole bodies

void File::ReadEBody(void* bytes) {
  if (at_end_) return;
  EBodyRPosition(0);
  read(static_cast<char*>(bytes), EBodySize());
}

void File::WriteEBody(const void* bytes) {
  if (at_end_) return;
  EBodyWPosition(0);
  write(static_cast<const char*>(bytes), EBodySize());
}

void File::DumpEBody(std::ostream& listing) {
  if (at_end_) return;
  EBodyRPosition(0);
  HexDump(listing, *this, EBodySize());
}

void File::ReadGEBody(void* bytes) {
  if (at_end_) return;
  GEBodyRPosition(0);
  read(static_cast<char*>(bytes), GEBodySize());
}

void File::WriteGEBody(const void* bytes) {
  if (at_end_) return;
  GEBodyWPosition(0);
  write(static_cast<const char*>(bytes), GEBodySize());
}

void File::DumpGEBody(std::ostream& listing) {
  if (at_end_) return;
  GEBodyRPosition(0);
  HexDump(listing, *this, GEBodySize());
}

void File::ReadDEBody(void* bytes, bool with_attributes) {
  if (at_end_ || !has_displayable_) return Handle(NotDisplayableErr());
  DEBodyRPosition(0);
  read(static_cast<char*>(bytes), DEBodySize(with_attributes));
}

void File::WriteDEBody(const void* bytes, bool with_attributes) {
  if (at_end_ || !has_displayable_) return Handle(NotDisplayableErr());
  DEBodyWPosition(0);
  write(static_cast<const char*>(bytes), DEBodySize(with_attributes));
}

void File::DumpDEBody(std::ostream& listing, bool with_attributes) {
  if (at_end_ || !has_displayable_) return Handle(NotDisplayableErr());
  DEBodyRPosition(0);
  HexDump(listing, *this, DEBodySize(with_attributes));
}

void File::ReadABody(void* bytes) {
  if (at_end_ || !has_attributes_) return Handle(NotDisplayableErr());
  ABodyRPosition(0);
  read(static_cast<char*>(bytes), ABodySize());
}

void File::WriteABody(const void* bytes) {
  if (at_end_ || !has_attributes_) return Handle(NoAttributesErr());
  ABodyRPosition(0);
  write(static_cast<const char*>(bytes), ABodySize());
}

void File::DumpABody(std::ostream& listing) {
  if (at_end_ || !has_attributes_) return Handle(NoAttributesErr());
  ABodyRPosition(0);
  HexDump(listing, *this, ABodySize());
}

// --- bodies from another file

void File::CopyEBody(File& source) {
  const unsigned count = source.EBodySize();
  source.EBodyRPosition(0);
  EBodyWPosition(0);
  CopyBytes(source, count);
}

void File::CopyGEBody(File& source) {
  const unsigned count = source.GEBodySize();
  source.GEBodyRPosition(0);
  GEBodyWPosition(0);
  CopyBytes(source, count);
}

void File::CopyDEBody(File& source) {
  const unsigned count =
      Behind(2U * source.GetDEHeader().words_to_follow, DEHeader::kBytes - EHeader::kBytes);
  source.DEBodyRPosition(0);
  DEBodyWPosition(0);
  CopyBytes(source, count);
}

// The result is that of reading and writing the bytes one by one. With one position for both it is not that
// of a block copy.
void File::CopyBytes(File& source, std::size_t count) {
  if (&source == this) {
    for (; count != 0; --count) {
      unsigned char byte = 0;
      Read(byte);
      if (!good()) return;
      Write(byte);
    }
    return;
  }
  std::array<char, 8192> chunk{};
  while (count != 0 && good()) {
    const std::size_t part = std::min(count, chunk.size());
    source.read(chunk.data(), static_cast<std::streamsize>(part));
    const std::streamsize got = source.gcount();
    write(chunk.data(), got);
    if (std::cmp_less(got, part)) return;
    count -= part;
  }
}

// --- values

void File::Read(unsigned char& value) {
  DGN::read(*this, value);
}

void File::Read(unsigned short& value) {
  DGN::read(*this, value);
}

void File::Read(long& value) {
  DGN::read(*this, value, false);
}

void File::Read(double& value) {
  DGN::read(*this, value);
}

void File::Write(unsigned char value) {
  DGN::write(*this, value);
}

void File::Write(unsigned short value) {
  DGN::write(*this, value);
}

void File::Write(long value) {
  DGN::write(*this, value, false);
}

void File::Write(const double& value) {
  DGN::write(*this, value);
}

std::size_t File::ReadLongs(std::span<std::int32_t> values) {
  constexpr std::size_t kLong = 4;
  // Most elements fill little of it: clearing it would cost more than reading them.
  std::array<std::byte, 1024 * kLong> scratch;  // NOLINT(cppcoreguidelines-pro-type-member-init)
  std::size_t done = 0;
  if (!std::istream::sentry(*this, true)) return done;
  while (done < values.size() && good()) {
    const std::size_t wanted = std::min(values.size() - done, scratch.size() / kLong);
    const std::span<const std::byte> view = buffer_.Peek(std::span(scratch).first(wanted * kLong));
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes are read as chars
    const auto* const bytes = reinterpret_cast<const char*>(view.data());
    const std::size_t got = view.size() / kLong;
    for (std::size_t i = 0; i < got; ++i) values[done + i] = LoadLong(bytes + kLong * i);
    done += got;
    buffer_.Seek(buffer_.Position() + static_cast<std::int64_t>(view.size()));
    if (got < wanted) setstate(eofbit | failbit);
  }
  return done;
}

// --- texts

Tobri::String File::Readrad50(unsigned words) {
  std::array<unsigned short, 256> packed{};
  std::string text;
  while (words != 0 && good()) {
    const auto part = std::min<unsigned>(words, packed.size());
    unsigned got = 0;
    while (got < part) {
      Read(packed[got]);
      if (!good()) break;
      ++got;
    }
    text += std::string_view(tointernal(packed.data(), got));
    words -= part;
  }
  return text;
}

Tobri::String File::ReadString(unsigned bytes) {
  constexpr std::size_t kPart = 65536;  // so a length is believed no further than the file reaches
  std::string text;
  while (text.size() < bytes && good()) {
    const std::size_t begin = text.size();
    const std::size_t part = std::min(bytes - begin, kPart);
    text.resize(begin + part);
    read(text.data() + begin, static_cast<std::streamsize>(part));
    text.resize(begin + static_cast<std::size_t>(gcount()));
  }
  return tointernal(Tobri::String(std::move(text)));
}

void File::Writerad50(const Tobri::String& text, unsigned words) {
  const std::unique_ptr<unsigned short[]> packed(torad50(text));
  const unsigned packed_words = rad50length(text.Length());
  const unsigned count = std::min(packed_words, words);
  for (unsigned i = 0; i < count && good(); ++i) {
    Write(static_cast<unsigned char>(packed[i / 2] >> 8 * (i % 2)));
  }
  if (packed_words < words) WriteZeros(2 * (std::uint64_t{words} - packed_words));
}

void File::WriteString(const Tobri::String& text, unsigned bytes) {
  const Tobri::String raw = toexternal(text);
  const unsigned length = std::min(raw.Length(), bytes);
  write(raw.c_str(), length);
  WriteZeros(bytes - length);
}

void File::WriteZeros(std::uint64_t count) {
  static constexpr std::array<char, kFileBlock> kZeros{};
  while (count != 0 && good()) {
    const auto part = std::min<std::uint64_t>(count, kZeros.size());
    write(kZeros.data(), static_cast<std::streamsize>(part));
    count -= part;
  }
}

}  // namespace Pelor::DGN
