#include "app/pair/library_message.h"

#include <charconv>

namespace App {

namespace {

// Reads the number behind the last `label` of the text; false when there is none.
bool ReadBehind(std::string_view text, std::string_view label, std::int64_t& number) {
  const std::size_t found = text.rfind(label);
  if (found == std::string_view::npos) return false;
  text.remove_prefix(found + label.size());
  return std::from_chars(text.data(), text.data() + text.size(), number).ec == std::errc();
}

}  // namespace

LibraryMessage ParseLibraryMessage(std::string_view what) {
  constexpr std::string_view kMark = "@ ";
  LibraryMessage message;
  const std::size_t mark = what.find(kMark);
  message.text = what.substr(0, mark);
  if (mark == std::string_view::npos) return message;
  if (!ReadBehind(what, ", line ", message.line) || !ReadBehind(what, ", column ", message.column)) {
    message.line = 0;
    message.column = 0;
  }
  return message;
}

}  // namespace App
