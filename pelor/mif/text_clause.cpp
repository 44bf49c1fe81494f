#include <pelor/mi/text_body.h>
#include <pelor/mif/clause_io.h>
#include <pelor/mif/clause_text.h>
#include <pelor/mif/object_clauses.h>

#include <string_view>

namespace Pelor::MI {

namespace Clause = MIF::Clause;
using MIF::ClauseText;

namespace {

// A text with quotes shares its line with the box, any other does not; both are read alike.
void PutText(ClauseText& text, std::string_view value) {
  text.Put(' ');
  text.PutQuoted(value);
  if (value.find('"') == std::string_view::npos) text.EndLine();
}

void PutWords(ClauseText& text, MIF::KeyWord keyword, std::string_view value) {
  text.Put("  ");
  text.Put(keyword);
  if (value.empty()) return;
  text.Put(' ');
  text.Put(value);
}

std::string_view JustifyText(std::int32_t justification) {
  if (justification == 1) return "Center";
  return justification == 2 ? "Right" : "";
}

std::string_view LabelText(std::int32_t kind) {
  if (kind == 1) return "Line Simple";
  return kind == 2 ? "Line Arrow" : "Line";
}

}  // namespace

void WTextBody::WriteMIF(std::ostream& out) const {
  ClauseText text(out);
  text.Put(MIF::Text);
  PutText(text, text_);
  text.PutNumbers({box_.x1, box_.y1, box_.x2, box_.y2});
  text.EndLine();
  text.Put(' ');
  Put(text, GetFont());
  text.EndLine();
  if (angle_ != Vanth::Angle()) {
    PutWords(text, MIF::Angle, {});
    text.PutNumbers({angle_(Vanth::Angle::Degrees, Vanth::Angle::Positive)});
    text.EndLine();
  }
  if (justification_ != 0) {
    PutWords(text, MIF::Justify, JustifyText(justification_));
    text.EndLine();
  }
  if (spacing_ != 0) {
    PutWords(text, MIF::Spacing, spacing_ == 1 ? "1.5" : "2");
    text.EndLine();
  }
  if (label_kind_ != 0) {
    PutWords(text, MIF::Label, LabelText(label_kind_));
    text.PutNumbers({label_point_.x, label_point_.y});
    text.EndLine();
  }
  text.EndLine();
  text.Give();
}

void WTextBody::ReadMIF(Tobri::IxText& in) {
  MIF::ReadSpecifier(in, MIF::Text);
  const bool whole =
      in.ReadNextSep(text_, true) && Clause::ReadNumbers({&box_.x1, &box_.y1, &box_.x2, &box_.y2}, in);
  if (!whole) {
    Clause::Fail("Invalid Text", in);
    return;
  }
  SetFont(Font());
  label_point_ = box_.Center();
  label_kind_ = 0;
  justification_ = 0;
  spacing_ = 0;
  angle_ = Vanth::Angle();
  MIF::ReadOptionalClauses(*this, in);
}

}  // namespace Pelor::MI
