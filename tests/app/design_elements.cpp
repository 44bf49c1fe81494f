#include <cmath>
#include <tests/app/design_elements.h>
#include <tests/dgn/words.h>

namespace app_test {

namespace {

std::string Word(unsigned value) {
  return {static_cast<char>(value & 0xFFU), static_cast<char>(value >> 8U & 0xFFU)};
}

std::string Hex(std::uint64_t value, int words) {
  constexpr const char* kDigits = "0123456789ABCDEF";
  std::string text;
  for (int word = words - 1; word >= 0; --word) {
    for (int digit = 3; digit >= 0; --digit) text += kDigits[value >> (16 * word + 4 * digit) & 0xFU];
    if (word != 0) text += ' ';
  }
  return text;
}

void Put(std::string& bytes, std::size_t offset, const std::string& words) {
  const std::string part = dgn_test::Words(words);
  bytes.replace(offset, part.size(), part);
}

}  // namespace

std::string ElementBytes(const ElementText& element) {
  const std::string body = dgn_test::Words(element.body);
  const std::string attributes = dgn_test::Words(element.attributes);
  const auto type_level = static_cast<unsigned>(element.type << 8 | element.level) |
                          (element.component ? 0x80U : 0U) | (element.deleted ? 0x8000U : 0U);
  const auto symbology = static_cast<unsigned>(element.color << 8 | element.weight << 3 | element.style);
  return Word(type_level) + Word(static_cast<unsigned>((32 + body.size() + attributes.size()) / 2)) +
         dgn_test::Words(dgn_test::kDefaultRange) + Word(static_cast<unsigned>(element.group)) +
         Word(static_cast<unsigned>(2 + body.size() / 2)) +
         Word(element.properties | (attributes.empty() ? 0U : 0x0800U)) + Word(symbology) + body + attributes;
}

std::string Long(std::int64_t value) {
  return Hex(static_cast<std::uint32_t>(value), 2) + ' ';
}

std::string DFloat(double value) {
  int exponent = 0;
  const double fraction = std::frexp(std::fabs(value), &exponent);
  if (fraction == 0.0) return "0000*4 ";
  const auto mantissa = static_cast<std::uint64_t>(std::ldexp(fraction, 56)) & ~(std::uint64_t{1} << 55U);
  const std::uint64_t sign = value < 0 ? std::uint64_t{1} << 63U : 0;
  return Hex(sign | static_cast<std::uint64_t>(exponent + 128) << 55U | mantissa, 4) + ' ';
}

std::string Longs(std::initializer_list<std::int64_t> values) {
  std::string words;
  for (const std::int64_t value : values) words += Long(value);
  return words;
}

std::string HeaderBytes(const HeaderText& header) {
  std::string bytes(1536, '\0');
  Put(bytes, 0, header.is_3d ? "09C8 02FE" : "0908 02FE");
  Put(bytes, 1112, Longs({header.subs_per_master, header.uors_per_sub}));
  bytes.replace(1120, 4, std::string("m\0mm", 4));
  if (header.is_3d) Put(bytes, 1214, "0040");
  Put(bytes, 1240, DFloat(header.origin_x) + DFloat(header.origin_y) + DFloat(header.origin_z));
  return bytes;
}

std::string DesignBytes(std::string_view elements, const HeaderText& header) {
  return HeaderBytes(header) + std::string(elements) + "\xFF\xFF";
}

}  // namespace app_test
