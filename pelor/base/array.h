#pragma once

#include <pelor/base/error.h>
#include <pelor/base/handle.h>

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <span>
#include <type_traits>
#include <utility>

namespace Tobri {

/// What all arrays share.
class ArrayCommon {
 public:
  /// Whether new elements of a built-in type, or of one that is copied as memory, are left as the memory was.
  enum UnInitVal : std::int32_t { Init = 0, UnInit = 1 };

  /// Array lengths stay within a signed 32-bit number.
  static constexpr unsigned kMaxSize = static_cast<unsigned>(std::numeric_limits<std::int32_t>::max());

  /// n rounded up to whole blocks of `block` elements; a block of 0 counts as 1. A result that would pass
  /// kMaxSize is kMaxSize or n, whichever is larger.
  [[nodiscard]] static constexpr unsigned BlockedSize(unsigned n, unsigned block) noexcept {
    if (block <= 1) return n;
    const std::uint64_t blocks = (std::uint64_t{n} + block - 1) / block;
    return static_cast<unsigned>(std::min<std::uint64_t>(blocks * block, std::max(n, kMaxSize)));
  }
};

/// Equality of element runs for the built-in integer types: a comparison of memory.
template <class T>
struct btypes {
  static_assert(std::is_integral_v<T>, "runs of other types are compared element by element");

  [[nodiscard]] static bool sized_eq(const T* a, const T* b, unsigned n) noexcept {
    return n == 0 || std::memcmp(a, b, std::size_t{n} * sizeof(T)) == 0;
  }
};

/// Storage for a fixed number of elements, reserved in whole blocks. Owns its memory; moves, does not copy.
template <class T>
class ArrayStore : public ArrayCommon {
 public:
  ArrayStore() noexcept = default;
  /// A capacity beyond kMaxSize reports ArraySizeErr and gives an empty store.
  ArrayStore(unsigned capacity, UnInitVal initial, unsigned block) {
    if (capacity > kMaxSize) {
      Error::Handle(ArraySizeErr(capacity, kMaxSize));
      return;
    }
    capacity_ = BlockedSize(capacity, block);
    if (capacity_ == 0) return;
    if constexpr (kRaw) {
      elements_.reset(static_cast<T*>(::operator new (std::size_t{capacity_} * sizeof(T))));
      if (initial == Init) std::uninitialized_value_construct_n(elements_.get(), capacity_);
    } else {
      elements_.reset(initial == UnInit ? new T[capacity_] : new T[capacity_]());
    }
  }
  ArrayStore(ArrayStore&& other) noexcept
      : elements_(std::move(other.elements_)), capacity_(std::exchange(other.capacity_, 0)) {}
  ArrayStore& operator=(ArrayStore&& other) noexcept {
    elements_ = std::move(other.elements_);
    capacity_ = std::exchange(other.capacity_, 0);
    return *this;
  }

  [[nodiscard]] unsigned Capacity() const noexcept { return capacity_; }
  [[nodiscard]] T* Data() noexcept { return elements_.get(); }
  [[nodiscard]] const T* Data() const noexcept { return elements_.get(); }

 private:
  // Elements that are copied as memory need no construction before they are written, even where their default
  // constructor would fill them: a large copy would take twice the time.
  static constexpr bool kRaw =
      std::is_trivially_copyable_v<T> && alignof(T) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__;

  struct Release {
    void operator()(T* elements) const noexcept {
      if constexpr (kRaw) {
        ::operator delete(elements);
      } else {
        delete[] elements;
      }
    }
  };

  std::unique_ptr<T[], Release> elements_;
  unsigned capacity_ = 0;
};

/// A growable array that handles can share. Elements lie in one contiguous run. Appending costs amortised
/// constant time. An index or a size out of range is reported and leaves the array as it was.
template <class T>
class DArray : public Rep {
 public:
  DArray() noexcept = default;
  DArray(const DArray& other)
      : Rep(other), store_(other.length_, ArrayCommon::UnInit, 1), length_(other.length_) {
    std::copy_n(other.store_.Data(), length_, store_.Data());
  }
  DArray(DArray&& other) noexcept
      : store_(std::move(other.store_)), length_(std::exchange(other.length_, 0)) {}
  DArray& operator=(const DArray& other) {
    if (this != &other) {
      Empty();
      Reserve(other.length_);
      std::copy_n(other.store_.Data(), other.length_, store_.Data());
      length_ = other.length_;
    }
    return *this;
  }
  DArray& operator=(DArray&& other) noexcept {
    store_ = std::move(other.store_);
    length_ = std::exchange(other.length_, 0);
    return *this;
  }
  ~DArray() = default;

  [[nodiscard]] unsigned Length() const noexcept { return length_; }
  [[nodiscard]] bool IsEmpty() const noexcept { return length_ == 0; }
  [[nodiscard]] std::span<T> Span() noexcept { return {store_.Data(), length_}; }
  [[nodiscard]] std::span<const T> Span() const noexcept { return {store_.Data(), length_}; }
  /// The element at `index`; ArrayIndexErr and a default element when it is out of range. Loops take Span().
  [[nodiscard]] const T& operator[](unsigned index) const {
    if (CheckIndex(index, length_)) [[likely]]
      return store_.Data()[index];
    static const T kDefault{};
    return kDefault;
  }
  /// Replaces the element at `index`; ArrayIndexErr when it is out of range.
  void Set(unsigned index, const T& value) {
    if (CheckIndex(index, length_)) store_.Data()[index] = value;
  }

  void Add(const T& value) {
    if (length_ < store_.Capacity()) [[likely]] {
      store_.Data()[length_++] = value;
      return;
    }
    T copy(value);  // `value` may stand in this array
    if (Reserve(length_ + 1)) store_.Data()[length_++] = std::move(copy);
  }
  /// Inserts before `pos`; `pos` equal to the length appends; ArrayIndexErr beyond that.
  void Insert(unsigned pos, const T& value) {
    if (pos > length_) {
      Error::Handle(ArrayIndexErr(pos, length_));
      return;
    }
    T copy(value);
    if (!Reserve(length_ + 1)) return;
    T* const data = store_.Data();
    std::move_backward(data + pos, data + length_, data + length_ + 1);
    data[pos] = std::move(copy);
    ++length_;
  }
  /// Removes all elements and keeps the storage.
  void Empty() {
    if constexpr (!std::is_trivially_destructible_v<T>) std::fill_n(store_.Data(), length_, T());
    length_ = 0;
  }
  /// Brings the length to `length`; new elements are default elements.
  void Resize(unsigned length) {
    if (!Reserve(length)) return;
    if (length > length_) {
      std::fill(store_.Data() + length_, store_.Data() + length, T());
    } else if constexpr (!std::is_trivially_destructible_v<T>) {
      std::fill(store_.Data() + length, store_.Data() + length_, T());
    }
    length_ = length;
  }
  /// Room for at least `capacity` elements; false, after ArraySizeErr, when that is beyond kMaxSize.
  bool Reserve(unsigned capacity) {
    if (capacity <= store_.Capacity()) return true;
    if (capacity > ArrayCommon::kMaxSize) {
      Error::Handle(ArraySizeErr(capacity, ArrayCommon::kMaxSize));
      return false;
    }
    const unsigned doubled = std::min(2 * store_.Capacity(), ArrayCommon::kMaxSize);
    ArrayStore<T> grown(std::max(capacity, doubled), ArrayCommon::UnInit, kBlock);
    std::move(store_.Data(), store_.Data() + length_, grown.Data());
    store_ = std::move(grown);
    return true;
  }

  friend bool operator==(const DArray& a, const DArray& b) {
    if constexpr (std::is_integral_v<T>) {
      return a.length_ == b.length_ && btypes<T>::sized_eq(a.store_.Data(), b.store_.Data(), a.length_);
    } else {
      return std::equal(a.Span().begin(), a.Span().end(), b.Span().begin(), b.Span().end());
    }
  }

 private:
  static constexpr unsigned kBlock = 8;

  static bool CheckIndex(unsigned index, unsigned length) {
    if (index < length) return true;
    Error::Handle(ArrayIndexErr(index, length));
    return false;
  }

  ArrayStore<T> store_;
  unsigned length_ = 0;
};

/// A read-only view of an array behind a handle; a null handle is an empty array. It does not own the array.
template <class T>
class DArrayRC {
 public:
  DArrayRC(const IRef<DArray<T>>& array) noexcept : DArrayRC(array.Get()) {}
  DArrayRC(const IRefC<DArray<T>>& array) noexcept : DArrayRC(array.Get()) {}
  DArrayRC(const DArray<T>& array) noexcept : DArrayRC(&array) {}

  [[nodiscard]] unsigned Length() const noexcept { return static_cast<unsigned>(span_.size()); }
  [[nodiscard]] std::span<const T> Span() const noexcept { return span_; }
  [[nodiscard]] auto begin() const noexcept { return span_.begin(); }
  [[nodiscard]] auto end() const noexcept { return span_.end(); }

 private:
  explicit DArrayRC(const DArray<T>* array) noexcept {
    if (array != nullptr) span_ = array->Span();
  }

  std::span<const T> span_;
};

/// A view through which an array behind a handle is changed. The handle gets an array when it has none and
/// becomes its only owner, so no other holder sees the change. The view must not outlive the handle.
template <class T>
class DArrayR {
 public:
  explicit DArrayR(ICCRef<DArray<T>>& array) : array_(array) {
    if (array_ == nullptr) array_.Assign(new DArray<T>());
    array_.Copy();
  }

  void Add(const T& value) { array_->Add(value); }
  void Insert(unsigned pos, const T& value) { array_->Insert(pos, value); }
  void Resize(unsigned length) { array_->Resize(length); }
  void Empty() { array_->Empty(); }
  [[nodiscard]] unsigned Length() const noexcept { return array_->Length(); }
  [[nodiscard]] std::span<T> Span() noexcept { return array_->Span(); }

 private:
  ICCRef<DArray<T>>& array_;
};

}  // namespace Tobri
