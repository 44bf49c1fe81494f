#include <pelor/dgn/encoding.h>
#include <pelor/dgn/file.h>

#include <array>
#include <limits>

namespace Pelor::DGN {

// Makes a new current element of the end-of-design word.
bool File::Append(const EHeader& header, std::uint64_t body_bytes) {
  const std::uint64_t words = (body_bytes + 1) / 2;
  WriteBack();
  // Having looked past the end of the file is no failure, here as for a seek.
  if (eof()) clear(rdstate() & ~eofbit);
  while (*this) Next(false);
  if (!good()) return false;
  if (!writable_ || words > std::numeric_limits<std::uint16_t>::max()) {
    setstate(writable_ ? failbit : badbit);
    return false;
  }

  const std::int64_t next = current_ + static_cast<std::int64_t>(EHeader::kBytes + 2 * words);
  std::array<char, 2> end_of_design{};
  StoreWord(end_of_design.data(), EHeader::kEndOfDesign);
  PutAt(next, end_of_design);
  // The file's last word: at the end of the block that this position lies in, or of a further one when it
  // begins a block.
  const std::int64_t beyond = next + 6;
  PutAt(beyond + (kFileBlock - beyond % kFileBlock) - 2, end_of_design);
  if (!good()) return false;

  has_graphic_ = false;
  has_displayable_ = false;
  header_ = header;
  header_.words_to_follow = static_cast<std::uint16_t>(words);
  next_ = next;
  next_skipping_ = next;
  at_end_ = false;
  return true;
}

// The appending functions copy the header: it may be the one that the walk to the end overwrites.

void File::EAppend(const EHeader& header, unsigned body_bytes) {
  Append(EHeader(header), body_bytes);
}

void File::GEAppend(const GEHeader& header, unsigned body_bytes) {
  const GEHeader copy(header);  // NOLINT(performance-unnecessary-copy-initialization)
  if (!Append(copy, body_bytes)) return;
  has_graphic_ = true;
  graphic_ = copy;
}

void File::DEAppend(const DEHeader& header, unsigned body_bytes) {
  // What (next - (next + 36) - 4 + 1) / 2 gives in unsigned arithmetic, whatever the next position is.
  constexpr std::uint16_t kAppendedAttributeIndex = 65516;
  const DEHeader copy(header);  // NOLINT(performance-unnecessary-copy-initialization)
  if (!Append(copy, body_bytes)) return;
  has_graphic_ = true;
  graphic_ = static_cast<const GEHeader&>(copy);
  has_displayable_ = true;
  displayable_ = copy;
  displayable_.attribute_index = kAppendedAttributeIndex;
}

void File::EAppend(const EHeader& header) {
  EAppend(header, 2U * header.words_to_follow);
}

void File::GEAppend(const GEHeader& header) {
  EAppend(header, 2U * header.words_to_follow - 24U);
}

void File::DEAppend(const DEHeader& header) {
  EAppend(header, 2U * header.words_to_follow - 32U);
}

}  // namespace Pelor::DGN
