#include "app/inspect/design_check.h"

#include "app/design/design_header.h"
#include "app/design/element_cursor.h"
#include "app/design/element_geometry.h"
#include "app/inspect/complex_check.h"
#include "app/inspect/element_check.h"
#include "app/inspect/layout.h"
#include "app/io/interrupt.h"

#include <string>
#include <utility>

namespace App {

namespace DGN = Pelor::DGN;

namespace {

class DesignCheck {
 public:
  DesignCheck(const Input& input, const FindingSink& sink)
      : input_(input),
        sink_(sink),
        cursor_(input),
        complexes_([this](const Place& place) { return ReportAt(place); }) {}

  void Run() {
    CheckHeader();
    for (; cursor_.Peek(); cursor_.Take()) {
      ThrowIfInterrupted();
      Element();
    }
    complexes_.End(cursor_.GetPlace().position);
    CheckEnd();
  }

 private:
  ElementReport ReportAt(const Place& place) {
    return [this, place](Severity severity, std::string_view code, std::string sentence) {
      Finding finding;
      finding.severity = severity;
      finding.code = code;
      finding.sentence = std::move(sentence);
      finding.file = input_.path;
      finding.element = place.number;
      finding.offset = place.position;
      sink_(finding);
    };
  }

  void Report(Severity severity, std::string_view code, std::string sentence) {
    ReportAt({})(severity, code, std::move(sentence));
  }

  void CheckHeader() {
    const DesignHeader header = DesignHeader::Find(cursor_.File());
    cursor_.SetIs3D(header.is_3d);
    if (!header.found) {
      Report(Severity::kWarning, "header-missing",
             "there is no design file header before the first graphics, so units and origin are unknown");
    } else if (!header.HasUnits()) {
      Report(Severity::kError, "units",
             "the header says " + ToText(std::int64_t{header.subs_per_master}) +
                 " sub-units per master unit and " + ToText(std::int64_t{header.uors_per_sub}) +
                 " units of resolution per sub-unit; both must be above 0");
    }
  }

  void Element() {
    const ElementView& element = cursor_.Element();
    const Place place = cursor_.GetPlace();
    const ElementReport report = ReportAt(place);
    if (!element.IsWhole()) {
      const std::size_t told = DGN::EHeader::kBytes + 2 * std::size_t{element.Header().words_to_follow};
      report(Severity::kError, "element-cut",
             "the element says " + Counted(static_cast<std::int64_t>(told), "byte") +
                 ", and the file ends after " + std::to_string(element.Bytes().size()) + " of them");
      return;
    }
    CheckElement(element, report);
    complexes_.Element(element, place, cursor_.NextPosition());
  }

  void CheckEnd() {
    if (cursor_.GetEnd() == ElementCursor::End::kNoEndWord) {
      Report(Severity::kWarning, "end-missing", "the file ends without the end-of-design word");
    }
  }

  const Input& input_;
  const FindingSink& sink_;
  ElementCursor cursor_;
  ComplexCheck complexes_;
};

}  // namespace

void CheckDesign(const Input& input, const FindingSink& sink) {
  DesignCheck(input, sink).Run();
}

}  // namespace App
