#include "app/pair/pair_options.h"

#include "app/io/failure.h"
#include <pelor/base/loc_char.h>

#include <array>

namespace App {

namespace {

struct DelimiterName {
  std::string_view name;
  char delimiter;
};

constexpr std::array kDelimiterNames = {
    DelimiterName{"tab", '\t'},  DelimiterName{"\\t", '\t'},      DelimiterName{"comma", ','},
    DelimiterName{"blank", ' '}, DelimiterName{"semicolon", ';'},
};

}  // namespace

int WrittenVersion(int version) noexcept {
  if (version == 1 || version == 100) return 1;
  return version == 2 || version == 200 ? 2 : 300;
}

int ParsePairVersion(std::string_view text) {
  for (const int version : {1, 2, 100, 200, 300}) {
    if (text == std::to_string(version)) return WrittenVersion(version);
  }
  throw Failure("the version \"" + std::string(text) + "\" cannot be written; there are 1, 2 and 300");
}

bool IsDelimiter(char c) noexcept {
  using Tobri::LocChar;
  return c == '\t' || c == ' ' || (c != '"' && LocChar::Is(c, LocChar::Punct));
}

char ParseDelimiter(std::string_view text) {
  for (const DelimiterName& named : kDelimiterNames) {
    if (text == named.name) return named.delimiter;
  }
  if (text.size() == 1 && IsDelimiter(text.front())) return text.front();
  throw Failure("the delimiter \"" + std::string(text) + "\" cannot part values; tab is the usual one");
}

}  // namespace App
