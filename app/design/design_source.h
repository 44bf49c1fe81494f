#pragma once

#include "app/convert/feature.h"
#include "app/convert/number_set.h"
#include "app/design/bspline.h"
#include "app/design/cell_header.h"
#include "app/design/color_table.h"
#include "app/design/component_run.h"
#include "app/design/design_columns.h"
#include "app/design/design_header.h"
#include "app/design/element_cursor.h"
#include "app/design/element_path.h"
#include "app/design/object_maker.h"
#include "app/design/text_decoder.h"
#include <pelor/mi.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace App {

/// What becomes of cells, except those that are an area with holes.
enum class CellMode : std::uint8_t {
  kExplode,  ///< their components
  kPoint,    ///< a point at the origin
  kBoth,
};

/// How the elements of a design become features.
struct DesignOptions {
  DesignUnits units = DesignUnits::kMaster;
  double tolerance = 0.0;  ///< of chords, in these units; 0 for one chosen by the size of each curve
  bool arcs_as_lines = false;
  CellMode cells = CellMode::kExplode;
  bool with_deleted = false;
  bool keep_color_0 = false;  ///< else colour index 0 is given as black
  std::vector<DesignColumn> columns = AllDesignColumns();
  std::string charset;  ///< of the texts, as `TextDecoder` takes it
  /// Of the schema and of all objects; may be null.
  Tobri::IRefC<Pelor::MI::CoordSys> system;

  // What is chosen; by default everything. A component of a cell is chosen by its own level and class, and by
  // its own type or that of the cell.

  NumberSet types = NumberSet::All();
  NumberSet levels = NumberSet::All();
  NumberSet classes = NumberSet::All();
  std::optional<Vanth::BoundsXY> window;  ///< in output units; what touches it is chosen
};

/// Gives the elements of a design file as features.
///
/// What the account counts are elements: a chain, a complex shape, a text node, a B-spline curve and a cell
/// that is an area count as one, with their components. The components of other cells count on their own, and
/// such a cell counts as written when any of them is given. Of a point string every point is one feature, the
/// first of which counts.
class DesignSource : public FeatureSource {
 public:
  /// Throws `Failure` when the file cannot be opened.
  DesignSource(const Input& input, DesignOptions options);

  [[nodiscard]] const Schema& GetSchema() const override { return schema_; }
  [[nodiscard]] bool Next(Feature& feature, Account& account) override;
  [[nodiscard]] std::int64_t Current() const override { return cursor_.Current(); }
  [[nodiscard]] std::int64_t Total() const override { return cursor_.Total(); }

  [[nodiscard]] const DesignHeader& GetHeader() const noexcept { return header_; }
  [[nodiscard]] const ColorTable& GetColors() const noexcept { return colors_; }

 private:
  // A cell, surface or solid whose components are being given.
  struct Group {
    ComponentRun run;
    std::string cell;
    LinkageFacts linkages;
    std::string_view kind;
    Place place;
    bool is_type_chosen = false;
    bool is_deleted = false;
    bool is_boundary = false;     // a surface or solid, which is given as its boundary
    bool is_counted = false;      // in the account already
    bool is_written = false;      // and so for its components
    std::string_view not_chosen;  // why the header itself was not chosen; empty when it was
    std::string_view left_out;    // why components were skipped; empty when none was
  };

  void FindColors();
  void SayWhatIsAssumed();
  void PopGroups(std::size_t left);
  void PushGroup(const ComponentRun& run, std::string cell);
  void CountGroup(Group& group, std::string_view skip_reason);
  [[nodiscard]] static std::string_view WhyNothingGiven(const Group& group) noexcept;
  static void LeaveOut(Group& group, std::string_view reason) noexcept;
  void SkipComponents(const ComponentRun& run);

  // Each of these takes the element, which is the current one, and its components; true when it gave a
  // feature.

  bool Convert();
  bool ConvertByType(const ElementView& element, const ComponentRun& run);
  bool SkipWithoutGraphics(const ElementView& element, const ComponentRun& run);
  bool ConvertLine(const ElementView& element);
  bool ConvertPointString(const ElementView& element);
  bool ConvertVertices(const ElementView& element);
  bool ConvertCurve(const ElementView& element);
  bool ConvertEllipse(const ElementView& element);
  bool ConvertText(const ElementView& element);
  bool ConvertTextNode(const ComponentRun& run);
  bool ConvertComplex(const ComponentRun& run);
  bool ConvertSpline(const ElementView& element);
  bool ConvertCell(const ElementView& element, const ComponentRun& run);
  bool ConvertCellWithHoles(const ComponentRun& run);
  bool ConvertSurface(const ComponentRun& run);

  bool NextOfPointString();
  bool GiveLine(std::span<const Vanth::PointXY> points);
  bool GiveArea();
  int JoinComponents(const ComponentRun& run);
  [[nodiscard]] bool ReadSpline(const ElementView& header, int& components);
  [[nodiscard]] bool IsCellWithHoles(const ComponentRun& run);
  [[nodiscard]] bool IsLeftOut(const ElementView& component) const noexcept {
    return component.Header().IsDeleted() && !options_.with_deleted;
  }

  [[nodiscard]] std::string_view WhyNotChosen() const noexcept;
  [[nodiscard]] bool IsInWindow(const Vanth::BoundsXY& bounds) const noexcept;
  [[nodiscard]] bool IsInWindow(const Vanth::PointXY& point) const noexcept {
    return IsInWindow(Vanth::BoundsXY(point, point));
  }
  void Note(std::string_view reason);
  bool Skip(std::string_view reason);
  bool Give(std::string_view text = {});
  bool GiveAlways(std::int64_t count, std::string_view text = {});

  DesignOptions options_;
  ElementCursor cursor_;
  DesignHeader header_;
  ColorTable colors_;
  TextDecoder decoder_;
  Schema schema_;
  ObjectMaker maker_;
  PathSettings path_settings_;

  // Of the present call.
  Feature* feature_ = nullptr;
  Account* account_ = nullptr;

  // Of the element being converted.
  ElementFacts facts_;
  std::vector<std::string_view> notes_;
  PathPiece piece_;
  Path path_;
  BSpline spline_;
  std::string text_;

  std::vector<Group> groups_;
  // Of the point string in piece_ that is being given.
  std::optional<std::size_t> next_point_;
  std::int64_t point_count_ = 1;
};

}  // namespace App
