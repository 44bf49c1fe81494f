#include <pelor/base/utf8.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace {

using Tobri::DecodeUtf8;
using Tobri::Utf8Char;

Utf8Char Decode(std::string_view text) {
  return DecodeUtf8(text.data(), text.data() + text.size());
}

// The bytes of any number up to 21 bits in the given length, valid or not.
std::string Sequence(std::uint32_t code, unsigned length) {
  constexpr std::array<unsigned, 5> kLead = {0, 0, 0xC0, 0xE0, 0xF0};
  if (length == 1) return {static_cast<char>(code)};
  std::string bytes(length, '\0');
  for (unsigned i = length - 1; i > 0; --i, code >>= 6) bytes[i] = static_cast<char>(0x80U | (code & 0x3FU));
  bytes[0] = static_cast<char>(kLead[length] | code);
  return bytes;
}

TEST(Utf8Test, EveryScalarValueIsDecodedFromItsShortestForm) {
  for (std::uint32_t code = 0; code <= 0x10FFFF; ++code) {
    if (code >= 0xD800 && code <= 0xDFFF) continue;
    const unsigned length = code < 0x80 ? 1 : code < 0x800 ? 2 : code < 0x10000 ? 3 : 4;
    const Utf8Char decoded = Decode(Sequence(code, length));
    ASSERT_EQ(static_cast<std::uint32_t>(decoded.code), code);
    ASSERT_EQ(decoded.length, length) << code;
  }
}

TEST(Utf8Test, LongerFormsThanNeedBeAreNotValid) {
  for (std::uint32_t code = 0; code < 0x10000; ++code) {
    for (unsigned length = code < 0x80 ? 2 : code < 0x800 ? 3 : 4; length <= 4; ++length) {
      ASSERT_EQ(Decode(Sequence(code, length)).length, 0U) << code << ' ' << length;
    }
  }
}

TEST(Utf8Test, SurrogatesAreNotValid) {
  for (std::uint32_t code = 0xD800; code <= 0xDFFF; ++code) {
    ASSERT_EQ(Decode(Sequence(code, 3)).length, 0U) << code;
  }
}

TEST(Utf8Test, NumbersBeyondTheLastCharacterAreNotValid) {
  EXPECT_EQ(Decode("\xF4\x8F\xBF\xBF").length, 4U);
  for (std::uint32_t code = 0x110000; code <= 0x1FFFFF; ++code) {
    ASSERT_EQ(Decode(Sequence(code, 4)).length, 0U) << code;
  }
}

TEST(Utf8Test, NoLeadByteStartsAtATrailByteOrFromF8On) {
  for (unsigned lead = 0x80; lead <= 0xFF; ++lead) {
    if (lead >= 0xC2 && lead <= 0xF4) continue;
    EXPECT_EQ(Decode(std::string(1, static_cast<char>(lead)) + "\xBF\xBF\xBF\xBF\xBF").length, 0U) << lead;
  }
}

TEST(Utf8Test, EveryProperPrefixIsNotValid) {
  for (const std::string_view text : {"\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x98\x80"}) {
    EXPECT_EQ(Decode(text).length, text.size());
    for (std::size_t cut = 1; cut < text.size(); ++cut) EXPECT_EQ(Decode(text.substr(0, cut)).length, 0U);
  }
}

TEST(Utf8Test, EveryTrailByteMustBeOne) {
  for (const std::string_view text : {"\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x98\x80"}) {
    for (std::size_t at = 1; at < text.size(); ++at) {
      for (const char wrong : {'\0', 'A', '\x7F', '\xC0', '\xFF'}) {
        std::string broken(text);
        broken[at] = wrong;
        EXPECT_EQ(Decode(broken).length, 0U) << at;
      }
    }
  }
}

}  // namespace
