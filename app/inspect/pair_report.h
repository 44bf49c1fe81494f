#pragma once

#include "app/inspect/finding.h"
#include "app/inspect/scanner_place.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

namespace App {

/// Makes findings of one of the two files of a pair.
class PairReport {
 public:
  PairReport(std::filesystem::path file, const FindingSink& sink) : file_(std::move(file)), sink_(sink) {}

  void operator()(Severity severity, std::string_view code, std::string sentence,
                  const TextPlace& place) const {
    Finding finding;
    finding.severity = severity;
    finding.code = code;
    finding.sentence = std::move(sentence);
    finding.file = file_;
    finding.line = place.line;
    finding.column = place.column;
    sink_(finding);
  }

 private:
  std::filesystem::path file_;
  const FindingSink& sink_;
};

}  // namespace App
