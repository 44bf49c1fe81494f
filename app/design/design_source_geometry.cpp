#include "app/design/design_source.h"
#include "app/design/element_geometry.h"
#include "app/design/skip_reasons.h"

#include <algorithm>
#include <utility>

namespace App {

using namespace Pelor;
using Vanth::PointXY;

bool DesignSource::ConvertLine(const ElementView& element) {
  const auto ends = Vertices::Decode(element);
  if (!ends) return Skip(Reason::kDamaged);
  const Uor3 start = (*ends)[0];
  const Uor3 end = (*ends)[1];
  if (element.Is3D() && (start.z != path_settings_.origin_z || end.z != path_settings_.origin_z)) {
    Note(Reason::kHeight);
  }
  if (start.x == end.x && start.y == end.y) {
    maker_.Point(*feature_, start.Plan(), MakePointSymbol(facts_.symbology, colors_));
  } else {
    maker_.Line(*feature_, start.Plan(), end.Plan(), facts_.symbology);
  }
  return Give();
}

// Line strings and shapes.
bool DesignSource::ConvertVertices(const ElementView& element) {
  if (!piece_.ReadVertices(element, path_settings_)) return Skip(Reason::kDamaged);
  if (piece_.has_height) Note(Reason::kHeight);
  if (facts_.type != DGN::ShapeType) return GiveLine(piece_.points);
  path_.Clear();
  (void)path_.Join(piece_);
  return GiveArea();
}

bool DesignSource::ConvertCurve(const ElementView& element) {
  // The first two and the last two points are not on the curve.
  constexpr std::size_t kBesides = 2;
  if (!piece_.ReadVertices(element, path_settings_)) return Skip(Reason::kDamaged);
  if (piece_.has_height) Note(Reason::kHeight);
  std::span<const PointXY> points = piece_.points;
  if (points.size() < 2 * kBesides + 2) {
    Note(Reason::kShortCurve);
    return GiveLine(points);
  }
  points = points.subspan(kBesides, points.size() - 2 * kBesides);
  maker_.PLine(*feature_, points, facts_.symbology, true);
  return Give();
}

bool DesignSource::ConvertEllipse(const ElementView& element) {
  const auto ellipse = PlanEllipse::Decode(element);
  if (!ellipse) return Skip(Reason::kDamaged);
  if (element.Is3D() && ellipse->HasHeight(path_settings_.origin_z)) Note(Reason::kHeight);
  const auto on_axes = options_.arcs_as_lines ? std::nullopt : AxisEllipse::Of(*ellipse);
  if (on_axes) {
    if (!ellipse->is_arc) {
      maker_.Ellipse(*feature_, *on_axes, facts_.symbology, facts_.linkages.fill_color);
    } else if (ellipse->IsFullTurn()) {
      // The ends of an arc on the map are at most one turn apart, so this one would have no length.
      maker_.Ellipse(*feature_, *on_axes, facts_.symbology, std::nullopt);
    } else {
      maker_.Arc(*feature_, *on_axes, facts_.symbology);
    }
    return Give();
  }
  (void)piece_.Read(element, path_settings_);
  Note(Reason::kFlattened);
  if (ellipse->is_arc) return GiveLine(piece_.points);
  path_.Clear();
  (void)path_.Join(piece_);
  path_.CloseExactly();
  return GiveArea();
}

// --- point strings

bool DesignSource::ConvertPointString(const ElementView& element) {
  if (!piece_.ReadVertices(element, path_settings_)) return Skip(Reason::kDamaged);
  if (piece_.points.empty()) return Skip(Reason::kNoPoints);
  if (piece_.has_height) Note(Reason::kHeight);
  // There is no map object of several points.
  account_->Assume("point strings are given as one point object for each of their points");
  const auto is_inside = [&](const PointXY& point) { return IsInWindow(maker_.ToMap(point)); };
  const auto inside = std::count_if(piece_.points.begin(), piece_.points.end(), is_inside);
  if (inside == 0) return Skip(Reason::kOutside);
  if (static_cast<std::size_t>(inside) != piece_.points.size()) Note(Reason::kPartOutside);
  next_point_ = 0;
  point_count_ = 1;
  return NextOfPointString();
}

bool DesignSource::NextOfPointString() {
  while (*next_point_ < piece_.points.size()) {
    const PointXY& point = piece_.points[(*next_point_)++];
    if (!IsInWindow(maker_.ToMap(point))) continue;
    maker_.Point(*feature_, point, MakePointSymbol(facts_.symbology, colors_));
    return GiveAlways(std::exchange(point_count_, 0));
  }
  next_point_.reset();
  return false;
}

// --- paths

// A polyline, or what is left of one.
bool DesignSource::GiveLine(std::span<const PointXY> points) {
  if (points.empty()) return Skip(Reason::kNoPoints);
  if (points.size() == 1) {
    maker_.Point(*feature_, points.front(), MakePointSymbol(facts_.symbology, colors_));
  } else {
    maker_.PLine(*feature_, points, facts_.symbology, false);
  }
  return Give();
}

// The area that the parts of the path bound.
bool DesignSource::GiveArea() {
  if (path_.HasHeight()) Note(Reason::kHeight);
  bool has_area = false;
  bool has_other = false;
  std::span<const PointXY> longest;
  for (std::size_t i = 0; i < path_.Parts(); ++i) {
    if (path_.HasArea(i)) {
      has_area = true;
    } else {
      has_other = true;
      if (path_.Part(i).size() > longest.size()) longest = path_.Part(i);
    }
  }
  if (has_area) {
    if (has_other) Note(Reason::kLostRing);
    maker_.Region(*feature_, path_, facts_.symbology, facts_.linkages.fill_color);
    return Give();
  }
  if (longest.empty()) return Skip(Reason::kNoPoints);
  Note(Reason::kNoArea);
  return GiveLine(longest);
}

bool DesignSource::ConvertComplex(const ComponentRun& run) {
  path_.Clear();
  path_.BeginPart();
  const int left_out = JoinComponents(run);
  if (path_.Part(0).empty()) {
    return Skip(left_out != 0 && notes_.empty() ? Reason::kDeleted : Reason::kNoComponents);
  }
  if (facts_.type == DGN::ComplexShapeType) {
    path_.CloseExactly();
    return GiveArea();
  }
  if (path_.HasHeight()) Note(Reason::kHeight);
  return GiveLine(path_.Part(0));
}

// Adds the components to the last part of the path. Gives how many are deleted and were not asked for.
int DesignSource::JoinComponents(const ComponentRun& run) {
  int components = 0;
  int left_out = 0;
  while (cursor_.Peek() && run.Takes(cursor_.Element(), cursor_.GetPlace())) {
    const ElementView& component = cursor_.Element();
    const DGN::EType type = component.Type();
    const bool is_left_out = IsLeftOut(component);
    cursor_.Take();
    ++components;
    bool is_read = false;
    if (type == DGN::BSplineCurveHeaderType) {
      is_read = ReadSpline(component, components);
      if (is_read) piece_.Read(spline_, path_settings_);
    } else if (type != DGN::BSplinePoleType) {
      is_read = piece_.Read(component, path_settings_);
    }
    if (is_left_out) {
      ++left_out;
      continue;
    }
    if (!is_read) {
      Note(Reason::kLostComponents);
      continue;
    }
    if (!piece_.is_exact || type == DGN::CurveType) Note(Reason::kFlattened);
    if (!path_.Join(piece_)) Note(Reason::kGap);
  }
  if (components < run.Told()) Note(Reason::kLostComponents);
  return left_out;
}

bool DesignSource::ConvertSpline(const ElementView& element) {
  int components = 0;
  if (!ReadSpline(element, components)) return Skip(Reason::kDamaged);
  piece_.Read(spline_, path_settings_);
  if (piece_.has_height) Note(Reason::kHeight);
  Note(Reason::kFlattened);
  return GiveLine(piece_.points);
}

// Takes the components of a B-spline whose header has been taken.
bool DesignSource::ReadSpline(const ElementView& header, int& components) {
  const ComponentRun run(header, cursor_.GetPlace());
  bool is_sound = spline_.Begin(header);
  while (cursor_.Peek() && run.Takes(cursor_.Element(), cursor_.GetPlace())) {
    is_sound = spline_.Add(cursor_.Element()) && is_sound;
    cursor_.Take();
    ++components;
  }
  return is_sound && spline_.IsComplete();
}

}  // namespace App
