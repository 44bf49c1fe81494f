#include <pelor/mi/build.h>
#include <pelor/mif/keyword.h>
#include <pelor/mif/object_clauses.h>

namespace Pelor::MIF {

using MI::WObjBody;
using MI::WObjRf;

void Write(const WObjRf<WObjBody>& object, std::ostream& out) {
  object->WriteMIF(out);
}

void Read(WObjRf<WObjBody>& object, Tobri::IxText& in, const Tobri::IRefC<MI::CoordSys>& system) {
  object.AssignNull();
  ReadKW word;
  word.Read(in);
  // The object keywords are the kinds plus 20; any other word is outside the kinds, and Build gives null for
  // it.
  if (word.id != NoKeyWord) object = MI::Build(static_cast<MI::WObjType>(word.id - None), system);
  if (object == nullptr) {
    in.SetPos(word.pos);
    return;
  }
  object.Copy();
  // None has nothing behind its keyword, and its reader would take that of a None that follows.
  if (word.id != None) object->ReadMIF(in);
}

}  // namespace Pelor::MIF
