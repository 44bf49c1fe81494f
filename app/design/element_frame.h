#pragma once

#include "app/design/element_bytes.h"
#include "app/design/linkage_words.h"
#include <pelor/dgn.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <vector>

namespace App {

/// How an element is drawn and what it belongs to.
struct ElementStyle {
  std::uint8_t level = 1;       ///< 0 to 63
  std::uint8_t color = 0;       ///< index into the colour table
  std::uint8_t line_style = 0;  ///< 0 to 7
  std::uint8_t weight = 0;      ///< 0 to 31
  std::uint8_t element_class = Pelor::DGN::PrimaryClass;
  std::uint16_t graphic_group = 0;  ///< 0 for none
  bool hole = false;                ///< of closed elements
  bool deleted = false;
};

/// The box around an element, in units of resolution.
struct ElementRange {
  std::int32_t x_low = std::numeric_limits<std::int32_t>::max();
  std::int32_t y_low = std::numeric_limits<std::int32_t>::max();
  std::int32_t x_high = std::numeric_limits<std::int32_t>::min();
  std::int32_t y_high = std::numeric_limits<std::int32_t>::min();

  [[nodiscard]] bool IsEmpty() const noexcept { return x_low > x_high; }
  void Cover(const Pelor::DGN::point2d& point) noexcept;
  /// Covers a point between units, by the whole units around it; the design plane limits it.
  void Cover(double x, double y) noexcept;
  void Cover(const ElementRange& other) noexcept;
};

/// Where the header of a complex element keeps what is known only behind its last component: offsets in the
/// element; 0 for what it does not keep.
struct ComplexLayout {
  std::size_t length = 0;     ///< of the word with the words of the description that follow it
  std::size_t count = 0;      ///< of the word with the number of components
  std::size_t level_map = 0;  ///< of the four words with a bit for each level in use
  /// Of the longs with the low and the high corner of the range, counted from the origin.
  std::size_t range = 0;
};

/// Writes displayable elements, the headers right in every field: words to follow, range, attribute index and
/// the length and count of complex ones. Between Begin and End the caller adds the body to Bytes(), what
/// differs between the plane and space by the Put functions, and says what it covers.
class ElementFrame {
 public:
  /// A description has no more words than this: the components of a complex element, and what of its header
  /// follows the length.
  static constexpr std::size_t kMaxDescriptionWords = 65535;

  /// Appends to `bytes`, which must live on. Whoever empties it does so between top-level elements. With a
  /// `height`, in units of resolution, the elements are those of a three-dimensional design and all lie
  /// there.
  explicit ElementFrame(ElementBytes& bytes, std::optional<std::int32_t> height = std::nullopt)
      : bytes_(bytes), height_(height) {}

  [[nodiscard]] bool Is3D() const noexcept { return height_.has_value(); }

  /// Inside a complex element the new element is its component, and deleted if that is.
  void Begin(Pelor::DGN::EType type, const ElementStyle& style);
  [[nodiscard]] ElementBytes& Bytes() noexcept { return bytes_; }
  void PutPoint(const Pelor::DGN::point2d& point);
  void PutPoints(std::span<const Pelor::DGN::point2d> points);
  /// The centre of an ellipse.
  void PutCenter(double x, double y);
  /// A turn, counter-clockwise.
  void PutTurn(double degrees);
  /// The range of a cell, which EndComplex fills in, and the matrix of one that is neither scaled nor turned.
  void PutCellPlace();
  /// What the element that was begun last covers.
  [[nodiscard]] ElementRange& Range() noexcept { return range_; }
  /// Ends a simple element.
  void End(std::span<const std::uint16_t> linkages);

  /// Ends the header of a complex element: what is written up to EndComplex are its components. `origin` is
  /// what the header's own range counts from.
  void EndHeader(std::span<const std::uint16_t> linkages, const ComplexLayout& layout,
                 const Pelor::DGN::point2d& origin = {});
  /// The description of the element must fit its length word.
  void EndComplex();

 private:
  struct OpenComplex {
    std::size_t start = 0;
    ComplexLayout layout;
    Pelor::DGN::point2d origin;
    bool deleted = false;
    std::uint16_t components = 0;
    std::uint64_t levels = 0;
    ElementRange range;
  };

  void WriteRange(std::size_t start, const ElementRange& range);
  void FinishHeader(std::span<const std::uint16_t> linkages);
  void AddToParent(const ElementRange& range, std::uint64_t levels);

  ElementBytes& bytes_;
  std::optional<std::int32_t> height_;
  std::size_t start_ = 0;
  std::uint8_t level_ = 0;
  bool deleted_ = false;
  ElementRange range_;
  std::vector<OpenComplex> open_;
};

}  // namespace App
