#include <pelor/dgn/coordinates.h>
#include <pelor/dgn/field_io.h>

namespace Pelor::DGN {

void point2d::read(File& file) {
  ReadFields(file, x, y);
}
void point2d::write(File& file) const {
  WriteFields(file, x, y);
}

void point3d::read(File& file) {
  ReadFields(file, x, y, z);
}
void point3d::write(File& file) const {
  WriteFields(file, x, y, z);
}

void dpoint2d::read(File& file) {
  ReadFields(file, x, y);
}
void dpoint2d::write(File& file) const {
  WriteFields(file, x, y);
}

void dpoint3d::read(File& file) {
  ReadFields(file, x, y, z);
}
void dpoint3d::write(File& file) const {
  WriteFields(file, x, y, z);
}

}  // namespace Pelor::DGN
