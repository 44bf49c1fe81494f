#include <pelor/base/error.h>
#include <pelor/dgn/elements.h>
#include <pelor/dgn/encoding.h>
#include <pelor/dgn/errors.h>
#include <pelor/dgn/field_io.h>
#include <pelor/dgn/file.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <ios>
#include <span>
#include <tuple>

namespace Pelor::DGN {

namespace {

/// Bytes of an element between its header's two words and the displayable body.
constexpr std::int64_t kBeforeBody = 32;
constexpr std::size_t kPointBytes = 8;
constexpr std::size_t kChunkPoints = 128;
constexpr std::size_t kFieldBytes = std::tuple_size_v<Text2D::Field>;
constexpr std::int64_t kPointsOffset = 2;  // in the displayable body of a line string
constexpr std::int64_t kTextOffset = 24;   // in the displayable body of a text

bool HasType(const File& file, std::initializer_list<EType> accepted) {
  return std::find(accepted.begin(), accepted.end(), file.GetEHeader().Type()) != accepted.end();
}

bool RequireType(const File& file, std::initializer_list<EType> accepted) {
  if (HasType(file, accepted)) return true;
  Tobri::Error::Handle(BadTypeErr());
  return false;
}

bool RequireLineString(const File& file) {
  return RequireType(file, {LineStringType, ShapeType, CurveType, ConicType});
}

/// How many of `count` items of `item_bytes` the element has room for from `body_offset` of its displayable
/// body on.
unsigned Believed(const File& file, unsigned count, std::int64_t body_offset, std::int64_t item_bytes) {
  const std::int64_t room = std::int64_t{file.EBodySize()} - kBeforeBody - body_offset;
  return static_cast<unsigned>(std::clamp<std::int64_t>(room / item_bytes, 0, count));
}

}  // namespace

void Line2D::Read(File& file) {
  constexpr unsigned kRefusedBytes = 16;
  const unsigned body_bytes = file.AtEnd() ? 0 : file.EBodySize();
  if (body_bytes == kRefusedBytes && !RequireType(file, {LineType})) return;
  file.DEBodyRPosition(0);
  ReadFields(file, start, end);
}

void Line2D::Write(File& file) const {
  if (!RequireType(file, {LineType})) return;
  file.DEBodyWPosition(0);
  WriteFields(file, start, end);
}

void Line3D::Read(File& file) {
  if (!RequireType(file, {LineType})) return;
  file.DEBodyRPosition(0);
  ReadFields(file, start, end);
}

void Line3D::Write(File& file) const {
  if (!RequireType(file, {LineType})) return;
  file.DEBodyWPosition(0);
  WriteFields(file, start, end);
}

void LineString2D::Read(File& file) {
  if (!RequireLineString(file)) return;
  file.DEBodyRPosition(0);
  points.clear();
  count = 0;
  std::uint16_t claimed = 0;
  ReadFields(file, claimed);
  const unsigned believed = Believed(file, claimed, kPointsOffset, kPointBytes);
  // Piece by piece, so that storage grows with the bytes that are there, not with what the element claims.
  std::array<std::int32_t, 2 * kChunkPoints> longs;  // NOLINT(cppcoreguidelines-pro-type-member-init)
  while (points.size() < believed) {
    const std::size_t wanted = std::min<std::size_t>(believed - points.size(), kChunkPoints);
    const std::size_t got = file.ReadLongs(std::span(longs).first(2 * wanted)) / 2;
    const std::size_t first = points.size();
    points.resize(first + got);
    for (std::size_t i = 0; i < got; ++i) points[first + i] = {longs[2 * i], longs[2 * i + 1]};
    if (got < wanted) break;
  }
  count = static_cast<std::uint16_t>(points.size());
  if (believed < claimed) file.setstate(std::ios_base::failbit);
}

void LineString2D::Write(File& file) const {
  if (!RequireLineString(file)) return;
  file.DEBodyWPosition(0);
  WriteFields(file, count);
  std::array<char, kChunkPoints * kPointBytes> bytes;  // NOLINT(cppcoreguidelines-pro-type-member-init)
  for (std::size_t done = 0; done < count;) {
    const std::size_t chunk = std::min<std::size_t>(count - done, kChunkPoints);
    for (std::size_t i = 0; i < chunk; ++i, ++done) {
      const point2d point = done < points.size() ? points[done] : point2d();
      StoreLong(&bytes[i * kPointBytes], point.x);
      StoreLong(&bytes[i * kPointBytes + 4], point.y);
    }
    file.write(bytes.data(), static_cast<std::streamsize>(chunk * kPointBytes));
  }
}

void Ellipse2D::Read(File& file) {
  if (!RequireType(file, {EllipseType})) return;
  file.DEBodyRPosition(0);
  ReadFields(file, primary_axis, secondary_axis, rotation, origin);
}

void Ellipse2D::Write(File& file) const {
  if (!RequireType(file, {EllipseType})) return;
  file.DEBodyWPosition(0);
  WriteFields(file, primary_axis, secondary_axis, rotation, origin);
}

void Ellipse3D::Read(File& file) {
  if (!RequireType(file, {EllipseType})) return;
  file.DEBodyRPosition(0);
  ReadFields(file, primary_axis, secondary_axis, rotation, origin);
}

void Ellipse3D::Write(File& file) const {
  if (!RequireType(file, {EllipseType})) return;
  file.DEBodyWPosition(0);
  WriteFields(file, primary_axis, secondary_axis, rotation, origin);
}

void Arc2D::Read(File& file) {
  if (!RequireType(file, {ArcType})) return;
  file.DEBodyRPosition(0);
  ReadFields(file, start_angle, sweep_angle, primary_axis, secondary_axis, rotation, origin);
}

void Arc2D::Write(File& file) const {
  if (!RequireType(file, {ArcType})) return;
  file.DEBodyWPosition(0);
  WriteFields(file, start_angle, sweep_angle, primary_axis, secondary_axis, rotation, origin);
}

void Text2D::Read(File& file) {
  // Before the type check: intended.
  fields.clear();
  field_count = 0;
  if (!RequireType(file, {TextType})) return;
  file.DEBodyRPosition(0);
  char_count = 0;
  ReadFields(file, font, justification, length_multiplier, height_multiplier, rotation, origin, char_count,
             field_count);
  const unsigned characters = Believed(file, char_count, kTextOffset, 1);
  const unsigned believed = Believed(file, field_count, kTextOffset + characters, kFieldBytes);
  const bool cut = characters < char_count || believed < field_count;
  text = file.ReadString(characters);
  char_count = static_cast<std::uint8_t>(text.Length());
  for (Field field; fields.size() < believed; fields.push_back(field)) {
    ReadFields(file, field[0], field[1], field[2]);
    if (file.fail()) break;
  }
  field_count = static_cast<std::uint8_t>(fields.size());
  if (cut) file.setstate(std::ios_base::failbit);
}

void Text2D::Write(File& file) const {
  if (!RequireType(file, {TextType})) return;
  file.DEBodyWPosition(0);
  WriteFields(file, font, justification, length_multiplier, height_multiplier, rotation, origin, char_count,
              field_count);
  file.WriteString(text, char_count);
  for (std::size_t i = 0; i < field_count; ++i) {
    const Field field = i < fields.size() ? fields[i] : Field();
    WriteFields(file, field[0], field[1], field[2]);
  }
  if (field_count % 2 != 0) file.Write(std::uint8_t{0});
}

void ComplexStrH::Read(File& file) {
  if (!RequireType(file, {ComplexStringType, ComplexShapeType})) return;
  file.DEBodyRPosition(0);
  ReadFields(file, words, components);
}

void ComplexStrH::Write(File& file) const {
  if (!RequireType(file, {ComplexStringType, ComplexShapeType})) return;
  file.DEBodyWPosition(0);
  WriteFields(file, words, components);
}

}  // namespace Pelor::DGN
