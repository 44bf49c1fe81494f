#include <pelor/mi/text_body.h>

namespace Pelor::MI {

void WTextBody::Apply(const Transform& transform) {
  transform.Apply(box_);
  transform.Apply(label_point_);
  angle_ = Transformed(angle_, transform);
}

}  // namespace Pelor::MI
