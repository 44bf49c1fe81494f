#pragma once

#include "app/convert/account.h"

#include <string>
#include <string_view>

namespace App {

/// An account as text: "KIND READ = WRITTEN + SKIPPED" for each kind, and for each of its reasons a line
/// " - REASON: COUNT (#NUMBER@POSITION ...)" for the skipped, " ~ ..." for the approximated; then "!
/// SENTENCE" for each assumption.
inline std::string AccountText(const Account& account) {
  std::string text;
  const auto add = [&text](std::string_view mark, const Account::Reasons& reasons) {
    for (const auto& [reason, entry] : reasons) {
      text.append(mark).append(reason).append(": ").append(std::to_string(entry.count)).append(" (");
      const char* before = "";
      for (const Place& place : entry.places) {
        text.append(before).append("#").append(std::to_string(place.number));
        text.append("@").append(std::to_string(place.position));
        before = " ";
      }
      text += ")\n";
    }
  };
  for (const auto& [name, kind] : account.GetKinds()) {
    text.append(name).append(" ").append(std::to_string(kind.read));
    text.append(" = ").append(std::to_string(kind.written));
    text.append(" + ").append(std::to_string(kind.skipped)).append("\n");
    add(" - ", kind.skip_reasons);
    add(" ~ ", kind.approximation_reasons);
  }
  for (const std::string& sentence : account.GetAssumptions())
    text.append("! ").append(sentence).append("\n");
  return text;
}

}  // namespace App
