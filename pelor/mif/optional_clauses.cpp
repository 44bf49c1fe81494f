#include <pelor/mi/object_type.h>
#include <pelor/mi/objects.h>
#include <pelor/mif/clause_io.h>
#include <pelor/mif/object_clauses.h>
#include <pelor/mif/style_clauses.h>

#include <utility>

namespace Pelor::MIF {

using Tobri::IxText;

namespace {

bool TrySymbol(MI::W0DBody& body, IxText& in) {
  MI::Symbol symbol = body.GetSymbol();
  if (!Read(symbol, in)) return false;
  body.SetSymbol(std::move(symbol));
  return true;
}

template <class Body>
bool TryPen(Body& body, IxText& in) {
  MI::Pen pen = body.GetPen();
  if (!Read(pen, in)) return false;
  body.SetPen(pen);
  return true;
}

bool TryBrush(MI::W2DBody& body, IxText& in) {
  MI::Brush brush = body.GetBrush();
  if (!Read(brush, in)) return false;
  body.SetBrush(brush);
  return true;
}

bool TryCenter(MI::WRegionBody& body, IxText& in) {
  Vanth::PointXY center;
  if (!Clause::ReadNumbers({&center.x, &center.y}, in)) return Clause::Fail("Invalid Region", in);
  // Closing a ring later would forget the centroid.
  body.Close();
  body.SetCentroid(center);
  return true;
}

bool TryFont(MI::WTextBody& body, IxText& in) {
  MI::Font font = body.GetFont();
  if (!Read(font, in)) return false;
  body.SetFont(std::move(font));
  return true;
}

bool TryAngle(MI::WTextBody& body, IxText& in) {
  double degrees = 0.0;
  if (!Clause::ReadNumber(degrees, in, false)) return Clause::Fail("Invalid Text", in);
  body.SetAngle(Vanth::Angle(degrees, Vanth::Angle::Degrees));
  return true;
}

bool TryJustify(MI::WTextBody& body, IxText& in) {
  ReadKW word;
  word.Read(in);
  if (word.id != Left && word.id != Center && word.id != Right) return Clause::Fail("Invalid Text", in);
  body.SetJustification(word.id == Left ? 0 : word.id == Center ? 1 : 2);
  return true;
}

bool TrySpacing(MI::WTextBody& body, IxText& in) {
  double spacing = 0.0;
  if (!Clause::ReadNumber(spacing, in, false)) return Clause::Fail("Invalid Text", in);
  body.SetSpacing(spacing < 1.4 ? 0 : spacing < 1.7 ? 1 : 2);
  return true;
}

bool TryLabel(MI::WTextBody& body, IxText& in) {
  ReadKW word;
  word.Read(in);
  if (word.id != Line) return Clause::Fail("Invalid Text", in);
  word.Read(in);
  if (word.id != Simple && word.id != Arrow) return Clause::Fail("Invalid Text", in);
  body.SetLabelKind(word.id == Simple ? 1 : 2);
  Vanth::PointXY point = body.GetLabelPoint();
  const bool whole = Clause::ReadNumbers({&point.x, &point.y}, in);
  body.SetLabelPoint(point);
  return whole || Clause::Fail("Invalid Text", in);
}

}  // namespace

bool ReadOptionalClauses(MI::WObjBody& body, IxText& in) {
  const MI::WObjType type = body.GetType();
  Clause::Optional clauses(in);
  switch (MI::GetWObjClass(type)) {
    case MI::WObjClass_Point:
      clauses.Try(Symbol, [&] { return TrySymbol(static_cast<MI::W0DBody&>(body), in); });
      break;
    case MI::WObjClass_Linear:
      clauses.Try(Pen, [&] { return TryPen(static_cast<MI::W1DBody&>(body), in); });
      if (type == MI::WObjType_PLine) {
        clauses.Try(Smooth, [&] {
          static_cast<MI::WPLineBody&>(body).SetIsSmooth(true);
          return true;
        });
      }
      break;
    case MI::WObjClass_Area: {
      auto& area = static_cast<MI::W2DBody&>(body);
      clauses.Try(Pen, [&] { return TryPen(area, in); }).Try(Brush, [&] { return TryBrush(area, in); });
      if (type == MI::WObjType_Region) {
        clauses.Try(Center, [&] { return TryCenter(static_cast<MI::WRegionBody&>(area), in); });
      }
      break;
    }
    case MI::WObjClass_Text: {
      auto& text = static_cast<MI::WTextBody&>(body);
      clauses.Try(Font, [&] { return TryFont(text, in); })
          .Try(Angle, [&] { return TryAngle(text, in); })
          .Try(Justify, [&] { return TryJustify(text, in); })
          .Try(Spacing, [&] { return TrySpacing(text, in); })
          .Try(Label, [&] { return TryLabel(text, in); });
      break;
    }
    case MI::WObjClass_None:
      break;
  }
  return clauses.Any();
}

}  // namespace Pelor::MIF
