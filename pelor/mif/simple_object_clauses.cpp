// The clauses of the objects that a few numbers describe: all but polylines, regions and texts.

#include <pelor/mi/objects.h>
#include <pelor/mif/clause_io.h>
#include <pelor/mif/object_clauses.h>
#include <pelor/mif/style_clauses.h>

namespace Pelor::MI {

namespace Clause = MIF::Clause;
using Vanth::RectXY;

namespace {

void PutRect(std::ostream& out, MIF::KeyWord keyword, const RectXY& rect) {
  out << MIF::KeyWordText(keyword);
  Clause::PutNumbers(out, {rect.x1, rect.y1, rect.x2, rect.y2});
  Clause::EndLine(out);
}

// Pen and brush of these kinds share a line; those of a region do not.
void PutAreaStyle(std::ostream& out, const W2DBody& body) {
  Clause::PutStyle(out, body.GetPen());
  Clause::PutStyle(out, body.GetBrush());
  Clause::EndLine(out);
}

void PutPen(std::ostream& out, const Pen& pen) {
  Clause::PutStyle(out, pen);
  Clause::EndLine(out);
}

}  // namespace

void WNoBody::WriteMIF(std::ostream& out) const {
  out << MIF::KeyWordText(MIF::None);
  Clause::EndLine(out);
}

void WNoBody::ReadMIF(Tobri::IxText& in) {
  MIF::ReadSpecifier(in, MIF::None);
}

void WPointBody::WriteMIF(std::ostream& out) const {
  out << MIF::KeyWordText(MIF::Point);
  Clause::PutNumbers(out, {point_.x, point_.y});
  Clause::EndLine(out);
  Clause::PutStyle(out, GetSymbol());
  Clause::EndLine(out);
}

void WPointBody::ReadMIF(Tobri::IxText& in) {
  MIF::ReadSpecifier(in, MIF::Point);
  SetSymbol(Symbol());
  if (!Clause::ReadNumbers({&point_.x, &point_.y}, in)) {
    Clause::Fail("Invalid Point", in);
    return;
  }
  MIF::ReadOptionalClauses(*this, in);
}

void WLineBody::WriteMIF(std::ostream& out) const {
  out << MIF::KeyWordText(MIF::Line);
  Clause::PutNumbers(out, {start_.x, start_.y, end_.x, end_.y});
  Clause::EndLine(out);
  PutPen(out, GetPen());
}

void WLineBody::ReadMIF(Tobri::IxText& in) {
  MIF::ReadSpecifier(in, MIF::Line);
  // Intended: a line that says nothing of its pen is invisible, unlike a new one.
  SetPen(Pen{0, 1, 0});
  if (!Clause::ReadNumbers({&start_.x, &start_.y, &end_.x, &end_.y}, in)) {
    Clause::Fail("Invalid Line", in);
    return;
  }
  MIF::ReadOptionalClauses(*this, in);
}

void WRectBody::WriteMIF(std::ostream& out) const {
  PutRect(out, MIF::Rect, rect_);
  PutAreaStyle(out, *this);
}

void WRectBody::ReadMIF(Tobri::IxText& in) {
  MIF::ReadSpecifier(in, MIF::Rect);
  if (!Clause::ReadNumbers({&rect_.x1, &rect_.y1, &rect_.x2, &rect_.y2}, in)) {
    Clause::Fail("Invalid Rectangle", in);
    return;
  }
  MIF::ReadOptionalClauses(*this, in);
}

void WRRectBody::WriteMIF(std::ostream& out) const {
  PutRect(out, MIF::RoundRect, rect_);
  Clause::PutNumbers(out, {rounding_});
  Clause::EndLine(out);
  PutAreaStyle(out, *this);
}

void WRRectBody::ReadMIF(Tobri::IxText& in) {
  MIF::ReadSpecifier(in, MIF::RoundRect);
  if (!Clause::ReadNumbers({&rect_.x1, &rect_.y1, &rect_.x2, &rect_.y2, &rounding_}, in)) {
    Clause::Fail("Invalid Rounded Rectangle", in);
    return;
  }
  MIF::ReadOptionalClauses(*this, in);
}

void WEllipseBody::WriteMIF(std::ostream& out) const {
  PutRect(out, MIF::Ellipse, rect_);
  PutAreaStyle(out, *this);
}

void WEllipseBody::ReadMIF(Tobri::IxText& in) {
  MIF::ReadSpecifier(in, MIF::Ellipse);
  if (!Clause::ReadNumbers({&rect_.x1, &rect_.y1, &rect_.x2, &rect_.y2}, in)) {
    Clause::Fail("Invalid Ellipse", in);
    return;
  }
  MIF::ReadOptionalClauses(*this, in);
}

void WArcBody::WriteMIF(std::ostream& out) const {
  PutRect(out, MIF::Arc, rect_);
  Clause::PutNumbers(out, {start_(Vanth::Angle::Degrees, Vanth::Angle::Positive),
                           end_(Vanth::Angle::Degrees, Vanth::Angle::Positive)});
  Clause::EndLine(out);
  PutPen(out, GetPen());
}

void WArcBody::ReadMIF(Tobri::IxText& in) {
  MIF::ReadSpecifier(in, MIF::Arc);
  double start = start_(Vanth::Angle::Degrees, Vanth::Angle::AsStored);
  double end = end_(Vanth::Angle::Degrees, Vanth::Angle::AsStored);
  const bool whole = Clause::ReadNumbers({&rect_.x1, &rect_.y1, &rect_.x2, &rect_.y2, &start, &end}, in);
  start_ = Vanth::Angle(start, Vanth::Angle::Degrees);
  end_ = Vanth::Angle(end, Vanth::Angle::Degrees);
  if (!whole) {
    Clause::Fail("Invalid Arc", in);
    return;
  }
  MIF::ReadOptionalClauses(*this, in);
}

}  // namespace Pelor::MI
