#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <tests/app/design_conversion.h>
#include <tests/app/design_elements.h>

// Whatever becomes of a file, it is read to some end, everything in it is counted once, and nothing is
// touched that is not there (which is for the sanitizers to say).

namespace App {
namespace {

using app_test::Conversion;
using app_test::ConvertFile;
using app_test::DFloat;
using app_test::ElementBytes;
using app_test::Longs;

// Every kind of element that is converted, with attributes.
std::string Everything(bool is_3d) {
  const auto point = [&](std::int64_t x, std::int64_t y) { return is_3d ? Longs({x, y, x}) : Longs({x, y}); };
  const auto points = [&](int n) {
    std::string words;
    for (int i = 0; i < n; ++i) words += point(1000 * i, 500 * (i % 3));
    return words;
  };
  const std::string turn = is_3d ? "7FFF FFFF 0000*6 " : Longs({30 * 360000});
  const std::string center = DFloat(1e4) + DFloat(2e4) + (is_3d ? DFloat(3) : "");
  const std::string conic = DFloat(2e3) + DFloat(1e3) + turn + center;
  const auto component = [](int type, const std::string& body, unsigned properties = 0) {
    return ElementBytes({.type = type, .body = body, .component = true, .properties = properties});
  };
  const auto word = [](std::size_t value) {
    return app_test::Long(static_cast<std::int64_t>(value)).substr(5, 5);
  };
  const std::string text = "0207 " + Longs({100000, 150000}) + turn + point(5, 6) + "0003 4241 0043 ";
  const std::string attributes =
      "0000 0005 0102 0003 1007 0041 0802 0001 0002 0000*3 1007 5E62 0000 0007 0001 0002 0000*2";

  std::string all = ElementBytes({.type = 3, .body = points(2), .attributes = attributes});
  all += ElementBytes({.type = 4, .body = "0004 " + points(4), .attributes = attributes});
  all += ElementBytes({.type = 6, .body = "0004 " + points(4), .attributes = attributes});
  all += ElementBytes({.type = 11, .body = "0008 " + points(8)});
  all += ElementBytes({.type = 22, .body = "0002 " + points(2)});
  all += ElementBytes({.type = 15, .body = conic, .attributes = attributes});
  all += ElementBytes({.type = 16, .body = Longs({360000, 7200000}) + conic});
  all += ElementBytes({.type = 17, .body = text, .attributes = attributes});
  std::string components = component(17, text) + component(17, text);
  all += ElementBytes({.type = 7, .body = word(1 + components.size() / 2) + "0002 "}) + components;
  const std::string spline = component(27, "0000 0010 0002 0004 0000 ") + component(21, "0004 " + points(4));
  components = component(4, "0003 " + points(3)) + component(16, Longs({360000, 7200000}) + conic) + spline;
  all += ElementBytes({.type = 12, .body = word(1 + components.size() / 2) + "0004 "}) + components;
  all += ElementBytes({.type = 14, .body = word(1 + components.size() / 2) + "0004 "}) + components;
  all += spline;
  components = component(6, "0004 " + points(4)) + component(6, "0004 " + points(4), 0x8000);
  const std::size_t matrix = is_3d ? 18 : 10;
  const std::string cell = " 0000*5 0000*" + std::to_string(2 * matrix);
  const std::size_t header_words = 7 + 2 * matrix;
  all += ElementBytes({.type = 2, .body = word(header_words + components.size() / 2) + "0000 0000 " + cell}) +
         components;
  components += all.substr(0, 200);
  all += ElementBytes({.type = 2, .body = word(header_words + components.size() / 2) + "7FD5 1F5F " + cell}) +
         components;
  return all;
}

app_test::HeaderText Header(bool is_3d) {
  app_test::HeaderText header;
  header.is_3d = is_3d;
  return header;
}

TEST(DesignDamageTest, ReadsAllOfAWholeFile) {
  for (const bool is_3d : {false, true}) {
    const Conversion result = ConvertFile(app_test::DesignBytes(Everything(is_3d), Header(is_3d)));
    EXPECT_GE(result.objects.size(), 17U);
    EXPECT_EQ(result.Counts().find("damaged"), std::string::npos) << result.Counts();
    EXPECT_EQ(result.Counts().find("missing"), std::string::npos) << result.Counts();
  }
}

TEST(DesignDamageTest, ReadsWhatIsLeftOfAFileCutAnywhere) {
  for (const bool is_3d : {false, true}) {
    const std::string design = app_test::DesignBytes(Everything(is_3d), Header(is_3d));
    std::size_t objects = 0;
    for (std::size_t size = 1500; size < design.size(); size += is_3d ? 3 : 1) {
      const Conversion result = ConvertFile(design.substr(0, size));
      // A cut through a complex element may give fewer objects for a moment, but never many.
      EXPECT_GE(result.objects.size() + 3, objects) << size;
      objects = result.objects.size();
    }
    EXPECT_GE(objects, 16U);
  }
}

TEST(DesignDamageTest, SaysWhereAFileIsCut) {
  const std::string design = app_test::DesignBytes(ElementBytes({.type = 3, .body = Longs({0, 0, 1, 1})}));
  const Conversion cut = ConvertFile(design.substr(0, 1536 + 51));
  EXPECT_EQ(cut.Counts(), "Line 1=0+1 skipped{cut off by the end of the file 1}");
  EXPECT_EQ(ConvertFile(design.substr(0, 1536 + 2)).Counts(),
            "Line 1=0+1 skipped{cut off by the end of the file 1}");
  EXPECT_EQ(ConvertFile(design.substr(0, 1536 + 1)).Counts(), "");
}

TEST(DesignDamageTest, SurvivesFlippedBits) {
  for (const bool is_3d : {false, true}) {
    const std::string design = app_test::DesignBytes(Everything(is_3d), Header(is_3d));
    for (std::size_t bit = 1536 * 8; bit < design.size() * 8; bit += 37) {
      std::string damaged = design;
      damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ (1 << bit % 8));
      (void)ConvertFile(damaged);
    }
  }
}

TEST(DesignDamageTest, SurvivesRandomBytesCutsAndGlue) {
  std::mt19937 random(20240607);
  const auto below = [&](std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
  };
  const std::string designs[] = {app_test::DesignBytes(Everything(false)),
                                 app_test::DesignBytes(Everything(true), Header(true))};
  for (int round = 0; round < 600; ++round) {
    SCOPED_TRACE(round);
    std::string damaged = designs[below(2)];
    for (std::size_t i = below(12); i > 0; --i) {
      damaged[1000 + below(damaged.size() - 1000)] = static_cast<char>(below(4) == 0 ? 0xFF : below(256));
    }
    if (below(3) == 0) damaged.erase(1536 + below(400), below(30));
    if (below(3) == 0) damaged += designs[below(2)].substr(below(3000), 2000);
    DesignOptions options;
    options.cells = static_cast<CellMode>(below(3));
    options.with_deleted = below(2) == 0;
    options.arcs_as_lines = below(2) == 0;
    if (below(3) == 0) options.window = Vanth::BoundsXY(0, 0, 0.5, 0.5);
    (void)ConvertFile(damaged, options);
  }
}

}  // namespace
}  // namespace App
