// The clauses of the objects that are made of parts: polylines and regions.

#include <pelor/mi/pline_body.h>
#include <pelor/mi/region_body.h>
#include <pelor/mif/clause_io.h>
#include <pelor/mif/clause_text.h>
#include <pelor/mif/object_clauses.h>

namespace Pelor::MI {

namespace Clause = MIF::Clause;
using MIF::ClauseText;

namespace {

// The number of parts that have at least `least` vertices; only those are written.
std::size_t CountParts(const WPLineBody& outline, std::size_t least) {
  std::size_t count = 0;
  for (int part = 0; part < outline.GetNParts(); ++part) count += outline.Vertices(part).size() >= least;
  return count;
}

void PutCount(ClauseText& text, std::size_t count) {
  text.Put(' ');
  text.PutInteger(static_cast<long>(count));
}

void PutParts(ClauseText& text, const WPLineBody& outline, std::size_t least) {
  for (int part = 0; part < outline.GetNParts(); ++part) {
    const auto vertices = outline.Vertices(part);
    if (vertices.size() < least) continue;
    PutCount(text, vertices.size());
    text.EndLine();
    text.PutVertices(vertices);
  }
}

bool ReadCount(int& count, Tobri::IxText& in) {
  return Clause::ReadNumber(count, in, true) && count >= 0;
}

// Reads the vertex count and the vertices of one part. A count is believed only vertex by vertex.
template <class Body>
bool ReadPart(Body& body, Tobri::IxText& in) {
  int count = 0;
  if (!ReadCount(count, in)) return false;
  for (; count > 0; --count) {
    Vanth::PointXY vertex;
    if (!Clause::ReadNumber(vertex.x, in, true) || !Clause::ReadNumber(vertex.y, in, true)) return false;
    body.AddVertex(vertex);
  }
  return true;
}

}  // namespace

void WPLineBody::WriteMIF(std::ostream& out) const {
  const std::size_t parts = CountParts(*this, 2);
  if (parts == 0) {
    WNoBody(GetWSys()).WriteMIF(out);
    return;
  }
  ClauseText text(out);
  text.Put(MIF::PLine);
  if (parts > 1) {
    text.Put(' ');
    text.Put(MIF::Multiple);
    PutCount(text, parts);
    text.EndLine();
  }
  PutParts(text, *this, 2);
  text.Put(' ');
  Put(text, GetPen());
  text.EndLine();
  if (is_smooth_) {
    text.Put(' ');
    text.Put(MIF::Smooth);
    text.EndLine();
  }
  text.Give();
}

void WPLineBody::ReadMIF(Tobri::IxText& in) {
  Empty();
  MIF::ReadSpecifier(in, MIF::PLine);
  int parts = 1;
  bool whole = !MIF::ReadSpecifier(in, MIF::Multiple) || ReadCount(parts, in);
  for (int part = 0; whole && part < parts; ++part) {
    if (part > 0) AddPart();
    whole = ReadPart(*this, in);
  }
  if (!whole) {
    Clause::Fail("Invalid PolyLine", in);
    return;
  }
  MIF::ReadOptionalClauses(*this, in);
}

void WRegionBody::WriteMIF(std::ostream& out) const {
  const WPLineObj outline = GetOutline();
  const std::size_t parts = CountParts(*outline, 3);
  if (parts == 0) {
    WNoBody(GetWSys()).WriteMIF(out);
    return;
  }
  ClauseText text(out);
  text.Put(MIF::Region);
  PutCount(text, parts);
  text.EndLine();
  PutParts(text, *outline, 3);
  text.Put(' ');
  Put(text, GetPen());
  text.EndLine();
  text.Put(' ');
  Put(text, GetBrush());
  text.EndLine();
  text.Put(' ');
  text.Put(MIF::Center);
  const Vanth::PointXY center = GetCentroid();
  text.PutNumbers({center.x, center.y});
  text.EndLine();
  text.Give();
}

void WRegionBody::ReadMIF(Tobri::IxText& in) {
  Empty();
  SetPen(Pen());
  MIF::ReadSpecifier(in, MIF::Region);
  int parts = 0;
  bool whole = ReadCount(parts, in);
  for (int part = 0; whole && part < parts; ++part) {
    AddPart();
    whole = ReadPart(*this, in);
  }
  if (!whole) {
    Clause::Fail("Invalid Region", in);
    return;
  }
  MIF::ReadOptionalClauses(*this, in);
}

}  // namespace Pelor::MI
