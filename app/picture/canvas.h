#pragma once

#include "app/picture/cairo_handles.h"
#include "app/picture/picture_format.h"

#include <iosfwd>

namespace App {

/// A page to draw on that becomes a file of a picture format. Lengths are pixels of 1/96 inch.
class Canvas {
 public:
  /// `out` must outlive the canvas. Throws `Failure` when there is no memory for a picture of this size.
  Canvas(PictureFormat format, double width, double height, std::ostream& out);

  [[nodiscard]] cairo_t* Context() const noexcept { return cairo_.get(); }

  /// Writes what has not been written yet; nothing can be drawn afterwards. Throws `Failure` when something
  /// could not be drawn; whether all could be written is for the stream to say.
  void Finish();

 private:
  PictureFormat format_;
  std::ostream& out_;
  CairoPtr<cairo_surface_t> surface_;
  CairoPtr<cairo_t> cairo_;
};

}  // namespace App
