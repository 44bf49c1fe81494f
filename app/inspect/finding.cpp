#include "app/inspect/finding.h"

namespace App {

std::string_view Name(Severity severity) noexcept {
  switch (severity) {
    case Severity::kError:
      return "error";
    case Severity::kWarning:
      return "warning";
    case Severity::kNote:
      break;
  }
  return "note";
}

std::string ToText(const Finding& finding) {
  std::string text = finding.file.string();
  if (finding.line != 0) text += ':' + std::to_string(finding.line);
  if (finding.column != 0) text += ':' + std::to_string(finding.column);
  text += ": ";
  if (finding.element != 0) {
    text +=
        "element " + std::to_string(finding.element) + " at byte " + std::to_string(finding.offset) + ": ";
  }
  text += Name(finding.severity);
  text += ": " + finding.sentence + " [";
  text += finding.code;
  return text += ']';
}

}  // namespace App
