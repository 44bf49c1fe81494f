#include "app/inspect/row_check.h"

#include "app/inspect/layout.h"
#include "app/inspect/value_check.h"
#include "app/io/interrupt.h"

#include <string>

namespace App {

using Tobri::IxText;

namespace {

class RowCheck {
 public:
  RowCheck(IxText& in, const PairHeader& header, CharsetCheck& charset, const PairReport& report)
      : in_(in), header_(header), charset_(charset), report_(report) {}

  RowCount Run() {
    while (Tobri::TxtRdr::LookAheadCheck(in_)) {
      ThrowIfInterrupted();
      Row();
    }
    return {count_, header_.columns.size() == 1 ? empty_ : 0};
  }

 private:
  void Row() {
    const Tobri::IBText::Pos begin = in_.GetPos();
    if (in_.SkipLineEnd()) {
      if (empty_++ == 0) empty_begin_ = begin;
      return;
    }
    TakeEmptyRows();
    ++count_;
    IxText::ArgSep args;
    args.Set(in_, false, false, false);
    std::size_t values = 0;
    for (bool more = true; more;) {
      const Tobri::IBText::Pos place = in_.GetPos();
      value_.Clear();
      more = args.ReadNext(value_);
      if (!more && value_.IsEmpty()) break;
      // A quote that nothing closes leaves its text and no success.
      if (!more) Report(Severity::kError, "quote-open", "a quote is never closed", place);
      Value(values++, place);
    }
    args.Skip();
    if (values == header_.columns.size()) return;
    ReportCount("row " + ToText(count_) + " has " + Counted(static_cast<std::int64_t>(values), "value"),
                begin);
  }

  // Empty lines are rows only when a row follows them.
  void TakeEmptyRows() {
    if (empty_ == 0) return;
    count_ += empty_;
    if (header_.columns.size() != 1) {
      ReportCount(Counted(empty_, "row") + " up to row " + ToText(count_) + (empty_ == 1 ? " has" : " have") +
                      " no values",
                  empty_begin_);
    }
    empty_ = 0;
  }

  void ReportCount(std::string_view what, const Tobri::IBText::Pos& place) {
    Report(
        Severity::kError, "value-count",
        std::string(what) + ", and " + ThereAre(static_cast<std::int64_t>(header_.columns.size()), "column"),
        place);
  }

  void Value(std::size_t index, const Tobri::IBText::Pos& place) {
    if (index >= header_.columns.size()) return;
    const Pelor::MI::Column& column = header_.columns[index];
    if (header_.has_known_type[index]) {
      const std::string misfit = MisfitOf(value_, column);
      if (!misfit.empty()) {
        Report(Severity::kWarning, "value-misfit",
               "the value of " + Named(column) + ' ' + misfit + ", and the column is " + TypeText(column),
               place);
      }
    }
    const std::string misfit = charset_.MisfitOf(value_);
    if (!misfit.empty())
      Report(Severity::kWarning, "charset", "the value of " + Named(column) + ' ' + misfit, place);
  }

  [[nodiscard]] std::string Named(const Pelor::MI::Column& column) const {
    return std::string(std::string_view(column.name)) + " in row " + ToText(count_);
  }

  void Report(Severity severity, std::string_view code, std::string sentence,
              const Tobri::IBText::Pos& place) {
    report_(severity, code, std::move(sentence), PlaceOf(in_, place));
  }

  IxText& in_;
  const PairHeader& header_;
  CharsetCheck& charset_;
  const PairReport& report_;
  Tobri::String value_;  // keeps its storage
  std::int64_t count_ = 0;
  std::int64_t empty_ = 0;  // lines since the last row that is not
  Tobri::IBText::Pos empty_begin_;
};

}  // namespace

RowCount CheckRows(IxText& in, const PairHeader& header, CharsetCheck& charset, const PairReport& report) {
  return RowCheck(in, header, charset, report).Run();
}

}  // namespace App
