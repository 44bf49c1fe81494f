#include "app/io/system_failure.h"

#include <cctype>
#include <cerrno>
#include <string>
#include <system_error>

namespace App {

Failure SystemFailure(const std::filesystem::path& name, std::string_view what, int error) {
  std::string sentence = name.string();
  sentence.append(" ").append(what);
  if (error == 0) return Failure(sentence);
  std::string reason = error == ENOSPC ? "the disk is full" : std::generic_category().message(error);
  reason.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(reason.front())));
  return Failure(sentence.append(": ").append(reason));
}

}  // namespace App
