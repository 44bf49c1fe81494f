// The clauses of the objects that a few numbers describe: all but polylines, regions and texts.

#include <pelor/mi/objects.h>
#include <pelor/mif/clause_io.h>
#include <pelor/mif/clause_text.h>
#include <pelor/mif/object_clauses.h>

namespace Pelor::MI {

namespace Clause = MIF::Clause;
using MIF::ClauseText;
using Vanth::RectXY;

namespace {

void PutRect(ClauseText& text, MIF::KeyWord keyword, const RectXY& rect) {
  text.Put(keyword);
  text.PutNumbers({rect.x1, rect.y1, rect.x2, rect.y2});
  text.EndLine();
}

// Pen and brush of these kinds share a line; those of a region do not.
void PutAreaStyle(ClauseText& text, const W2DBody& body) {
  text.Put(' ');
  Put(text, body.GetPen());
  text.Put(' ');
  Put(text, body.GetBrush());
  text.EndLine();
}

void PutPen(ClauseText& text, const Pen& pen) {
  text.Put(' ');
  Put(text, pen);
  text.EndLine();
}

}  // namespace

void WNoBody::WriteMIF(std::ostream& out) const {
  ClauseText text(out);
  text.Put(MIF::None);
  text.EndLine();
  text.Give();
}

void WNoBody::ReadMIF(Tobri::IxText& in) {
  MIF::ReadSpecifier(in, MIF::None);
}

void WPointBody::WriteMIF(std::ostream& out) const {
  ClauseText text(out);
  text.Put(MIF::Point);
  text.PutNumbers({point_.x, point_.y});
  text.EndLine();
  text.Put(' ');
  Put(text, GetSymbol());
  text.EndLine();
  text.Give();
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
  ClauseText text(out);
  text.Put(MIF::Line);
  text.PutNumbers({start_.x, start_.y, end_.x, end_.y});
  text.EndLine();
  PutPen(text, GetPen());
  text.Give();
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
  ClauseText text(out);
  PutRect(text, MIF::Rect, rect_);
  PutAreaStyle(text, *this);
  text.Give();
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
  ClauseText text(out);
  PutRect(text, MIF::RoundRect, rect_);
  text.PutNumbers({rounding_});
  text.EndLine();
  PutAreaStyle(text, *this);
  text.Give();
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
  ClauseText text(out);
  PutRect(text, MIF::Ellipse, rect_);
  PutAreaStyle(text, *this);
  text.Give();
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
  ClauseText text(out);
  PutRect(text, MIF::Arc, rect_);
  text.PutNumbers({start_(Vanth::Angle::Degrees, Vanth::Angle::Positive),
                   end_(Vanth::Angle::Degrees, Vanth::Angle::Positive)});
  text.EndLine();
  PutPen(text, GetPen());
  text.Give();
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
