#pragma once

#include "app/picture/brush_style.h"
#include "app/picture/curves.h"
#include "app/picture/frame.h"
#include "app/picture/pen_style.h"
#include "app/picture/picture_path.h"
#include <pelor/mi.h>

#include <cairo.h>

namespace App {

/// Draws map objects with their styles, on whatever surface stands behind the context.
class Painter {
 public:
  /// The context must outlive the painter. One user unit is a pixel of the frame.
  Painter(cairo_t* cairo, const Frame& frame);

  /// Draws an object whose coordinates Measure has found usable. False, and nothing drawn, for a text whose
  /// letters are far larger than the picture. The empty object draws nothing.
  bool Draw(const Pelor::MI::WObjBody& object);

 private:
  void Draw(const Pelor::MI::WLineBody& line);
  void Draw(const Pelor::MI::WPLineBody& line);
  void Draw(const Pelor::MI::WRegionBody& region);
  void Draw(const Pelor::MI::WArcBody& arc);
  void Draw(const Pelor::MI::WRectBody& rect);
  void Draw(const Pelor::MI::WRRectBody& rect);
  void Draw(const Pelor::MI::WEllipseBody& ellipse);

  void AddParts(const Pelor::MI::WPLineBody& line);
  void AddArc(const PictureEllipse& ellipse, const ArcSpan& span);
  [[nodiscard]] PictureEllipse ToPicture(const Vanth::RectXY& rect) const;
  void Stroke(const Pelor::MI::Pen& pen);
  void FillAndStroke(const Pelor::MI::W2DBody& area);
  void Dots(double width);

  cairo_t* cairo_;
  Frame frame_;
  PicturePath path_;
  BrushStyles brushes_;
  std::vector<Vanth::PointXY> smooth_;  // picture points of one part
};

}  // namespace App
