#include "app/picture/canvas.h"

#include "app/io/failure.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>

#include <ostream>
#include <string>

namespace App {

namespace {

constexpr double kPointsPerPixel = 0.75;

// Called from C: nothing may be thrown through it.
cairo_status_t Write(void* closure, const unsigned char* data, unsigned int length) noexcept {
  auto& out = *static_cast<std::ostream*>(closure);
  try {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes are written as chars
    out.write(reinterpret_cast<const char*>(data), length);
  } catch (...) {
    return CAIRO_STATUS_WRITE_ERROR;
  }
  return out ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

CairoPtr<cairo_surface_t> MakeSurface(PictureFormat format, double width, double height, std::ostream& out) {
  CairoPtr<cairo_surface_t> surface;
  switch (format) {
    case PictureFormat::kSvg:
      surface.reset(cairo_svg_surface_create_for_stream(Write, &out, width, height));
      cairo_svg_surface_set_document_unit(surface.get(), CAIRO_SVG_UNIT_PX);
      break;
    case PictureFormat::kPdf:
      surface.reset(cairo_pdf_surface_create_for_stream(Write, &out, width * kPointsPerPixel,
                                                        height * kPointsPerPixel));
      break;
    case PictureFormat::kPng:
      surface.reset(
          cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(width), static_cast<int>(height)));
      break;
  }
  return surface;
}

void ThrowOnError(cairo_status_t status) {
  // A write that failed is known to the stream, which knows the reason, too.
  if (status == CAIRO_STATUS_SUCCESS || status == CAIRO_STATUS_WRITE_ERROR) return;
  throw Failure(std::string("the picture cannot be drawn: ") + cairo_status_to_string(status));
}

}  // namespace

Canvas::Canvas(PictureFormat format, double width, double height, std::ostream& out)
    : format_(format), out_(out), surface_(MakeSurface(format, width, height, out)) {
  ThrowOnError(cairo_surface_status(surface_.get()));
  cairo_.reset(cairo_create(surface_.get()));
  if (format_ == PictureFormat::kPdf) cairo_scale(cairo_.get(), kPointsPerPixel, kPointsPerPixel);
  ThrowOnError(cairo_status(cairo_.get()));
}

void Canvas::Finish() {
  const cairo_status_t drawn = cairo_status(cairo_.get());
  cairo_.reset();
  ThrowOnError(drawn);
  if (format_ == PictureFormat::kPng) {
    ThrowOnError(cairo_surface_write_to_png_stream(surface_.get(), Write, &out_));
  }
  cairo_surface_finish(surface_.get());
  ThrowOnError(cairo_surface_status(surface_.get()));
}

}  // namespace App
