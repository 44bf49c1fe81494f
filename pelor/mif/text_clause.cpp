#include <pelor/mi/text_body.h>
#include <pelor/mif/clause_io.h>
#include <pelor/mif/object_clauses.h>
#include <pelor/mif/style_clauses.h>

#include <iomanip>
#include <string_view>

namespace Pelor::MI {

namespace Clause = MIF::Clause;

namespace {

// A text with quotes shares its line with the box, any other does not; both are read alike.
void PutText(std::ostream& out, std::string_view text) {
  out << ' ' << std::quoted(text, '"', '"');
  if (text.find('"') == std::string_view::npos) Clause::EndLine(out);
}

void PutWords(std::ostream& out, MIF::KeyWord keyword, std::string_view value) {
  out << "  " << MIF::KeyWordText(keyword);
  if (!value.empty()) out << ' ' << value;
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
  out << MIF::KeyWordText(MIF::Text);
  PutText(out, text_);
  Clause::PutNumbers(out, {box_.x1, box_.y1, box_.x2, box_.y2});
  Clause::EndLine(out);
  Clause::PutStyle(out, GetFont());
  Clause::EndLine(out);
  if (angle_ != Vanth::Angle()) {
    PutWords(out, MIF::Angle, {});
    Clause::PutNumbers(out, {angle_(Vanth::Angle::Degrees, Vanth::Angle::Positive)});
    Clause::EndLine(out);
  }
  if (justification_ != 0) {
    PutWords(out, MIF::Justify, JustifyText(justification_));
    Clause::EndLine(out);
  }
  if (spacing_ != 0) {
    PutWords(out, MIF::Spacing, spacing_ == 1 ? "1.5" : "2");
    Clause::EndLine(out);
  }
  if (label_kind_ != 0) {
    PutWords(out, MIF::Label, LabelText(label_kind_));
    Clause::PutNumbers(out, {label_point_.x, label_point_.y});
    Clause::EndLine(out);
  }
  Clause::EndLine(out);
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
