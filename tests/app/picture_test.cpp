#include "app/picture/picture.h"

#include "app/io/failure.h"
#include "app/picture/scale_bar.h"
#include "tests/app/failure_text.h"
#include "tests/app/picture_tools.h"

#include <cstring>
#include <sstream>

namespace App {
namespace {

// A picture file in memory, with what went into it.
struct Drawn {
  std::string bytes;
  Account account;
  int opened = 0;
};

Drawn Draw(const std::string& text, const PictureOptions& options, PictureFormat format,
           std::vector<std::vector<Tobri::String>> rows = {}, const Schema& schema = {}) {
  Drawn drawn;
  std::ostringstream out;
  const SourceOpener open = [&] {
    auto source = std::make_unique<MifSource>(text, rows);
    source->schema = schema;
    ++drawn.opened;
    return source;
  };
  WritePicture(open, options, format, out, drawn.account);
  drawn.bytes = out.str();
  return drawn;
}

// A PNG picture, read back.
class Png {
 public:
  explicit Png(const std::string& bytes) : bytes_(bytes) {
    image_.reset(cairo_image_surface_create_from_png_stream(Read, this));
    EXPECT_EQ(cairo_surface_status(image_.get()), CAIRO_STATUS_SUCCESS);
  }
  [[nodiscard]] int Width() const { return cairo_image_surface_get_width(image_.get()); }
  [[nodiscard]] int Height() const { return cairo_image_surface_get_height(image_.get()); }
  [[nodiscard]] std::uint32_t At(int x, int y) const { return PixelOf(image_.get(), x, y); }
  [[nodiscard]] int Alpha(int x, int y) const {
    return cairo_image_surface_get_data(
        image_.get())[y * cairo_image_surface_get_stride(image_.get()) + x * 4 + 3];
  }

 private:
  static cairo_status_t Read(void* closure, unsigned char* data, unsigned int length) {
    auto& png = *static_cast<Png*>(closure);
    if (png.bytes_.size() - png.place_ < length) return CAIRO_STATUS_READ_ERROR;
    std::memcpy(data, png.bytes_.data() + png.place_, length);
    png.place_ += length;
    return CAIRO_STATUS_SUCCESS;
  }

  std::string bytes_;
  std::size_t place_ = 0;
  CairoPtr<cairo_surface_t> image_;
};

// Two squares side by side: red from (0, 0), blue from (100, 0), each 100 wide.
constexpr char kTwoSquares[] =
    "Rect 0 0 100 100\nPen (1,1,0) Brush (2,16711680,0)\nRect 100 0 200 100\nPen (1,1,0) Brush (2,255,0)\n";

PictureOptions SmallPicture() {
  PictureOptions options;
  options.width = 240;
  options.margin = 20;
  return options;
}

TEST(PictureTest, ShowsTheWholeExtentWithinItsMargin) {
  const Drawn drawn = Draw(kTwoSquares, SmallPicture(), PictureFormat::kPng);
  const Png png(drawn.bytes);
  ASSERT_EQ(png.Width(), 240);
  ASSERT_EQ(png.Height(), 20 + 100 + 20 + static_cast<int>(kScaleBarHeight));
  EXPECT_EQ(png.At(19, 70), kWhite);
  EXPECT_EQ(png.At(20, 20), kRed);
  EXPECT_EQ(png.At(119, 119), kRed);
  EXPECT_EQ(png.At(120, 20), kBlue);
  EXPECT_EQ(png.At(219, 119), kBlue);
  EXPECT_EQ(png.At(220, 70), kWhite);
  EXPECT_EQ(png.At(70, 19), kWhite);
  EXPECT_EQ(png.At(70, 120), kWhite);
  EXPECT_EQ(drawn.opened, 2);
  EXPECT_EQ(drawn.account.GetRead(), 2);
  EXPECT_EQ(drawn.account.GetWritten(), 2);
}

TEST(PictureTest, HasAScaleBarBelowTheMap) {
  // At most a quarter of the map's 200 pixels: 50 units, the left half of the bar black.
  const Png png(Draw(kTwoSquares, SmallPicture(), PictureFormat::kPng).bytes);
  const auto middle = [&](int x) {
    int dark = 0;
    for (int y = 121; y < png.Height(); ++y) dark = std::max(dark, png.At(x, y) == kBlack ? 1 : 0);
    return dark;
  };
  EXPECT_EQ(middle(18), 0);
  EXPECT_EQ(middle(30), 1);
  EXPECT_EQ(middle(44), 1);
  EXPECT_EQ(middle(70), 1);  // its right end
  EXPECT_EQ(middle(73), 0);
}

TEST(PictureTest, AWindowCutsTheMapAndSparesTheFirstPass) {
  PictureOptions options = SmallPicture();
  options.window = Vanth::BoundsXY(50, 20, 110, 50);
  const Drawn drawn =
      Draw(std::string(kTwoSquares) + "Line 0 80 200 80\nPen (3,2,0)\n", options, PictureFormat::kPng);
  const Png png(drawn.bytes);
  ASSERT_EQ(png.Height(), 20 + 100 + 20 + static_cast<int>(kScaleBarHeight));
  EXPECT_EQ(png.At(19, 70), kWhite);
  EXPECT_EQ(png.At(20, 70), kRed);
  EXPECT_EQ(png.At(185, 70), kRed);  // 50 units of 3.33 pixels are red
  EXPECT_EQ(png.At(188, 70), kBlue);
  EXPECT_EQ(png.At(219, 70), kBlue);
  EXPECT_EQ(png.At(221, 70), kWhite);
  EXPECT_EQ(png.At(100, 18), kWhite);
  EXPECT_EQ(png.At(100, 122), kWhite);
  EXPECT_EQ(drawn.opened, 1);
  EXPECT_EQ(drawn.account.GetKinds().at("thing").skip_reasons.at(std::string(kOutside)).count, 1);
  EXPECT_EQ(drawn.account.GetWritten(), 2);
}

TEST(PictureTest, TheBackgroundHasItsColour) {
  PictureOptions options = SmallPicture();
  options.background = 0x00FF00;
  const Png green(Draw(kTwoSquares, options, PictureFormat::kPng).bytes);
  EXPECT_EQ(green.At(0, 0), kGreen);
  EXPECT_EQ(green.Alpha(0, 0), 255);
  options.background = -1;
  const Png none(Draw(kTwoSquares, options, PictureFormat::kPng).bytes);
  EXPECT_EQ(none.Alpha(0, 0), 0);
  EXPECT_EQ(none.Alpha(50, 50), 255);
}

TEST(PictureTest, TheScaleBarShowsOnADarkBackground) {
  PictureOptions options = SmallPicture();
  options.background = 0;
  const Png png(Draw(kTwoSquares, options, PictureFormat::kPng).bytes);
  int white = 0;
  for (int y = 121; y < png.Height(); ++y) white += png.At(30, y) == kWhite ? 1 : 0;
  EXPECT_GE(white, 5);
}

TEST(PictureTest, FeaturesWithoutNumbersAreCountedAndDoNotSpoilTheExtent) {
  const Drawn drawn = Draw(std::string(kTwoSquares) + "Rect 0 0 1e300 100\nPen (1,2,0)\n", SmallPicture(),
                           PictureFormat::kPng);
  const Png png(drawn.bytes);
  EXPECT_EQ(png.At(119, 70), kRed);
  EXPECT_EQ(png.At(120, 70), kBlue);
  const Account::Kind& kind = drawn.account.GetKinds().at("thing");
  EXPECT_EQ(kind.read, 3);
  EXPECT_EQ(kind.written, 2);
  EXPECT_EQ(kind.skip_reasons.at(std::string(kNoNumbers)).count, 1);
  EXPECT_EQ(kind.skip_reasons.at(std::string(kNoNumbers)).places.at(0).number, 3);
}

TEST(PictureTest, LevelsAreChosenByTheirColumn) {
  Schema schema;
  schema.columns = {{"Name", Pelor::MI::Character_t(), 10, 0}, {"LEVEL", Pelor::MI::SmallInt_t(), 0}};
  PictureOptions options = SmallPicture();
  options.levels = ParseLevels("1,7-9");
  const Drawn drawn = Draw(std::string(kTwoSquares) + "Rect 0 0 900 900\nPen (1,1,0) Brush (2,0,0)\n",
                           options, PictureFormat::kPng, {{"a", "6"}, {"b", "7"}, {"c", ""}}, schema);
  const Png png(drawn.bytes);
  // The blue square alone fills the map.
  EXPECT_EQ(png.At(20, 20), kBlue);
  EXPECT_EQ(png.At(219, 219), kBlue);
  EXPECT_EQ(drawn.account.GetKinds().at("thing").skip_reasons.at(std::string(kOtherLevel)).count, 2);
}

TEST(PictureTest, TheColumnOfLevelsMayBeTheFirst) {
  Schema schema;
  schema.columns = {{"level", Pelor::MI::SmallInt_t(), 0}};
  PictureOptions options = SmallPicture();
  options.levels = ParseLevels("7");
  const Drawn drawn = Draw(kTwoSquares, options, PictureFormat::kPng, {{"6"}, {"7"}}, schema);
  EXPECT_EQ(Png(drawn.bytes).At(20, 20), kBlue);
}

TEST(PictureTest, LevelsNeedAColumn) {
  PictureOptions options = SmallPicture();
  options.levels = ParseLevels("1");
  EXPECT_EQ(FailureText([&] { Draw(kTwoSquares, options, PictureFormat::kPng); }),
            "levels cannot be chosen: there is no column named Level");
}

TEST(PictureTest, NothingToDrawIsAnEmptyPicture) {
  const Png png(Draw("", SmallPicture(), PictureFormat::kPng).bytes);
  EXPECT_EQ(png.Width(), 240);
  EXPECT_EQ(png.At(120, 100), kWhite);
}

TEST(PictureTest, SvgHoldsTheColoursAndTheSize) {
  const std::string svg = Draw(std::string(kTwoSquares) + "Line 0 50 200 50\nPen (3,6,65280)\n",
                               SmallPicture(), PictureFormat::kSvg)
                              .bytes;
  EXPECT_EQ(svg.rfind("<?xml", 0), 0U);
  EXPECT_NE(svg.find("width=\"240px\" height=\"168px\""), std::string::npos) << svg.substr(0, 300);
  EXPECT_NE(svg.find("rgb(100%,0%,0%)"), std::string::npos);
  EXPECT_NE(svg.find("rgb(0%,0%,100%)"), std::string::npos);
  EXPECT_NE(svg.find("stroke-dasharray:18,9"), std::string::npos);
  EXPECT_NE(svg.find("stroke-width:3"), std::string::npos);
  EXPECT_NE(svg.find("</svg>"), std::string::npos);
}

TEST(PictureTest, PdfPagesAreInPoints) {
  const std::string pdf = Draw(kTwoSquares, SmallPicture(), PictureFormat::kPdf).bytes;
  EXPECT_EQ(pdf.rfind("%PDF-", 0), 0U);
  EXPECT_NE(pdf.find("/MediaBox [ 0 0 180 126 ]"), std::string::npos);
  EXPECT_NE(pdf.find("%%EOF"), std::string::npos);
}

TEST(PictureTest, AFullDiskShowsInTheStream) {
  std::ostringstream out;
  out.setstate(std::ios::badbit);
  Account account;
  for (const PictureFormat format : {PictureFormat::kSvg, PictureFormat::kPng, PictureFormat::kPdf}) {
    WritePicture([] { return std::make_unique<MifSource>(kTwoSquares); }, SmallPicture(), format, out,
                 account);
    EXPECT_FALSE(out);
  }
}

TEST(PictureFormatTest, FollowsFromTheExtension) {
  EXPECT_EQ(FormatOf("a/b.svg"), PictureFormat::kSvg);
  EXPECT_EQ(FormatOf("b.PNG"), PictureFormat::kPng);
  EXPECT_EQ(FormatOf("b.x.Pdf"), PictureFormat::kPdf);
  for (const char* name : {"map.gif", "map", ".svg", "map.svgz"}) {
    EXPECT_EQ(FailureText([&] { (void)FormatOf(name); }),
              std::string(name) + ": the name of a picture ends in .svg, .png or .pdf");
  }
}

TEST(ParseColorTest, KnowsNamesAndNumbers) {
  const std::pair<const char*, const char*> names[] = {
      {"black", "#000000"},   {"silver", "#c0c0c0"},  {"gray", "#808080"},  {"grey", "#808080"},
      {"white", "#ffffff"},   {"maroon", "#800000"},  {"red", "#ff0000"},   {"purple", "#800080"},
      {"fuchsia", "#ff00ff"}, {"magenta", "#ff00ff"}, {"green", "#008000"}, {"lime", "#00ff00"},
      {"olive", "#808000"},   {"yellow", "#ffff00"},  {"navy", "#000080"},  {"blue", "#0000ff"},
      {"teal", "#008080"},    {"aqua", "#00ffff"},    {"cyan", "#00ffff"},  {"orange", "#ffa500"},
      {"beige", "#f5f5dc"},   {"ivory", "#fffff0"},
  };
  for (const auto& [name, number] : names) EXPECT_EQ(ParseColor(name), ParseColor(number)) << name;
  EXPECT_EQ(ParseColor("Red"), 0x0000FF);
  EXPECT_EQ(ParseColor("#1a2B3c"), 0x3C2B1A);
  EXPECT_EQ(ParseColor("none"), -1);
  for (const char* text : {"", "#", "#12345", "#1234567", "#12345g", "reddish", "0xFFFFFF"}) {
    EXPECT_EQ(
        FailureText([&] { (void)ParseColor(text); }),
        "\"" + std::string(text) + "\" is no colour: give a name such as white or gray, #rrggbb, or none");
  }
}

TEST(IsDarkTest, WeighsColoursAsTheEyeDoes) {
  EXPECT_TRUE(IsDark(ParseColor("black")));
  EXPECT_TRUE(IsDark(ParseColor("blue")));
  EXPECT_TRUE(IsDark(ParseColor("red")));
  EXPECT_FALSE(IsDark(ParseColor("lime")));
  EXPECT_FALSE(IsDark(ParseColor("white")));
  EXPECT_TRUE(IsDark(ParseColor("#7f7f7f")));
  // Red counts 0.299, green 0.587, blue 0.114.
  EXPECT_TRUE(IsDark(ParseColor("#00da00")));
  EXPECT_FALSE(IsDark(ParseColor("#00db00")));
  EXPECT_TRUE(IsDark(ParseColor("#ff5800")));
  EXPECT_FALSE(IsDark(ParseColor("#ff5900")));
  EXPECT_TRUE(IsDark(ParseColor("#00a8ff")));
  EXPECT_FALSE(IsDark(ParseColor("#00a9ff")));
  EXPECT_FALSE(IsDark(ParseColor("gray")));
  EXPECT_FALSE(IsDark(ParseColor("none")));
}

}  // namespace
}  // namespace App
