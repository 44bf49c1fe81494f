#include <pelor/mi/pline_body.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Pelor::MI {

using Tobri::DArrayR;
using Vanth::PointXY;

WPLineBody::WPLineBody(const WPLineBody& other)
    : W1DBody(other),
      is_smooth_(other.is_smooth_),
      vertices_(other.vertices_),
      part_starts_(other.part_starts_) {
  vertices_.Copy();
  part_starts_.Copy();
}

WPLineBody& WPLineBody::operator=(const WPLineBody& other) {
  W1DBody::operator=(other);
  is_smooth_ = other.is_smooth_;
  vertices_ = other.vertices_;
  part_starts_ = other.part_starts_;
  vertices_.Copy();
  part_starts_.Copy();
  return *this;
}

Vanth::BoundsXY WPLineBody::GetBounds() const {
  return Vanth::BoundsXY(Tobri::DArrayRC<PointXY>(vertices_));
}

PointXY WPLineBody::GetCentroid() const {
  PointXY sum;
  for (const PointXY& vertex : Vertices()) {
    sum.x += vertex.x;
    sum.y += vertex.y;
  }
  const auto count = static_cast<double>(Vertices().size());
  return {sum.x / count, sum.y / count};
}

double WPLineBody::GetLength() const {
  double length = 0.0;
  const int parts = GetNParts();
  for (int part = 0; part < parts; ++part) {
    const std::span<const PointXY> vertices = Vertices(part);
    for (std::size_t i = 1; i < vertices.size(); ++i) {
      length += std::hypot(vertices[i].x - vertices[i - 1].x, vertices[i].y - vertices[i - 1].y);
    }
  }
  return length;
}

Vanth::Angle WPLineBody::GetAlignment() const {
  const int parts = GetNParts();
  for (int part = 0; part < parts; ++part) {
    const std::span<const PointXY> vertices = Vertices(part);
    if (vertices.size() <= 2) continue;
    const PointXY& from = vertices[vertices.size() / 2 - 1];
    const PointXY& to = vertices[vertices.size() / 2];
    return Vanth::Angle(std::atan2(to.y - from.y, to.x - from.x));
  }
  return Vanth::Angle();
}

void WPLineBody::Apply(const Transform& transform) {
  for (PointXY& vertex : DArrayR<PointXY>(vertices_).Span()) transform.Apply(vertex);
}

void WPLineBody::Empty() {
  DArrayR<PointXY>(vertices_).Empty();
  DArrayR<int>(part_starts_).Empty();
  AddPart();
}

void WPLineBody::AddPart() {
  const int count = static_cast<int>(Vertices().size());
  if (GetNParts() == 0) {
    DArrayR<int>(part_starts_).Add(0);
    if (count > 0) DArrayR<PointXY>(vertices_).Empty();
  } else if (count - PartStarts().back() > 1) {
    DArrayR<int>(part_starts_).Add(count);
  }
}

void WPLineBody::InsertVertex(const PointXY& point, int pos, int part) {
  if (part < 0 || part >= GetNParts()) return;
  pos = std::clamp(pos, 0, GetNVertices(part));
  const std::span<int> starts = DArrayR<int>(part_starts_).Span();
  const auto at = static_cast<std::size_t>(part);
  DArrayR<PointXY>(vertices_).Insert(static_cast<unsigned>(starts[at] + pos), point);
  for (int& start : starts.subspan(at + 1)) ++start;
}

bool WPLineBody::NeedsClosing(int part) const noexcept {
  const std::span<const PointXY> vertices = Vertices(part);
  return vertices.size() > 1 && vertices.front() != vertices.back();
}

bool WPLineBody::NeedsClosing() const noexcept {
  const int parts = GetNParts();
  int part = 0;
  while (part < parts && !NeedsClosing(part)) ++part;
  return part < parts;
}

void WPLineBody::CloseParts() {
  const int parts = GetNParts();
  std::size_t missing = 0;
  for (int part = 0; part < parts; ++part) missing += NeedsClosing(part) ? 1U : 0U;
  if (missing == 0) return;

  std::size_t end = Vertices().size();
  DArrayR<PointXY> array(vertices_);
  array.Resize(static_cast<unsigned>(end + missing));
  if (array.Length() != end + missing) return;
  // From the back, every part moves up by what is still missing in front of its end.
  const std::span<PointXY> vertices = array.Span();
  const std::span<int> starts = DArrayR<int>(part_starts_).Span();
  for (auto start = starts.rbegin();; ++start) {
    const auto begin = static_cast<std::size_t>(*start);
    if (end - begin > 1 && vertices[begin] != vertices[end - 1]) {
      vertices[end + missing - 1] = vertices[begin];
      if (--missing == 0) break;  // everything before the new end stays in its place
    }
    const auto first = vertices.begin();
    std::copy_backward(first + static_cast<std::ptrdiff_t>(begin), first + static_cast<std::ptrdiff_t>(end),
                       first + static_cast<std::ptrdiff_t>(end + missing));
    *start += static_cast<int>(missing);
    end = begin;
  }
}

PointXY WPLineBody::GetVertex(int vertex, int part) const noexcept {
  if (part < 0 || part >= GetNParts()) return {};
  return Vertices(part).data()[vertex];
}

bool WPLineBody::GetFirstVertex(PointXY& point) const noexcept {
  if (Vertices().empty()) return false;
  point = Vertices().front();
  return true;
}

bool WPLineBody::GetLastVertex(PointXY& point) const noexcept {
  if (Vertices().empty()) return false;
  point = Vertices().back();
  return true;
}

std::span<const PointXY> WPLineBody::Vertices(int part) const noexcept {
  const std::span<const int> starts = PartStarts();
  if (part < 0 || part >= static_cast<int>(starts.size())) return {};
  const auto at = static_cast<std::size_t>(part);
  const auto begin = static_cast<std::size_t>(starts[at]);
  const std::size_t end =
      at + 1 < starts.size() ? static_cast<std::size_t>(starts[at + 1]) : Vertices().size();
  return Vertices().subspan(begin, end - begin);
}

}  // namespace Pelor::MI
