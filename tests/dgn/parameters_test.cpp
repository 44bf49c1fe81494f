#include <pelor/dgn/errors.h>
#include <pelor/dgn/file.h>
#include <pelor/dgn/parameters.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <ios>
#include <string>
#include <string_view>
#include <tests/dgn/element_bytes.h>
#include <tests/dgn/reported.h>
#include <tests/dgn/words.h>
#include <vector>

namespace {

using namespace Pelor::DGN;
using dgn_test::DesignOf;
using dgn_test::ElementBytes;
using dgn_test::Reported;
using dgn_test::TempFile;
using dgn_test::Texts;
using dgn_test::Words;

constexpr auto kIn = std::ios_base::in;
constexpr auto kInOut = std::ios_base::in | std::ios_base::out;

// Offsets in the element.
constexpr std::size_t kHeaderDouble = 30;
constexpr std::size_t kFirstUnit = 1108;
constexpr std::size_t kSubunits = 1112;
constexpr std::size_t kUors = 1116;
constexpr std::size_t kMasterName = 1120;
constexpr std::size_t kHeaderWord = 1214;
constexpr std::size_t kHeaderLongs = 1216;
constexpr std::size_t kOrigins = 1240;
constexpr std::size_t kFieldsEnd = 1264;

void Put(std::string& bytes, std::size_t offset, std::string_view words) {
  const std::string patch = Words(words);
  bytes.replace(offset, patch.size(), patch);
}

/// A design file header of type 9 with `body_words` words behind the first two: every byte is its own offset
/// (mod 251) unless it belongs to a field.
std::string DesignHeader(unsigned body_words = 766) {
  std::string bytes(4 + 2 * std::max(body_words, 640U), '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i % 251);
  Put(bytes, kHeaderDouble, "4140 0000 0000 0000");
  Put(bytes, kFirstUnit, "1234 5678");
  Put(bytes, kSubunits, "0000 03E8");
  Put(bytes, kUors, "0000 000A");
  bytes.replace(kMasterName, 4, "kmm ");
  Put(bytes, kHeaderWord, "BEEF");
  Put(bytes, kHeaderLongs, "0000 0001 0000 0002 0000 0003 FFFF FFFC 0000 0005 8000 0000");
  Put(bytes, kOrigins, "4580 0000 0000 0000 C120 0000 0000 0000 4080 0000 0000 0000");
  bytes.resize(4 + 2 * body_words);
  bytes[0] = 8;
  bytes[1] = 9;
  bytes[2] = static_cast<char>(body_words & 0xFFU);
  bytes[3] = static_cast<char>(body_words >> 8U);
  return bytes;
}

TEST(ParametersTest, StartsInvalidWithAZeroedBody) {
  const Parameters parameters;
  EXPECT_FALSE(parameters.valid);
  EXPECT_TRUE(parameters.master_name.IsEmpty());
  EXPECT_TRUE(parameters.subunit_name.IsEmpty());
  EXPECT_EQ(parameters.body, std::vector<char>(1556));
}

TEST(ParametersTest, ReadsEveryFieldFromItsOffset) {
  const std::string bytes = DesignHeader();
  const TempFile design(DesignOf(bytes));
  File file(design.Name(), kIn);
  const Parameters parameters(file);
  EXPECT_TRUE(parameters.valid);
  EXPECT_EQ(parameters.first_unit, 0x12345678);
  EXPECT_EQ(parameters.subunits_per_master, 1000);
  EXPECT_EQ(parameters.uors_per_subunit, 10);
  EXPECT_EQ(parameters.master_name, "km");
  EXPECT_EQ(parameters.subunit_name, "m ");
  EXPECT_EQ(parameters.origin1, 1024.0);
  EXPECT_EQ(parameters.origin2, -2.5);
  EXPECT_EQ(parameters.origin3, 1.0);
  EXPECT_EQ(parameters.header_double, 3.0);
  const std::int32_t longs[] = {1, 2, 3, -4, 5, -2147483647 - 1};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(parameters.header_longs[i], longs[i]) << i;
  EXPECT_EQ(parameters.header_word, 0xBEEF);
  std::string body = bytes.substr(4);
  body.resize(1556, '\0');
  EXPECT_EQ(std::string(parameters.body.begin(), parameters.body.end()), body);
  EXPECT_TRUE(file.good());
}

TEST(ParametersTest, AThousandSubunitsOfTenGiveTenThousandPerMasterUnit) {
  const TempFile design(DesignOf(DesignHeader()));
  File file(design.Name(), kIn);
  const Parameters parameters(file);
  EXPECT_EQ(parameters.uors_per_master, 10000);
  EXPECT_EQ(parameters.scale, 0.0001);
}

TEST(ParametersTest, AZeroInEitherUnitGivesTheScaleOne) {
  for (const std::size_t offset : {kSubunits, kUors}) {
    std::string bytes = DesignHeader();
    Put(bytes, offset, "0000 0000");
    const TempFile design(DesignOf(bytes));
    File file(design.Name(), kIn);
    const Parameters parameters(file);
    EXPECT_EQ(parameters.uors_per_master, 0);
    EXPECT_EQ(parameters.scale, 1.0);
  }
}

TEST(ParametersTest, AProductBeyondThirtyTwoBitsKeepsItsLowBits) {
  std::string bytes = DesignHeader();
  Put(bytes, kSubunits, "0001 0000 0001 0003");
  const TempFile design(DesignOf(bytes));
  File file(design.Name(), kIn);
  const Parameters parameters(file);
  EXPECT_EQ(parameters.uors_per_master, 0x30000);
  EXPECT_EQ(parameters.scale, 1.0 / 0x30000);
}

TEST(ParametersTest, ReadingAnotherTypeIsRefused) {
  const TempFile design(DesignOf(DesignHeader() + ElementBytes(3, "0000 0000 0000 0000")));
  File file(design.Name(), kIn);
  Parameters parameters(file);
  file.Next(false);
  EXPECT_THROW(parameters.Read(file), BadTypeErr);
  EXPECT_FALSE(parameters.valid);
  EXPECT_EQ(parameters.uors_per_master, 10000);
  Parameters fresh;
  EXPECT_EQ(Reported([&] { fresh.Read(file); }), Texts{"Incorrect Element Type"});
  EXPECT_FALSE(fresh.valid);
}

TEST(ParametersTest, MadeFromAFileTheyHaveABodyOnlyOnceTheyAreRead) {
  const TempFile design(DesignOf(ElementBytes(3, "0000 0000 0000 0000")));
  File file(design.Name(), kIn);
  const Texts reported = Reported([&file] {
    const Parameters parameters(file);
    EXPECT_TRUE(parameters.body.empty());
    EXPECT_FALSE(parameters.valid);
  });
  EXPECT_EQ(reported, Texts{"Incorrect Element Type"});
}

TEST(ParametersTest, WritingAnotherTypeIsRefused) {
  const std::string bytes = ElementBytes(3, "0000 0000 0000 0000");
  const TempFile design(DesignOf(bytes));
  const Texts reported = Reported([&design] {
    File file(design.Name(), kInOut);
    Parameters().Write(file);
  });
  EXPECT_EQ(reported, Texts{"Incorrect Element Type"});
  EXPECT_EQ(design.Content(), bytes + "\xFF\xFF");
}

TEST(ParametersTest, WritesTheBodyAndEveryFieldButTheHeaderWord) {
  const TempFile design(DesignOf(DesignHeader()));
  {
    File file(design.Name(), kInOut);
    Parameters parameters(file);
    parameters.header_double = -2.5;
    parameters.first_unit = -1;
    parameters.subunits_per_master = 12;
    parameters.uors_per_subunit = 100;
    parameters.uors_per_master = 777;
    parameters.master_name = "f";
    parameters.subunit_name = "inch";
    parameters.header_word = 0x1111;
    for (int i = 0; i < 6; ++i) parameters.header_longs[i] = 16 + i;
    parameters.origin1 = 1.0;
    parameters.origin2 = 1024.0;
    parameters.origin3 = 3.0;
    parameters.body[96] = 'x';
    parameters.Write(file);
    EXPECT_TRUE(file.good());
  }
  std::string expected = DesignHeader();
  expected[100] = 'x';
  Put(expected, kHeaderDouble, "C120 0000 0000 0000");
  Put(expected, kFirstUnit, "FFFF FFFF 0000 000C 0000 0064");
  expected.replace(kMasterName, 4, std::string_view("f\0in", 4));
  Put(expected, kHeaderLongs, "0000 0010 0000 0011 0000 0012 0000 0013 0000 0014 0000 0015");
  Put(expected, kOrigins, "4080 0000 0000 0000 4580 0000 0000 0000 4140 0000 0000 0000");
  EXPECT_EQ(design.Content(), expected + "\xFF\xFF");
}

TEST(ParametersTest, WithoutABodyOnlyTheFieldsAreWritten) {
  const TempFile design(DesignOf(DesignHeader()));
  {
    File file(design.Name(), kInOut);
    Parameters parameters(file);
    parameters.body.clear();
    parameters.Write(file);
  }
  EXPECT_EQ(design.Content(), DesignHeader() + "\xFF\xFF");
}

TEST(ParametersTest, ALongerHeaderIsCutToTheBodyCopy) {
  const std::string bytes = DesignHeader(800) + ElementBytes(3, "0000 0000 0000 0000");
  const TempFile design(DesignOf(bytes));
  {
    File file(design.Name(), kInOut);
    Parameters parameters(file);
    EXPECT_EQ(std::string(parameters.body.begin(), parameters.body.end()), bytes.substr(4, 1556));
    parameters.body.back() = 'x';
    parameters.Write(file);
    EXPECT_TRUE(file.good());
  }
  std::string expected = bytes;
  expected[4 + 1555] = 'x';
  EXPECT_EQ(design.Content(), expected + "\xFF\xFF");
}

TEST(ParametersTest, AHeaderTooShortForAFieldKeepsItsDefaultAndFailsTheStream) {
  struct {
    unsigned body_words;
    bool has_double;
    bool has_units;
    bool has_names;
    bool has_origins;
  } const cases[] = {
      {0, false, false, false, false},  {16, false, false, false, false}, {17, true, false, false, false},
      {557, true, false, false, false}, {558, true, true, false, false},  {560, true, true, true, false},
      {629, true, true, true, false},   {630, true, true, true, true},
  };
  const std::string next = ElementBytes(3, std::string(3000, '1'));
  for (const auto& c : cases) {
    const std::string bytes = DesignHeader(c.body_words) + next;
    const TempFile design(DesignOf(bytes));
    {
      File file(design.Name(), kInOut);
      const Parameters parameters(file);
      EXPECT_TRUE(parameters.valid) << c.body_words;
      EXPECT_EQ(file.good(), c.has_origins) << c.body_words;
      EXPECT_EQ(parameters.header_double, c.has_double ? 3.0 : 0.0) << c.body_words;
      EXPECT_EQ(parameters.uors_per_master, c.has_units ? 10000 : 0) << c.body_words;
      EXPECT_EQ(parameters.scale, c.has_units ? 0.0001 : 1.0) << c.body_words;
      EXPECT_EQ(parameters.subunit_name, c.has_names ? "m " : "") << c.body_words;
      EXPECT_EQ(parameters.origin3, c.has_origins ? 1.0 : 0.0) << c.body_words;
      file.clear();
      parameters.Write(file);
      EXPECT_EQ(file.good(), c.has_origins) << c.body_words;
    }
    EXPECT_EQ(design.Content(), bytes + "\xFF\xFF") << c.body_words;
  }
}

TEST(ParametersTest, AFileCutAnywhereFailsTheStreamAndNothingElse) {
  const std::string whole = DesignHeader();
  for (std::size_t size = 0; size <= whole.size(); size += size < 40 || size > 1100 ? 1 : 53) {
    const TempFile design(whole.substr(0, size));
    File file(design.Name(), kIn);
    Parameters parameters;
    (void)Reported([&] { parameters.Read(file); });
    EXPECT_EQ(file.fail(), size < whole.size()) << size;
    // What stands before the cut is read, once the headers are whole.
    EXPECT_EQ(parameters.valid, size >= 2) << size;
    EXPECT_EQ(parameters.header_double, size >= kHeaderDouble + 8 ? 3.0 : 0.0) << size;
    EXPECT_EQ(parameters.uors_per_master, size >= kUors + 4 ? 10000 : 0) << size;
    EXPECT_EQ(parameters.origin3, size >= kFieldsEnd ? 1.0 : 0.0) << size;
  }
}

TEST(ParametersTest, SearchReadsAFirstElementWithoutMovingOn) {
  const TempFile design(DesignOf(DesignHeader() + ElementBytes(3, "0000 0000 0000 0000")));
  File file(design.Name(), kIn);
  file.Next(false);
  Parameters parameters;
  parameters.Search(file);
  EXPECT_TRUE(parameters.valid);
  EXPECT_EQ(parameters.uors_per_master, 10000);
  EXPECT_EQ(file.CurrentPosition(), 0);
}

TEST(ParametersTest, SearchSkipsComponentsOnItsWay) {
  // A cell header whose description of 18 more words hides a design file header.
  const std::string cell = ElementBytes(2, "0012");
  const std::string hidden = std::string("\x88\x09\x10\x00", 4) + std::string(32, '\0');
  const TempFile design(DesignOf(cell + hidden + DesignHeader()));
  File file(design.Name(), kIn);
  Parameters parameters;
  parameters.Search(file);
  EXPECT_TRUE(parameters.valid);
  EXPECT_EQ(file.CurrentPosition(), static_cast<std::int64_t>(cell.size() + hidden.size()));
}

TEST(ParametersTest, SearchWithoutADesignHeaderReportsNothing) {
  const TempFile design(DesignOf(ElementBytes(3, "0000 0000 0000 0000")));
  File file(design.Name(), kIn);
  Parameters parameters;
  parameters.valid = true;
  parameters.Search(file);
  EXPECT_FALSE(parameters.valid);
  EXPECT_TRUE(file.AtEnd());
  EXPECT_TRUE(file.good());
}

}  // namespace
