#pragma once

#include <locale>
#include <string>

/// A locale with a decimal comma and dots between groups of two digits, on no system locale's word.
inline std::locale CommaLocale() {
  struct Comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\2"; }
  };
  return {std::locale::classic(), new Comma};
}

/// Makes CommaLocale the locale of the process until it goes.
class CommaProcess {
 public:
  CommaProcess() : before_(std::locale::global(CommaLocale())) {}
  ~CommaProcess() { std::locale::global(before_); }
  CommaProcess(const CommaProcess&) = delete;
  CommaProcess& operator=(const CommaProcess&) = delete;

 private:
  std::locale before_;
};
