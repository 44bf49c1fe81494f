#include "app/picture/picture_path.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace App {

namespace {

using Vanth::PointXY;

constexpr double kClosest = 0.1;  // pixels

PointXY Between(const PointXY& a, const PointXY& b, double t) {
  return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t};
}

}  // namespace

void PicturePath::Clear() noexcept {
  points_.clear();
  starts_.clear();
  is_all_visible_ = true;
}

void PicturePath::BeginPart() {
  starts_.push_back(points_.size());
}

void PicturePath::Add(const PointXY& point) {
  last_ = point;
  if (points_.size() > starts_.back()) {
    const PointXY& before = points_.back();
    if (std::fabs(point.x - before.x) < kClosest && std::fabs(point.y - before.y) < kClosest) return;
  }
  Keep(point);
}

void PicturePath::EndPart() {
  if (points_.size() > starts_.back() && points_.back() != last_) Keep(last_);
}

void PicturePath::Keep(const PointXY& point) {
  points_.push_back(point);
  is_all_visible_ = is_all_visible_ && visible_.Contains(point);
}

std::span<const PointXY> PicturePath::Part(std::size_t i) const noexcept {
  const std::size_t end = i + 1 < starts_.size() ? starts_[i + 1] : points_.size();
  return std::span(points_).subspan(starts_[i], end - starts_[i]);
}

bool PicturePath::IsVisible(std::span<const PointXY> part) const noexcept {
  return is_all_visible_ ||
         std::all_of(part.begin(), part.end(), [this](const PointXY& p) { return visible_.Contains(p); });
}

void PicturePath::AddTo(cairo_t* cairo, std::span<const PointXY> points) {
  cairo_move_to(cairo, points.front().x, points.front().y);
  for (const PointXY& point : points.subspan(1)) cairo_line_to(cairo, point.x, point.y);
}

void PicturePath::ToFill(cairo_t* cairo) {
  cairo_new_path(cairo);
  for (std::size_t i = 0; i < GetNParts(); ++i) {
    std::span<const PointXY> ring = Part(i);
    if (!IsVisible(ring)) ring = CutRing(ring);
    if (ring.size() < 3) continue;
    AddTo(cairo, ring);
    cairo_close_path(cairo);
  }
}

void PicturePath::Stroke(cairo_t* cairo, std::span<const double> dashes) {
  cairo_new_path(cairo);
  cairo_set_dash(cairo, dashes.data(), static_cast<int>(dashes.size()), 0.0);
  for (std::size_t i = 0; i < GetNParts(); ++i) {
    const std::span<const PointXY> part = Part(i);
    if (part.size() < 2 || !IsVisible(part)) continue;
    AddTo(cairo, part);
    if (part.front() == part.back()) cairo_close_path(cairo);
  }
  cairo_stroke(cairo);
  if (is_all_visible_) return;
  for (std::size_t i = 0; i < GetNParts(); ++i) {
    const std::span<const PointXY> part = Part(i);
    if (part.size() >= 2 && !IsVisible(part)) StrokeCut(cairo, part, dashes);
  }
}

void PicturePath::StrokeCut(cairo_t* cairo, std::span<const PointXY> part,
                            std::span<const double> dashes) const {
  const double period = std::accumulate(dashes.begin(), dashes.end(), 0.0);
  double length = 0.0;  // from the start of the part, over what is cut off, too
  bool is_drawing = false;
  const auto finish = [&] {
    if (is_drawing) cairo_stroke(cairo);
    is_drawing = false;
  };
  for (std::size_t i = 0; i + 1 < part.size(); ++i) {
    const PointXY& a = part[i];
    const PointXY& b = part[i + 1];
    const double segment = std::hypot(b.x - a.x, b.y - a.y);
    double from = 0.0;
    double to = 1.0;
    if (!CutSegment(a, b, from, to)) {
      finish();
    } else {
      if (from > 0) finish();
      if (!is_drawing) {
        const double offset = period > 0 ? std::fmod(length + from * segment, period) : 0.0;
        cairo_set_dash(cairo, dashes.data(), static_cast<int>(dashes.size()), offset);
        const PointXY start = Within(Between(a, b, from));
        cairo_move_to(cairo, start.x, start.y);
        is_drawing = true;
      }
      const PointXY end = Within(Between(a, b, to));
      cairo_line_to(cairo, end.x, end.y);
      if (to < 1) finish();
    }
    length += segment;
  }
  finish();
}

// The part of the segment within the box, by the method of Liang and Barsky.
bool PicturePath::CutSegment(const PointXY& a, const PointXY& b, double& from, double& to) const noexcept {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  const auto cut = [&](double direction, double distance) {
    if (direction == 0) return distance >= 0;
    const double t = distance / direction;
    if (direction < 0) {
      from = std::max(from, t);
    } else {
      to = std::min(to, t);
    }
    return from <= to;
  };
  return cut(-dx, a.x - visible_.left) && cut(dx, visible_.right - a.x) && cut(-dy, a.y - visible_.top) &&
         cut(dy, visible_.bottom - a.y);
}

// Rounding must not leave a cut outside, where the coordinates are large.
PointXY PicturePath::Within(const PointXY& p) const noexcept {
  return {std::clamp(p.x, visible_.left, visible_.right), std::clamp(p.y, visible_.top, visible_.bottom)};
}

// How far inside of one side a point lies.
double PicturePath::Depth(Side side, const PointXY& p) const noexcept {
  switch (side) {
    case Side::kLeft:
      return p.x - visible_.left;
    case Side::kRight:
      return visible_.right - p.x;
    case Side::kTop:
      return p.y - visible_.top;
    case Side::kBottom:
      break;
  }
  return visible_.bottom - p.y;
}

// The ring within the box: cut at one side after the other (Sutherland and Hodgman). What runs along the
// box's sides is outside of the picture, so it is never seen.
std::span<const PointXY> PicturePath::CutRing(std::span<const PointXY> ring) {
  cut_.assign(ring.begin(), ring.end());
  for (const Side side : {Side::kLeft, Side::kRight, Side::kTop, Side::kBottom}) {
    std::swap(cut_, cut_before_);
    CutRingAt(side, cut_before_, cut_);
  }
  return cut_;
}

void PicturePath::CutRingAt(Side side, std::span<const PointXY> ring, std::vector<PointXY>& result) const {
  result.clear();
  if (ring.empty()) return;
  const PointXY* before = &ring.back();
  double depth_before = Depth(side, *before);
  for (const PointXY& point : ring) {
    const double depth = Depth(side, point);
    if ((depth < 0) != (depth_before < 0)) {
      PointXY cut = Between(*before, point, depth_before / (depth_before - depth));
      // As with lines, but one side at a time: the other sides have yet to be cut at.
      if (side == Side::kLeft) cut.x = visible_.left;
      if (side == Side::kRight) cut.x = visible_.right;
      if (side == Side::kTop) cut.y = visible_.top;
      if (side == Side::kBottom) cut.y = visible_.bottom;
      result.push_back(cut);
    }
    if (depth >= 0) result.push_back(point);
    before = &point;
    depth_before = depth;
  }
}

}  // namespace App
