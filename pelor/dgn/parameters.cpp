#include <pelor/base/error.h>
#include <pelor/dgn/encoding.h>
#include <pelor/dgn/errors.h>
#include <pelor/dgn/field_io.h>
#include <pelor/dgn/file.h>
#include <pelor/dgn/parameters.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <ios>
#include <span>
#include <string_view>

namespace Pelor::DGN {

namespace {

// Offsets in the element's body, which begins at byte 4 of the element.
constexpr std::size_t kHeaderDoubleOffset = 26;
constexpr std::size_t kUnitsOffset = 1104;
constexpr std::size_t kHeaderWordOffset = 1210;
constexpr std::size_t kHeaderLongsOffset = 1212;
constexpr unsigned kNameBytes = 2;
constexpr std::size_t kHeaderDoubleBytes = 8;
constexpr std::size_t kUnitsBytes = 3 * 4 + 2 * kNameBytes;
constexpr std::size_t kHeaderLongsBytes = 6 * 4 + 3 * 8;  // the origin included

/// Takes values from the begin of an element's body, which may be cut off anywhere.
class BodyReader {
 public:
  explicit BodyReader(std::span<const char> body) : body_(body) {}

  void MoveTo(std::size_t offset) { position_ = offset; }

  void Take(std::uint16_t& value) {
    if (const char* const bytes = Bytes(2)) value = LoadWord(bytes);
  }
  void Take(std::int32_t& value) {
    if (const char* const bytes = Bytes(4)) value = LoadLong(bytes);
  }
  void Take(double& value) {
    if (const char* const bytes = Bytes(8)) value = LoadDFloat(bytes);
  }
  void Take(Tobri::String& name) {
    if (const char* const bytes = Bytes(kNameBytes)) name = tointernal(std::string_view(bytes, kNameBytes));
  }

  /// Whether every value was there.
  [[nodiscard]] bool IsWhole() const { return whole_; }

 private:
  const char* Bytes(std::size_t count) {
    const std::size_t begin = position_;
    position_ += count;
    if (position_ <= body_.size()) return body_.data() + begin;
    whole_ = false;
    return nullptr;
  }

  std::span<const char> body_;
  std::size_t position_ = 0;
  bool whole_ = true;
};

/// Whether the element has room for so many bytes at an offset of its body. Without it the stream fails, so
/// that nothing is written over the next element.
bool HasRoom(File& file, std::size_t offset, std::size_t bytes) {
  if (offset + bytes <= file.EBodySize()) return true;
  file.setstate(std::ios_base::failbit);
  return false;
}

bool RequireDesignHeader(const File& file) {
  if (file.GetEHeader().Type() == DesignHeaderType) return true;
  Tobri::Error::Handle(BadTypeErr());
  return false;
}

}  // namespace

void Parameters::Read(File& file) {
  valid = false;
  if (!RequireDesignHeader(file)) return;
  *this = Parameters();
  valid = true;

  file.EBodyRPosition(0);
  file.read(body.data(), std::min(file.EBodySize(), kBodyBytes));

  BodyReader reader({body.data(), static_cast<std::size_t>(file.gcount())});
  reader.MoveTo(kHeaderDoubleOffset);
  reader.Take(header_double);
  reader.MoveTo(kUnitsOffset);
  reader.Take(first_unit);
  reader.Take(subunits_per_master);
  reader.Take(uors_per_subunit);
  reader.Take(master_name);
  reader.Take(subunit_name);
  reader.MoveTo(kHeaderWordOffset);
  reader.Take(header_word);
  for (std::int32_t& value : header_longs) reader.Take(value);
  reader.Take(origin1);
  reader.Take(origin2);
  reader.Take(origin3);
  if (!reader.IsWhole()) file.setstate(std::ios_base::failbit);

  // Unsigned, so that a product beyond 32 bits is defined.
  uors_per_master = static_cast<std::int32_t>(static_cast<std::uint32_t>(subunits_per_master) *
                                              static_cast<std::uint32_t>(uors_per_subunit));
  scale = uors_per_master != 0 ? 1.0 / uors_per_master : 1.0;
}

void Parameters::Write(File& file) const {
  if (!RequireDesignHeader(file)) return;

  if (!body.empty()) {
    file.EBodyWPosition(0);
    file.write(body.data(),
               static_cast<std::streamsize>(std::min<std::size_t>(file.EBodySize(), body.size())));
  }

  if (!HasRoom(file, kHeaderDoubleOffset, kHeaderDoubleBytes)) return;
  file.EBodyWPosition(kHeaderDoubleOffset);
  WriteFields(file, header_double);

  if (!HasRoom(file, kUnitsOffset, kUnitsBytes)) return;
  file.EBodyWPosition(kUnitsOffset);
  WriteFields(file, first_unit, subunits_per_master, uors_per_subunit);
  file.WriteString(master_name, kNameBytes);
  file.WriteString(subunit_name, kNameBytes);

  // The header word in front of the longs is left out: intended.
  if (!HasRoom(file, kHeaderLongsOffset, kHeaderLongsBytes)) return;
  file.EBodyWPosition(kHeaderLongsOffset);
  for (const std::int32_t value : header_longs) WriteFields(file, value);
  WriteFields(file, origin1, origin2, origin3);
}

void Parameters::Search(File& file) {
  valid = false;
  for (file.Restart(); file; file.Next(true)) {
    if (file.GetEHeader().Type() != DesignHeaderType) continue;
    Read(file);
    return;
  }
}

}  // namespace Pelor::DGN
