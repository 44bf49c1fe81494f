#include <pelor/dgn/types.h>

#include <cstddef>
#include <string>

namespace Pelor::DGN {

namespace {

constexpr std::int32_t kFirstBasicType = 1;
constexpr const char* kBasicTypeNames[] = {
    "Cell Library Header",
    "Cell Header",
    "Line",
    "Line String",
    "Group",
    "Shape",
    "Text Node",
    "Digitizer Setup Data",
    "Design File Header",
    "Level Symbology",
    "Curve",
    "Complex String",
    "Conic",
    "Complex Shape",
    "Ellipse",
    "Arc",
    "Text",
    "Surface",
    "Solid",
    "Subfigure",
    "B-Spline Pole",
    "Point String",
    "Truncated Cone",
    "B-Spline Surface Header",
    "B-Spline Surface Body",
    "B-Spline Knot",
    "B-Spline Curve Header",
    "B-Spline Weight Factor",
};

constexpr const char* kClassNames[] = {
    "Primary",
    "Pattern Component",
    "Construction Element",
    "Dimensioning Element",
    "Primary Rule Element",
    "Linear Patterned Element",
    "Construction Rule Element",
};

constexpr const char* kStyleNames[] = {
    "Solid Line",    "Dashed Line",       "Medium Dashed Line",  "Long Dashed Line",
    "Dash Dot Line", "Short Dashed Line", "Dash, Dot, Dot Line", "Long Dash, Dash Line",
};

Tobri::String Unknown(const char* what, std::int32_t number) {
  return std::string("Unknown ") + what + " (" + std::to_string(number) + ")";
}

// The entry for `number` in a table that begins with the entry for `first`, or null.
template <std::size_t N>
const char* Find(const char* const (&table)[N], std::int32_t first, std::int32_t number) noexcept {
  const std::int64_t index = std::int64_t{number} - first;
  return index >= 0 && index < static_cast<std::int64_t>(N) ? table[index] : nullptr;
}

}  // namespace

ETypeClass TypeClass(EType type) noexcept {
  switch (type) {
    case CellHeaderType:
    case LineType:
    case LineStringType:
    case ShapeType:
    case TextNodeType:
    case CurveType:
    case ComplexStringType:
    case ConicType:
    case ComplexShapeType:
    case EllipseType:
    case ArcType:
    case TextType:
    case SurfaceType:
    case SolidType:
    case BSplinePoleType:
    case PointStringType:
    case TruncatedConeType:
    case BSplineSurfaceHeaderType:
    case BSplineSurfaceBodyType:
    case BSplineKnotType:
    case BSplineCurveHeaderType:
    case BSplineWeightType:
    case RasterComponentType:
      return Displayable;
    case CellLibraryHeaderType:
    case GroupType:
    case DigitizerSetupType:
    case DesignHeaderType:
    case LevelSymbologyType:
    case SubfigureType:
    case ApplicationType:
      return NonGraphic;
    default:
      return UnknownTypeClass;
  }
}

bool IsComplex(EType type) noexcept {
  switch (type) {
    case CellLibraryHeaderType:
    case CellHeaderType:
    case TextNodeType:
    case ComplexStringType:
    case ComplexShapeType:
    case SurfaceType:
    case SolidType:
    case BSplineSurfaceHeaderType:
    case BSplineCurveHeaderType:
    case RasterHeaderType:
      return true;
    default:
      return false;
  }
}

Tobri::String Name(EType type) {
  if (const char* const name = Find(kBasicTypeNames, kFirstBasicType, type)) return name;
  switch (type) {
    case DimensionType:
      return "Dimension Element";
    case SharedCellDefinitionType:
      return "Shared Cell Definition";
    case SharedCellType:
      return "Shared Cell";
    case MultilineType:
      return "Multiline Element";
    case TextArrayType:
      return "MicroStation Text Array";
    case TextStackType:
      return "MicroStation Text Stack";
    case ApplicationType:
      return "MicroStation Element";
    case RasterHeaderType:
      return "Raster Header";
    case RasterComponentType:
      return "Raster Component";
    default:
      return Unknown("Entity", type);
  }
}

Tobri::String Name(EClass element_class) {
  const char* const name = Find(kClassNames, 0, element_class);
  return name != nullptr ? Tobri::String(name) : Unknown("Class", element_class);
}

Tobri::String Name(SymbStyle style) {
  const char* const name = Find(kStyleNames, 0, style);
  return name != nullptr ? Tobri::String(name) : Unknown("Symbology Style", style);
}

}  // namespace Pelor::DGN
