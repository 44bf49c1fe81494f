#pragma once

#include <pelor/dgn/coordinates.h>
#include <pelor/dgn/file.h>
#include <pelor/dgn/rotation.h>

#include <cstdint>

namespace Pelor::DGN {

// The fields of a record, in the order of the file. What is missing at the end of the file stays as it was.

inline void ReadField(File& file, std::int32_t& value) {
  long read = value;
  file.Read(read);
  value = static_cast<std::int32_t>(read);
}
inline void ReadField(File& file, std::uint8_t& value) {
  file.Read(value);
}
inline void ReadField(File& file, std::uint16_t& value) {
  file.Read(value);
}
inline void ReadField(File& file, double& value) {
  file.Read(value);
}
inline void ReadField(File& file, point2d& value) {
  value.read(file);
}
inline void ReadField(File& file, point3d& value) {
  value.read(file);
}
inline void ReadField(File& file, dpoint2d& value) {
  value.read(file);
}
inline void ReadField(File& file, dpoint3d& value) {
  value.read(file);
}
inline void ReadField(File& file, quaternion& value) {
  value.read(file);
}

inline void WriteField(File& file, std::int32_t value) {
  file.Write(long{value});
}
inline void WriteField(File& file, std::uint8_t value) {
  file.Write(value);
}
inline void WriteField(File& file, std::uint16_t value) {
  file.Write(value);
}
inline void WriteField(File& file, const double& value) {
  file.Write(value);
}
inline void WriteField(File& file, const point2d& value) {
  value.write(file);
}
inline void WriteField(File& file, const point3d& value) {
  value.write(file);
}
inline void WriteField(File& file, const dpoint2d& value) {
  value.write(file);
}
inline void WriteField(File& file, const dpoint3d& value) {
  value.write(file);
}
inline void WriteField(File& file, const quaternion& value) {
  value.write(file);
}

template <class... Field>
void ReadFields(File& file, Field&... fields) {
  (ReadField(file, fields), ...);
}

template <class... Field>
void WriteFields(File& file, const Field&... fields) {
  (WriteField(file, fields), ...);
}

}  // namespace Pelor::DGN
