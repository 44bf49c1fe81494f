#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace app_test {

/// A displayable element of a design, body and attributes given as words in hexadecimal ("0408 0000*2").
struct ElementText {
  int type = 3;
  std::string_view body;
  int level = 1;
  bool component = false;
  bool deleted = false;
  int group = 0;
  unsigned properties = 0;  // the attributes bit is set where there are attributes
  int style = 0;
  int weight = 0;
  int color = 0;
  std::string_view attributes = {};
};

std::string ElementBytes(const ElementText& element);

/// A number as the words of a long, high word first: "0000 0064".
std::string Long(std::int64_t value);
/// A number as the words of a D-float, exact where a double's 53 bits are.
std::string DFloat(double value);
/// Several longs.
std::string Longs(std::initializer_list<std::int64_t> values);

/// A header element (type 9): 1000 sub-units of 10 units of resolution per master unit, names "m" and "mm".
struct HeaderText {
  bool is_3d = false;
  int subs_per_master = 1000;
  int uors_per_sub = 10;
  double origin_x = 0.0;
  double origin_y = 0.0;
  double origin_z = 0.0;
};
std::string HeaderBytes(const HeaderText& header = {});

/// The elements given, with a header in front and the end-of-design word behind.
std::string DesignBytes(std::string_view elements, const HeaderText& header = {});

}  // namespace app_test
