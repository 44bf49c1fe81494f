#include <pelor/dgn/encoding.h>
#include <pelor/dgn/field_io.h>
#include <pelor/dgn/rotation.h>

#include <cmath>
#include <cstddef>

namespace Pelor::DGN {

namespace {

constexpr double kRadiansPerDegree = 0.017453292519943295;

std::int32_t StoredEntry(double value) {
  return static_cast<std::int32_t>(SetTransEntry(value));
}

template <std::size_t N>
void ReadFirstColumn(File& file, std::int32_t (&m)[N][N]) {
  for (auto& row : m) ReadFields(file, row[0]);
}

template <std::size_t N>
void WriteFirstColumn(File& file, const std::int32_t (&m)[N][N]) {
  for (const auto& row : m) WriteFields(file, row[0]);
}

template <std::size_t N>
void LoadFirstColumn(const std::int32_t (&stored)[N][N], double (&m)[N][N]) {
  for (std::size_t row = 0; row < N; ++row) m[row][0] = GetTransEntry(stored[row][0]);
}

template <std::size_t N>
void StoreFirstColumn(const double (&m)[N][N], std::int32_t (&stored)[N][N]) {
  for (std::size_t row = 0; row < N; ++row) stored[row][0] = StoredEntry(m[row][0]);
}

template <std::size_t N>
void ScaleFirstColumn(double (&m)[N][N], double factor) {
  for (auto& row : m) row[0] *= factor;
}

}  // namespace

void quaternion::read(File& file) {
  ReadFields(file, w, x, y, z);
}
void quaternion::write(File& file) const {
  WriteFields(file, w, x, y, z);
}

trans2D::trans2D() {
  StoreFirstColumn(Trans2D().m, m);
}
void trans2D::read(File& file) {
  ReadFirstColumn(file, m);
}
void trans2D::write(File& file) const {
  WriteFirstColumn(file, m);
}

trans3D::trans3D() {
  StoreFirstColumn(Trans3D().m, m);
}
void trans3D::read(File& file) {
  ReadFirstColumn(file, m);
}
void trans3D::write(File& file) const {
  WriteFirstColumn(file, m);
}

Trans2D::Trans2D() noexcept {
  m[0][0] = 1.0;
}

Trans2D::Trans2D(const trans2D& stored) noexcept {
  LoadFirstColumn(stored.m, m);
}

Trans2D::Trans2D(double angle_degrees, double scale) noexcept {
  const double angle = angle_degrees * kRadiansPerDegree;
  m[0][0] = std::cos(angle) * scale;
  m[0][1] = -(std::sin(angle) * scale);
  m[1][0] = -m[0][1];
  m[1][1] = m[0][0];
}

dpoint2d Trans2D::Apply(const dpoint2d& p) const noexcept {
  return {m[0][0] * p.x + m[0][1] * p.y, m[1][0] * p.x + m[1][1] * p.y};
}

void Trans2D::Scale(double factor) noexcept {
  ScaleFirstColumn(m, factor);
}

void Trans2D::Store(trans2D& stored) const noexcept {
  StoreFirstColumn(m, stored.m);
}

Trans3D::Trans3D() noexcept {
  m[0][0] = 1.0;
}

Trans3D::Trans3D(const trans3D& stored) noexcept {
  LoadFirstColumn(stored.m, m);
}

Trans3D::Trans3D(const quaternion& rotation, double scale) noexcept {
  const double w = GetQuatParam(rotation.w);
  const double x = -GetQuatParam(rotation.x);
  const double y = -GetQuatParam(rotation.y);
  const double z = -GetQuatParam(rotation.z);
  const double s = scale;
  const double t = 2 * scale;
  m[0][0] = (w * w + x * x - y * y - z * z) * s;
  m[0][1] = (x * y - z * w) * t;
  m[0][2] = (x * z + y * w) * t;
  m[1][0] = (x * y + z * w) * t;
  m[1][1] = (w * w - x * x + y * y - z * z) * s;
  m[1][2] = (y * z - x * w) * t;
  m[2][0] = (x * z - y * w) * t;
  m[2][1] = (y * z + x * w) * t;
  m[2][2] = (w * w - x * x - y * y + z * z) * s;
}

dpoint3d Trans3D::Apply(const dpoint3d& p) const noexcept {
  return {m[0][0] * p.x + m[0][1] * p.y + m[0][2] * p.z, m[1][0] * p.x + m[1][1] * p.y + m[1][2] * p.z,
          m[2][0] * p.x + m[2][1] * p.y + m[2][2] * p.z};
}

void Trans3D::Scale(double factor) noexcept {
  ScaleFirstColumn(m, factor);
}

void Trans3D::Store(trans3D& stored) const noexcept {
  StoreFirstColumn(m, stored.m);
}

}  // namespace Pelor::DGN
