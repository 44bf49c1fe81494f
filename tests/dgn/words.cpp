#include <gtest/gtest.h>

#include <atomic>
#include <cctype>
#include <charconv>
#include <sstream>
#include <tests/dgn/words.h>
#include <unistd.h>

namespace dgn_test {

namespace {

std::string Word(unsigned value) {
  return {static_cast<char>(value & 0xFFU), static_cast<char>(value >> 8U)};
}

std::string Hex(unsigned value, int digits, const char* alphabet) {
  std::string text;
  for (int i = digits - 1; i >= 0; --i) text += alphabet[value >> (4 * i) & 0xFU];
  return text;
}

unsigned Byte(char c) {
  return static_cast<unsigned char>(c);
}

constexpr const char* kUpper = "0123456789ABCDEF";
constexpr const char* kLower = "0123456789abcdef";

}  // namespace

std::string Words(std::string_view text) {
  std::string bytes;
  std::size_t at = 0;
  while (at < text.size()) {
    if (std::isspace(static_cast<unsigned char>(text[at])) != 0 || text[at] == '|') {
      ++at;
      continue;
    }
    unsigned value = 0;
    unsigned repeats = 1;
    const char* const end = text.data() + text.size();
    const auto word = std::from_chars(text.data() + at, std::min(text.data() + at + 4, end), value, 16);
    at = static_cast<std::size_t>(word.ptr - text.data());
    if (word.ec == std::errc() && at < text.size() && text[at] == '*') {
      at = static_cast<std::size_t>(std::from_chars(text.data() + at + 1, end, repeats).ptr - text.data());
    }
    if (word.ec != std::errc()) {
      ADD_FAILURE() << "no word at " << at << " of \"" << text << '"';
      return bytes;
    }
    for (; repeats != 0; --repeats) bytes += Word(value);
  }
  return bytes;
}

std::string InWords(std::string_view bytes) {
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 2) {
    if (i != 0) text += ' ';
    text += i + 1 < bytes.size() ? Hex(Byte(bytes[i]) | Byte(bytes[i + 1]) << 8U, 4, kUpper)
                                 : Hex(Byte(bytes[i]), 2, kLower);
  }
  return text;
}

std::string InBytes(std::string_view bytes) {
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (i != 0) text += ' ';
    text += Hex(Byte(bytes[i]), 2, kUpper);
  }
  return text;
}

TempFile::TempFile() {
  static std::atomic<unsigned> count = 0;
  const auto name = "pelor_" + std::to_string(::getpid()) + "_" + std::to_string(count++) + ".dgn";
  name_ = (std::filesystem::temp_directory_path() / name).string();
}

TempFile::TempFile(std::string_view content) : TempFile() {
  std::ofstream(name_, std::ios::binary).write(content.data(), static_cast<std::streamsize>(content.size()));
}

TempFile::~TempFile() {
  std::error_code ignored;
  std::filesystem::remove(name_, ignored);
}

std::string TempFile::Content() const {
  std::ostringstream content;
  content << std::ifstream(name_, std::ios::binary).rdbuf();
  return std::move(content).str();
}

Design& Design::Element(std::uint16_t type_level, std::string_view words) {
  const std::string body = Words(words);
  bytes_ += Word(type_level) + Word(static_cast<unsigned>(body.size() / 2)) + body;
  return *this;
}

Design& Design::Displayable(std::uint16_t type_level, std::string_view body) {
  // The attribute index counts from word 16 to the element's end, past words 16 and 17 and the body.
  const auto index = static_cast<unsigned>(2 + Words(body).size() / 2);
  return Element(type_level, std::string(kDefaultRange) + " 0000 " + Hex(index, 4, kUpper) + " 0200 0000 " +
                                 std::string(body));
}

Design& Design::Raw(std::string_view bytes) {
  bytes_ += bytes;
  return *this;
}

Design& Design::End() {
  bytes_ += Words("FFFF");
  bytes_.resize((bytes_.size() + 511) / 512 * 512);
  return *this;
}

}  // namespace dgn_test
