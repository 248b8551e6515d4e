#include <figrep/TreeInterface.h>

namespace figrep {

bool TreeInterface::FineContentCheck(DBox2D const&) const {
    return true;
}
bool TreeInterface::FineOverlapCheck(DPoint2D const&) const {
    return true;
}
bool TreeInterface::FineOverlapCheck(DBox2D const&) const {
    return true;
}

}  // namespace figrep
