#pragma once

#include "app/convert/feature.h"
#include "app/picture/canvas.h"
#include "app/picture/painter.h"
#include "tests/mif/mif_text.h"
#include <pelor/mif.h>

#include <cairo.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace App {

using MapObject = Pelor::MI::WObjRf<Pelor::MI::WObjBody>;

// The objects that a MIF text holds, clause by clause.
inline std::vector<MapObject> ReadObjects(const std::string& text) {
  Mif mif(text);
  std::vector<MapObject> objects;
  MapObject object;
  while (true) {
    Pelor::MIF::Read(object, mif.in, nullptr);
    if (object == nullptr) break;
    objects.push_back(object);
  }
  EXPECT_TRUE(mif.messages.empty());
  EXPECT_EQ(mif.Rest().find_first_not_of(" \n"), std::string::npos) << "not MIF: " << text;
  return objects;
}

// Gives the objects of a MIF text, each with the values of one row.
class MifSource : public FeatureSource {
 public:
  explicit MifSource(const std::string& text, std::vector<std::vector<Tobri::String>> rows = {})
      : objects_(ReadObjects(text)), rows_(std::move(rows)) {}

  [[nodiscard]] const Schema& GetSchema() const override { return schema; }
  [[nodiscard]] bool Next(Feature& feature, Account& account) override {
    if (next_ == objects_.size()) return false;
    feature.object = objects_[next_];
    feature.values = next_ < rows_.size() ? rows_[next_] : std::vector<Tobri::String>();
    feature.kind = "thing";
    feature.count = 1;
    feature.place = {static_cast<std::int64_t>(next_) + 1, 0};
    account.Read(feature.kind);
    ++next_;
    return true;
  }
  [[nodiscard]] std::int64_t Current() const override { return static_cast<std::int64_t>(next_); }
  [[nodiscard]] std::int64_t Total() const override { return static_cast<std::int64_t>(objects_.size()); }

  Schema schema;

 private:
  std::vector<MapObject> objects_;
  std::vector<std::vector<Tobri::String>> rows_;
  std::size_t next_ = 0;
};

// Pixels as 0xRRGGBB.
inline constexpr std::uint32_t kBlack = 0x000000;
inline constexpr std::uint32_t kWhite = 0xFFFFFF;
inline constexpr std::uint32_t kRed = 0xFF0000;
inline constexpr std::uint32_t kGreen = 0x00FF00;
inline constexpr std::uint32_t kBlue = 0x0000FF;

inline std::uint32_t PixelOf(cairo_surface_t* image, int x, int y) {
  cairo_surface_flush(image);
  const unsigned char* const at =
      cairo_image_surface_get_data(image) + y * cairo_image_surface_get_stride(image) + x * 4;
  // Native 32-bit words; the machines that run the tests are little-endian.
  return static_cast<std::uint32_t>(at[2]) << 16 | static_cast<std::uint32_t>(at[1]) << 8 | at[0];
}

// A white picture of 200 x 100 pixels in which the map point (x, y) lies at the picture point (x, 100 - y),
// so that a pixel (x, y) covers the map's square from (x, 99 - y) to (x + 1, 100 - y).
class Sheet {
 public:
  static constexpr int kWidth = 200;
  static constexpr int kHeight = 100;

  static Frame MakeSheetFrame(double scale = 1.0, Vanth::PointXY center = {100, 50}) {
    Frame frame;
    frame.width = kWidth;
    frame.height = kHeight;
    frame.map = {0, 0, kWidth, kHeight};
    frame.scale = scale;
    frame.center = center;
    return frame;
  }

  explicit Sheet(const std::string& text, const Frame& frame = MakeSheetFrame())
      : image_(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kWidth, kHeight)),
        cairo_(cairo_create(image_.get())) {
    SetColor(cairo_.get(), 0xFFFFFF);
    cairo_paint(cairo_.get());
    Painter painter(cairo_.get(), frame);
    for (const MapObject& object : ReadObjects(text)) all_drawn = painter.Draw(*object) && all_drawn;
    EXPECT_EQ(cairo_status(cairo_.get()), CAIRO_STATUS_SUCCESS);
  }

  [[nodiscard]] std::uint32_t At(int x, int y) const { return PixelOf(image_.get(), x, y); }
  [[nodiscard]] bool HasInk(int x, int y) const { return At(x, y) != kWhite; }
  // Pixels that are not white, from (left, top) up to, but not including, (right, bottom).
  [[nodiscard]] int Ink(int left = 0, int top = 0, int right = kWidth, int bottom = kHeight) const {
    int count = 0;
    for (int y = top; y < bottom; ++y) {
      for (int x = left; x < right; ++x) count += HasInk(x, y) ? 1 : 0;
    }
    return count;
  }
  // The pixels of a row, '#' for each that is not white.
  [[nodiscard]] std::string Row(int y, int left, int right) const {
    std::string row;
    for (int x = left; x < right; ++x) row += HasInk(x, y) ? '#' : '.';
    return row;
  }
  // The box around all pixels that are not white; left above right when there are none.
  [[nodiscard]] PictureBox InkBox() const {
    PictureBox box{kWidth, kHeight, 0, 0};
    for (int y = 0; y < kHeight; ++y) {
      for (int x = 0; x < kWidth; ++x) {
        if (!HasInk(x, y)) continue;
        box.left = std::min(box.left, double(x));
        box.top = std::min(box.top, double(y));
        box.right = std::max(box.right, x + 1.0);
        box.bottom = std::max(box.bottom, y + 1.0);
      }
    }
    return box;
  }

  bool all_drawn = true;

 private:
  CairoPtr<cairo_surface_t> image_;
  CairoPtr<cairo_t> cairo_;
};

}  // namespace App
