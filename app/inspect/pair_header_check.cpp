#include "app/inspect/pair_header_check.h"

#include "app/inspect/layout.h"
#include "app/io/transcoder.h"

#include <array>
#include <optional>

namespace App {

namespace MI = Pelor::MI;
namespace MIF = Pelor::MIF;
using Tobri::IxText;

namespace {

// The clauses in the order in which readers want them.
constexpr std::array kOrder = {MIF::Version,  MIF::CharSet,   MIF::Delimiter, MIF::Unique, MIF::Index,
                               MIF::CoordSys, MIF::Transform, MIF::Columns,   MIF::Data};

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::optional<std::size_t> OrderOf(MIF::KeyWord keyword) {
  for (std::size_t i = 0; i < kOrder.size(); ++i) {
    if (kOrder[i] == keyword) return i;
  }
  return std::nullopt;
}

class HeaderCheck {
 public:
  HeaderCheck(IxText& in, PairHeader& header, const PairReport& report)
      : in_(in), header_(header), report_(report) {}

  bool Run() {
    CheckByteOrderMark();
    CheckFirstWord();
    bool has_ended = false;
    while (!has_ended && Tobri::TxtRdr::LookAheadCheck(in_)) has_ended = !Clause();
    if (!has_ended)
      Report(Severity::kError, "header-data", "the header has no Data clause, so there are no objects",
             PlaceOf(in_));
    if (has_ended && !has_columns_) {
      Report(Severity::kError, "header-columns", "the header has no Columns clause", PlaceOf(in_));
    }
    CheckColumnNumbers();
    return has_ended;
  }

 private:
  struct ColumnNumber {
    int number;
    MIF::KeyWord clause;
    TextPlace place;
  };

  void Report(Severity severity, std::string_view code, std::string sentence, const TextPlace& place) const {
    report_(severity, code, std::move(sentence), place);
  }

  void CheckByteOrderMark() {
    if (!in_.Window(kByteOrderMark.size()).starts_with(kByteOrderMark)) return;
    Report(Severity::kError, "byte-order-mark",
           "the file begins with a byte order mark, which a MIF file must not have", PlaceOf(in_));
    in_.Consume(kByteOrderMark.size());
  }

  void CheckFirstWord() {
    MIF::ReadKW word;
    word.Read(in_);
    in_.SetPos(word.pos);
    if (word.id == MIF::Version) return;
    Report(Severity::kError, "header-version", "the first word of the header is not Version",
           PlaceOfWord(in_, word.pos));
  }

  // Reads one clause; false for Data, which is the last one.
  bool Clause() {
    MIF::ReadKW word;
    word.Read(in_);
    const TextPlace place = PlaceOfWord(in_, word.pos);
    const std::optional<std::size_t> order = OrderOf(word.id);
    if (!order) {
      // What cannot begin a clause begins an object, where the header has no end.
      if (word.id >= MIF::None && word.id <= MIF::Ellipse) {
        in_.SetPos(word.pos);
        Report(Severity::kError, "header-data", "the header has no Data clause before the first object",
               place);
        return false;
      }
      Report(Severity::kError, "header-word", Shown(word) + " is no clause of a header", place);
      SkipLine(in_);
      return true;
    }
    if (*order < next_) {
      Report(Severity::kError, "header-order",
             "the clause " + std::string(std::string_view(word.text)) + " comes out of its order", place);
    } else {
      next_ = *order + 1;
    }
    Read(word.id, place);
    return word.id != MIF::Data;
  }

  static std::string Shown(const MIF::ReadKW& word) {
    return word.text.IsEmpty() ? "what stands here" : '"' + std::string(std::string_view(word.text)) + '"';
  }

  void Read(MIF::KeyWord clause, const TextPlace& place) {
    switch (clause) {
      case MIF::Version:
        return ReadVersion(place);
      case MIF::CharSet:
        return ReadCharset(place);
      case MIF::Delimiter:
        return ReadDelimiter(place);
      case MIF::Unique:
      case MIF::Index:
        return ReadColumnNumbers(clause, place);
      case MIF::CoordSys:
        return ReadCoordSys(place);
      case MIF::Transform: {
        MI::Transform transform;
        if (!Quietly([&] { return MIF::Read(transform, in_); })) Fault("Transform", place);
        return;
      }
      case MIF::Columns:
        return ReadColumns(place);
      default:
        return;
    }
  }

  void ReadVersion(const TextPlace& place) {
    int version = 0;
    if (!in_.ReadNextSep(version, Tobri::IntFmt(), true)) Fault("Version", place);
  }

  void ReadCharset(const TextPlace& place) {
    Tobri::String name;
    if (!in_.ReadNextSep(name, false)) return Fault("CharSet", place);
    header_.charset = std::string_view(name);
    if (!IsKnownCharset(header_.charset)) {
      Report(Severity::kWarning, "charset-unknown",
             "the character set \"" + header_.charset + "\" is unknown", place);
    }
  }

  void ReadDelimiter(const TextPlace& place) {
    Tobri::String text;
    if (!in_.ReadNextSep(text, false) || text.IsEmpty()) return Fault("Delimiter", place);
    header_.delimiter = text[0];
    if (std::string_view(text).size() > 1) {
      Report(Severity::kWarning, "delimiter-long",
             "the delimiter is more than one character, of which the first alone counts", place);
    }
  }

  void ReadColumnNumbers(MIF::KeyWord clause, const TextPlace& place) {
    IxText::ArgSep args;
    args.Set(in_, false, false, false);
    for (int number = 0; args.ReadNext(number, Tobri::IntFmt());)
      column_numbers_.push_back({number, clause, place});
    args.Skip();
  }

  void ReadCoordSys(const TextPlace& place) {
    const Tobri::IRef<MI::CoordSys> system(new MI::CoordSys());
    if (!Quietly([&] { return MIF::Read(*system, in_); })) return Fault("CoordSys", place);
    header_.system = system;
    if (system->units == MI::Units_Unknown) {
      Report(Severity::kWarning, "units-unknown", "the coordinate system is in units that are unknown",
             place);
    }
  }

  void ReadColumns(const TextPlace& place) {
    has_columns_ = true;
    int count = 0;
    if (!in_.ReadNextSep(count, Tobri::IntFmt(), true) || count < 0) return Fault("Columns", place);
    for (int i = 0; i < count; ++i) {
      if (!ReadColumn()) {
        Report(Severity::kError, "column-count",
               "the header says " + Counted(count, "column") + ", and lists " + std::to_string(i), place);
        return;
      }
    }
  }

  // False, and nothing read, where the columns end too early.
  bool ReadColumn() {
    const Tobri::IBText::Pos begin = in_.GetPos();
    const TextPlace place = PlaceOfWord(in_, begin);
    Tobri::String name;
    MIF::ReadKW type;
    if (!in_.ReadNextSep(name, true)) return false;
    if (MIF::KeyWordID(name) == MIF::Data) {
      in_.SetPos(begin);
      return false;
    }
    type.Read(in_);
    in_.SetPos(begin);
    MI::Column column;
    const bool is_read = Quietly([&] { return MIF::Read(column, in_); });
    if (!is_read) {
      const bool is_type = type.id >= MIF::Char && type.id <= MIF::Logical;
      const std::string column_name = "the column " + std::string(std::string_view(name));
      Report(Severity::kError, "column-type",
             is_type ? column_name + " cannot be read whole"
                     : column_name + " has the type " + Shown(type) + ", which is unknown",
             place);
      in_.SetPos(begin);
      Tobri::TxtRdr::SkipWS(in_);
      SkipLine(in_);
    }
    header_.columns.push_back(std::move(column));
    header_.has_known_type.push_back(is_read);
    return true;
  }

  void CheckColumnNumbers() const {
    for (const ColumnNumber& column : column_numbers_) {
      if (column.number >= 1 && static_cast<std::size_t>(column.number) <= header_.columns.size()) continue;
      Report(Severity::kError, "column-number",
             "the clause " + std::string(std::string_view(MIF::KeyWordText(column.clause))) +
                 " names column " + std::to_string(column.number) + ", and " +
                 ThereAre(static_cast<std::int64_t>(header_.columns.size()), "column"),
             column.place);
    }
  }

  // What the library reports is told in the program's own words.
  template <class Reader>
  static bool Quietly(Reader&& read) {
    const Tobri::Error::ScopedHandler guard([](const Tobri::Error::Msg&) {});
    return read();
  }

  void Fault(std::string_view clause, const TextPlace& place) const {
    Report(Severity::kError, "header-clause", "the clause " + std::string(clause) + " cannot be read whole",
           place);
    SkipLine(in_);
  }

  IxText& in_;
  PairHeader& header_;
  const PairReport& report_;
  std::size_t next_ = 0;  // in kOrder
  bool has_columns_ = false;
  std::vector<ColumnNumber> column_numbers_;
};

}  // namespace

bool CheckPairHeader(IxText& in, PairHeader& header, const PairReport& report) {
  return HeaderCheck(in, header, report).Run();
}

}  // namespace App
