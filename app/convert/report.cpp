#include "app/convert/report.h"

#include "app/design/skip_reasons.h"
#include "app/io/failure.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

namespace App {

namespace {

using Outcome = FileResult::Outcome;

std::string Counts(std::int64_t read, std::int64_t written, std::int64_t skipped) {
  return std::to_string(read) + " read, " + std::to_string(written) + " written, " + std::to_string(skipped) +
         " skipped";
}

std::string PlaceText(const Place& place, bool in_design) {
  std::string text;
  if (place.number > 0) text = (in_design ? "element " : "object ") + std::to_string(place.number);
  if (place.position > 0) {
    if (!text.empty()) text += ' ';
    text += (in_design ? "at byte " : "at line ") + std::to_string(place.position);
  }
  return text;
}

// The same reasons of many files, with places in words.
struct CommonEntry {
  std::int64_t count = 0;
  std::vector<std::string> places;
};
using CommonReasons = std::map<std::string, CommonEntry, std::less<>>;
struct CommonKind {
  std::int64_t read = 0;
  std::int64_t written = 0;
  std::int64_t skipped = 0;
  CommonReasons skip_reasons;
  CommonReasons approximation_reasons;
};

class CommonAccount {
 public:
  explicit CommonAccount(bool names_files) : names_files_(names_files) {}

  void Add(const FileResult& result) {
    const std::string file = names_files_ ? result.file.input.path.string() : std::string();
    for (const auto& [name, kind] : result.account.GetKinds()) {
      CommonKind& common = kinds_[name];
      common.read += kind.read;
      common.written += kind.written;
      common.skipped += kind.skipped;
      Add(common.skip_reasons, kind.skip_reasons, file, result.file.input.IsDesign());
      Add(common.approximation_reasons, kind.approximation_reasons, file, result.file.input.IsDesign());
    }
    for (const std::string& assumption : result.account.GetAssumptions()) {
      if (std::find(assumptions_.begin(), assumptions_.end(), assumption) == assumptions_.end()) {
        assumptions_.push_back(assumption);
      }
    }
  }

  void Print(std::ostream& out) const {
    for (const auto& [name, kind] : kinds_) {
      out << "  " << name << ": " << Counts(kind.read, kind.written, kind.skipped) << '\n';
      Print(out, "skipped", kind.skip_reasons);
      Print(out, "approximated", kind.approximation_reasons);
    }
    for (const std::string& assumption : assumptions_) out << "  Assumed: " << assumption << '\n';
  }

 private:
  static void Add(CommonReasons& common, const Account::Reasons& reasons, const std::string& file,
                  bool in_design) {
    for (const auto& [reason, entry] : reasons) {
      CommonEntry& sum = common[reason];
      sum.count += entry.count;
      for (const Place& place : entry.places) {
        if (sum.places.size() == Account::kPlaces) break;
        std::string text = file;
        const std::string at = PlaceText(place, in_design);
        if (!text.empty() && !at.empty()) text += ' ';
        text += at;
        if (!text.empty()) sum.places.push_back(std::move(text));
      }
    }
  }

  static void Print(std::ostream& out, std::string_view what, const CommonReasons& reasons) {
    for (const auto& [reason, entry] : reasons) {
      out << "    " << entry.count << ' ' << what << ": " << reason;
      const char* separator = " (";
      for (const std::string& place : entry.places) {
        out << separator << place;
        separator = ", ";
      }
      if (!entry.places.empty()) {
        out << (std::cmp_greater(entry.count, entry.places.size()) ? ", ...)" : ")");
      }
      out << '\n';
    }
  }

  bool names_files_;
  std::map<std::string, CommonKind, std::less<>> kinds_;
  std::vector<std::string> assumptions_;
};

void PrintArrow(std::ostream& out, const PlannedFile& file) {
  out << file.input.path.string() << " -> ";
  for (std::size_t i = 0; i < file.outputs.size(); ++i)
    out << (i == 0 ? "" : ", ") << file.outputs[i].string();
}

std::int64_t Count(std::span<const FileResult> results, Outcome outcome) {
  return std::count_if(results.begin(), results.end(),
                       [outcome](const FileResult& result) { return result.outcome == outcome; });
}

void PrintLine(std::ostream& out, const FileResult& result) {
  if (result.outcome == Outcome::kFailed) return;
  PrintArrow(out, result.file);
  if (result.outcome == Outcome::kUpToDate) {
    out << ": up to date\n";
  } else {
    const Account& account = result.account;
    out << ": " << Counts(account.GetRead(), account.GetWritten(), account.GetSkipped()) << '\n';
  }
}

}  // namespace

std::int64_t CountFindings(const Account& account) {
  std::int64_t findings = 0;
  for (const auto& [name, kind] : account.GetKinds()) {
    for (const Account::Reasons* reasons : {&kind.skip_reasons, &kind.approximation_reasons}) {
      for (const auto& [reason, entry] : *reasons) {
        if (!Reason::IsExpected(reason)) findings += entry.count;
      }
    }
  }
  return findings;
}

bool HasLeftOutByChoice(const Account& account) {
  for (const auto& [name, kind] : account.GetKinds()) {
    for (const auto& [reason, entry] : kind.skip_reasons) {
      if (Reason::IsByChoice(reason)) return true;
    }
  }
  return false;
}

int ConvertExitCode(std::span<const FileResult> results, bool strict) {
  const bool any_failed = Count(results, Outcome::kFailed) != 0;
  if (any_failed && Count(results, Outcome::kWritten) + Count(results, Outcome::kPlanned) == 0)
    return kFailed;
  const bool any_findings = std::any_of(results.begin(), results.end(), [](const FileResult& result) {
    return result.outcome == Outcome::kWritten && CountFindings(result.account) != 0;
  });
  if (!any_failed && !any_findings) return kDone;
  return strict ? kFailed : kDoneWithFindings;
}

void PrintSummary(std::ostream& out, std::span<const FileResult> results) {
  const bool many = results.size() > 1;
  CommonAccount common(many);
  std::int64_t read = 0;
  std::int64_t written = 0;
  std::int64_t skipped = 0;
  for (const FileResult& result : results) {
    PrintLine(out, result);
    if (result.outcome != Outcome::kWritten) continue;
    common.Add(result);
    read += result.account.GetRead();
    written += result.account.GetWritten();
    skipped += result.account.GetSkipped();
  }
  if (many) {
    out << results.size() << " files: " << Count(results, Outcome::kWritten) << " written, "
        << Count(results, Outcome::kUpToDate) << " up to date, " << Count(results, Outcome::kFailed)
        << " failed; " << Counts(read, written, skipped) << '\n';
  }
  common.Print(out);
}

void PrintPlan(std::ostream& out, std::span<const FileResult> results) {
  for (const FileResult& result : results) {
    if (result.outcome == Outcome::kFailed) continue;
    PrintArrow(out, result.file);
    out << (result.outcome == Outcome::kUpToDate ? ": up to date\n" : "\n");
  }
}

}  // namespace App
