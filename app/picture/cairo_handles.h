#pragma once

#include <cairo.h>

#include <memory>

namespace App {

/// Gives a cairo object back.
struct CairoRelease {
  void operator()(cairo_t* cairo) const noexcept { cairo_destroy(cairo); }
  void operator()(cairo_surface_t* surface) const noexcept { cairo_surface_destroy(surface); }
  void operator()(cairo_pattern_t* pattern) const noexcept { cairo_pattern_destroy(pattern); }
  void operator()(cairo_font_options_t* options) const noexcept { cairo_font_options_destroy(options); }
  void operator()(cairo_glyph_t* glyphs) const noexcept { cairo_glyph_free(glyphs); }
};

template <class T>
using CairoPtr = std::unique_ptr<T, CairoRelease>;

/// What stands between a save and its restore in cairo's own terms.
class CairoScope {
 public:
  explicit CairoScope(cairo_t* cairo) noexcept : cairo_(cairo) { cairo_save(cairo_); }
  CairoScope(const CairoScope&) = delete;
  CairoScope& operator=(const CairoScope&) = delete;
  ~CairoScope() { cairo_restore(cairo_); }

 private:
  cairo_t* cairo_;
};

}  // namespace App
