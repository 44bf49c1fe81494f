#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace App {

enum class Severity {
  kError,    ///< something cannot be read as it is stored
  kWarning,  ///< it can be read, but does not mean what it should
  kNote,     ///< it is sound, but others may stumble over it
};

[[nodiscard]] std::string_view Name(Severity severity) noexcept;

/// One thing that is wrong with a file.
struct Finding {
  Severity severity = Severity::kError;
  std::string_view code;  ///< names the kind of finding for programs, such as "end-missing"; lives for ever
  std::string sentence;   ///< says it for people, without a full stop

  // The place: in a design file the element, in a pair the line of one of the two files. What is 0 is
  // unknown, or the finding is about the file as a whole.

  std::filesystem::path file;
  std::int64_t element = 0;  ///< from 1
  std::int64_t offset = 0;   ///< in bytes
  std::int64_t line = 0;     ///< from 1
  std::int64_t column = 0;   ///< from 1
};

/// Takes findings as they are made.
using FindingSink = std::function<void(const Finding&)>;

/// "plan.dgn: element 7 at byte 4608: error: SENTENCE [CODE]" or "roads.mif:12:5: error: SENTENCE [CODE]".
[[nodiscard]] std::string ToText(const Finding& finding);

}  // namespace App
