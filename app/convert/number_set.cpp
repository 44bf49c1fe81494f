#include "app/convert/number_set.h"

#include "app/io/blanks.h"
#include "app/io/failure.h"
#include <pelor/dgn.h>

#include <charconv>
#include <string>

namespace App {

namespace {

namespace DGN = Pelor::DGN;

constexpr unsigned kHighestLevel = 63;
constexpr unsigned kHighestType = 127;
constexpr unsigned kHighestClass = 15;

std::optional<unsigned> Number(std::string_view text) {
  unsigned number = 0;
  text = WithoutBlanks(text);
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

// A name as it is written on the command line: small letters and digits, one hyphen for all between them.
std::string Plain(std::string_view name) {
  std::string plain;
  bool gap = false;
  for (const char c : name) {
    const bool upper = c >= 'A' && c <= 'Z';
    if (!upper && !(c >= 'a' && c <= 'z') && !(c >= '0' && c <= '9')) {
      gap = true;
      continue;
    }
    if (gap && !plain.empty()) plain += '-';
    gap = false;
    plain += upper ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return plain;
}

// The number whose name is `word`.
template <class Enum>
NumberSet::Words NamesOf(unsigned highest) {
  return [highest](std::string_view word) -> std::optional<unsigned> {
    const std::string plain = Plain(word);
    for (unsigned number = 0; number <= highest; ++number) {
      if (Plain(std::string_view(DGN::Name(static_cast<Enum>(number)))) == plain) return number;
    }
    return std::nullopt;
  };
}

}  // namespace

NumberSet NumberSet::Parse(std::string_view text, unsigned highest, std::string_view what,
                           const Words& words) {
  const auto refuse = [what](std::string_view part, std::string_view reason) {
    throw Failure('"' + std::string(part) + "\" is not a " + std::string(what) + std::string(reason));
  };
  NumberSet set;
  while (true) {
    const std::size_t comma = text.find(',');
    const std::string_view part = WithoutBlanks(text.substr(0, comma));
    const std::size_t dash = part.find('-');
    std::optional<unsigned> low = Number(part.substr(0, dash));
    std::optional<unsigned> high = low;
    if (low && dash != std::string_view::npos) high = Number(part.substr(dash + 1));
    if (!low && words) high = low = words(part);
    if (!low || !high) refuse(part, "");
    if (*low > highest || *high > highest) refuse(part, ": they end at " + std::to_string(highest));
    if (*low > *high) refuse(part, " range: it runs backwards");
    for (unsigned number = *low; number <= *high; ++number) set.members_.set(number);
    if (comma == std::string_view::npos) return set;
    text.remove_prefix(comma + 1);
  }
}

NumberSet NumberSet::All() {
  NumberSet set;
  set.members_.set();
  return set;
}

NumberSet ParseLevels(std::string_view text) {
  return NumberSet::Parse(text, kHighestLevel, "level");
}

NumberSet ParseElementTypes(std::string_view text) {
  return NumberSet::Parse(text, kHighestType, "type of elements", NamesOf<DGN::EType>(kHighestType));
}

NumberSet ParseElementClasses(std::string_view text) {
  return NumberSet::Parse(text, kHighestClass, "class of elements", NamesOf<DGN::EClass>(kHighestClass));
}

}  // namespace App
