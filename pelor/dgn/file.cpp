#include <pelor/base/file_name.h>
#include <pelor/dgn/encoding.h>
#include <pelor/dgn/errors.h>
#include <pelor/dgn/file.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <limits>
#include <string_view>

namespace Pelor::DGN {

using Tobri::Error::Handle;

namespace {

constexpr const char* kExtension = "DGN";

// The description length of a complex element stands in its word 18.
constexpr std::size_t kDescriptionLength = DEHeader::kBytes;
// All that Next looks at, but for the attributes.
constexpr std::size_t kHeadBytes = kDescriptionLength + 2;

std::filesystem::path Path(const Tobri::String& name) {
  return std::filesystem::path(std::string_view(name));
}

}  // namespace

// --- opening and closing

File::File() : std::iostream(nullptr) {
  rdbuf(&buffer_);
}

File::File(const Tobri::String& name, std::ios_base::openmode mode) : File() {
  Open(name, mode);
}

File::~File() {
  exceptions(goodbit);
  Close();
}

void File::Open(const Tobri::String& name, std::ios_base::openmode mode) {
  Close();
  if (!buffer_.open(Tobri::FileSys::DefExt(name, kExtension), mode | std::ios_base::binary)) {
    setstate(failbit);
    return;
  }
  clear();
  writable_ = (mode & std::ios_base::out) != 0;
  file_length_ = buffer_.Size();
  Restart();
}

void File::Create(const Tobri::String& name, const Tobri::String& seed) {
  Close();
  const Tobri::String full_name = Tobri::FileSys::DefExt(name, kExtension);
  Tobri::BlockBuffer seed_buffer;
  if (!seed.IsEmpty()) {
    // A design that is its own seed would be emptied before it is read.
    std::error_code ignored;
    const bool same = std::filesystem::equivalent(Path(seed), Path(full_name), ignored);
    if (same || !seed_buffer.open(seed, std::ios_base::in)) {
      setstate(failbit);
      return;
    }
  }
  if (!buffer_.open(full_name, std::ios_base::in | std::ios_base::out | std::ios_base::trunc)) {
    setstate(failbit);
    return;
  }
  clear();
  writable_ = true;
  if (seed_buffer.is_open()) {
    std::array<char, 8192> chunk{};
    std::streamsize got = 0;
    do {
      got = seed_buffer.sgetn(chunk.data(), chunk.size());
      write(chunk.data(), got);
    } while (good() && got == static_cast<std::streamsize>(chunk.size()));
  }
  // The seed keeps its own end-of-design word; this one stands behind the seed's last block.
  Write(EHeader::kEndOfDesign);
  const std::int64_t over = buffer_.Size() % kFileBlock;
  if (over != 0) WriteZeros(static_cast<std::uint64_t>(kFileBlock - over));
  file_length_ = buffer_.Size();
  Restart();
}

void File::Close() {
  WriteBack();
  if (buffer_.is_open() && !buffer_.close()) setstate(failbit);
  ForgetElement();
  // Without its flag no header of this file can be written back into another one.
  graphic_.assigned = false;
  displayable_.assigned = false;
  writable_ = false;
  at_end_ = true;
  current_ = -1;
  next_ = 0;
  next_skipping_ = 0;
}

void File::Flush() {
  WriteBack();
  if (writable_ && !fail()) flush();
}

void File::WriteBack() {
  if (!writable_ || at_end_ || fail()) return;
  std::array<char, DEHeader::kBytes> bytes{};
  const std::span all(bytes);
  std::size_t size = 0;
  if (has_displayable_ && displayable_.assigned) {
    displayable_.Encode(all);
    size = DEHeader::kBytes;
  } else if (has_graphic_ && graphic_.assigned) {
    graphic_.Encode(all.first<GEHeader::kBytes>());
    size = GEHeader::kBytes;
  } else if (header_.assigned) {
    header_.Encode(all.first<EHeader::kBytes>());
    size = EHeader::kBytes;
  }
  if (size != 0) PutAt(current_, all.first(size));
}

void File::PutAt(std::int64_t position, std::span<const char> bytes) {
  const auto size = static_cast<std::streamsize>(bytes.size());
  if (!buffer_.Seek(position) || buffer_.sputn(bytes.data(), size) != size) setstate(badbit);
}

// --- moving

void File::Restart() {
  Position(0);
}

void File::Position(long offset) {
  at_end_ = false;
  next_ = offset;
  next_skipping_ = offset;
  Next(false);
}

void File::Next(bool skip_components) {
  if (at_end_) return;
  WriteBack();
  has_graphic_ = false;
  has_displayable_ = false;
  has_attributes_ = false;
  const std::int64_t position = skip_components ? next_skipping_ : next_;
  SeekTo(position);
  if (fail()) {
    ForgetElement();
    return;
  }
  current_ = position;
  ReadHeaders();
}

// Decodes the headers at the current position from one look at the first bytes. An element that the file
// holds whole may be shorter than the headers of its type; it has as many of them as the file reaches.
void File::ReadHeaders() {
  std::array<std::byte, kHeadBytes> scratch{};
  const std::span<const std::byte> view = buffer_.Peek(scratch);
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes are read as chars
  const std::span bytes(reinterpret_cast<const char*>(view.data()), view.size());
  const std::size_t available = bytes.size();

  header_.Decode(bytes);
  if (available >= 2 && header_.IsEndOfDesign()) {
    at_end_ = true;
    next_ = -1;
    next_skipping_ = -1;
    SeekTo(current_ + 2);
    return;
  }
  if (available < EHeader::kBytes) return CutOff();
  const std::size_t size = EHeader::kBytes + EBodySize();
  next_ = current_ + static_cast<std::int64_t>(size);
  next_skipping_ = next_;
  std::size_t last = EHeader::kBytes;
  const EType type = header_.Type();

  // The range is read whatever the type, also where it belongs to the elements that follow.
  if (available < std::min(size, GEHeader::kBytes)) return CutOff();
  if (available >= GEHeader::kBytes) {
    graphic_.EHeader::operator=(header_);
    graphic_.range.Decode(bytes.subspan<EHeader::kBytes>());
    has_graphic_ = true;
    last = GEHeader::kBytes;
  }
  if (TypeClass(type) == Displayable) {
    if (available < std::min(size, DEHeader::kBytes)) return CutOff();
    if (available >= DEHeader::kBytes) {
      displayable_.GEHeader::operator=(graphic_);
      displayable_.DecodeWords(bytes.subspan(GEHeader::kBytes));
      has_displayable_ = true;
      last = DEHeader::kBytes;
    }
  }
  const bool complex = IsComplex(type);
  if (complex) {
    if (available < std::min(size, kHeadBytes)) return CutOff();
    if (available >= kHeadBytes) {
      last = kHeadBytes;
      const unsigned words = LoadWord(bytes.data() + kDescriptionLength);
      if (words != 0) next_skipping_ = current_ + static_cast<std::int64_t>(kHeadBytes) + 2 * words;
    }
  }
  if (has_displayable_ && displayable_.HasAttributes()) {
    attribute_position_ = current_ + 32 + 2 * displayable_.attribute_index;
    ReadAttributeHeader();
    if (!complex) return;
  }
  SeekTo(current_ + static_cast<std::int64_t>(last));
}

// The file ends inside the headers of the current element: there is nothing to be written back.
void File::CutOff() {
  ForgetElement();
  setstate(eofbit | failbit);
}

void File::ForgetElement() noexcept {
  has_graphic_ = false;
  has_displayable_ = false;
  has_attributes_ = false;
  header_.assigned = false;
}

void File::SeekTo(std::int64_t position) {
  if (eof()) clear(rdstate() & ~eofbit);
  if (!fail() && !buffer_.Seek(position)) setstate(failbit);
}

void File::SeekFrom(std::int64_t base, long offset) {
  const bool fits = offset <= std::numeric_limits<std::int64_t>::max() - base;
  SeekTo(fits ? base + offset : -1);
}

void File::SeekBody(std::size_t body, long offset) {
  if (at_end_) {
    Handle(EndOfFileErr());
    return;
  }
  SeekFrom(current_ + static_cast<std::int64_t>(body), offset);
}

void File::SeekDisplayableBody(long offset) {
  if (!at_end_ && TypeClass(header_.Type()) != Displayable) {
    Handle(NotDisplayableErr());
    return;
  }
  SeekBody(DEHeader::kBytes, offset);
}

bool File::CheckAttributes() const {
  if (at_end_) {
    Handle(EndOfFileErr());
    return false;
  }
  if (!has_attributes_) {
    Handle(NoAttributesErr());
    return false;
  }
  return true;
}

void File::EBodyRPosition(long offset) {
  SeekBody(EHeader::kBytes, offset);
}

void File::EBodyWPosition(long offset) {
  SeekBody(EHeader::kBytes, offset);
}

void File::GEBodyRPosition(long offset) {
  SeekBody(GEHeader::kBytes, offset);
}

void File::GEBodyWPosition(long offset) {
  SeekBody(GEHeader::kBytes, offset);
}

void File::DEBodyRPosition(long offset) {
  SeekDisplayableBody(offset);
}

void File::DEBodyWPosition(long offset) {
  SeekDisplayableBody(offset);
}

// --- attributes

void File::AttrRPosition(long offset) {
  if (!CheckAttributes()) return;
  const std::int64_t begin = current_ + 32 + 2 * displayable_.attribute_index;
  SeekFrom(begin, offset);
  if (!fail()) attribute_position_ = begin + offset;
}

void File::ABodyRPosition(long offset) {
  if (!CheckAttributes()) return;
  SeekFrom(attribute_position_ + static_cast<std::int64_t>(AHeader::kBytes), offset);
}

bool File::NextAttribute() {
  if (!CheckAttributes()) return false;
  attribute_position_ += static_cast<std::int64_t>(AHeader::kBytes) + 2 * attribute_.Length();
  ReadAttributeHeader();
  return has_attributes_;
}

// Reads the header at the attribute position, when that lies inside the element.
void File::ReadAttributeHeader() {
  has_attributes_ = attribute_position_ < current_ + 4 + 2 * displayable_.words_to_follow;
  if (!has_attributes_) return;
  SeekTo(attribute_position_);
  attribute_.read(*this);
  has_attributes_ = good();
}

// --- headers and sizes

DEHeader& File::GetDEHeader() {
  if (!has_displayable_) Handle(NotDisplayableErr());
  return displayable_;
}

AHeader& File::GetAHeader() {
  if (!has_attributes_) Handle(NoAttributesErr());
  return attribute_;
}

unsigned File::GEBodySize() const noexcept {
  return Behind(2U * graphic_.words_to_follow, GEHeader::kBytes - EHeader::kBytes);
}

unsigned File::DEBodySize(bool with_attributes) const {
  if (!has_displayable_) {
    Handle(NotDisplayableErr());
    return 0;
  }
  return with_attributes ? Behind(2U * displayable_.words_to_follow, DEHeader::kBytes - EHeader::kBytes)
                         : Behind(2U * displayable_.attribute_index, DEHeader::kBytes - 32);
}

unsigned File::ABodySize() const {
  if (!has_attributes_) {
    Handle(NoAttributesErr());
    return 0;
  }
  return 2U * attribute_.Length();
}

}  // namespace Pelor::DGN
