#include <figrep/BrokenConnectionRecord.h>

#include <figrep/SubNet.h>

#include <utility>

namespace figrep {

using Record = BrokenConnectionRecord;

Record::BrokenConnectionRecord(SmartPtr<SubNet> const& subNet, DPoint2D const& staticPosition,
                               DPoint2D const& startPosition, DPoint2D const& endPosition,
                               bool predecessorNotSuccessor)
    : subNet_(subNet),
      staticPosition_(staticPosition),
      startPosition_(startPosition),
      endPosition_(endPosition),
      predecessorNotSuccessor_(predecessorNotSuccessor) {}

Record::BrokenConnectionRecord(Symbol const& subNetId, DPoint2D const& staticPosition,
                               DPoint2D const& startPosition, DPoint2D const& endPosition,
                               bool predecessorNotSuccessor)
    : subNetId_(subNetId),
      staticPosition_(staticPosition),
      startPosition_(startPosition),
      endPosition_(endPosition),
      predecessorNotSuccessor_(predecessorNotSuccessor) {}

Record::BrokenConnectionRecord(Record const&) = default;
Record::BrokenConnectionRecord(Record&&) noexcept = default;
Record& Record::operator=(Record const&) = default;
Record& Record::operator=(Record&&) noexcept = default;
Record::~BrokenConnectionRecord() = default;

void Record::SetSubNet(SmartPtr<SubNet> const& subNet) {
    subNet_ = subNet;
}

}  // namespace figrep
