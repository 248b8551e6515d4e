// Walks of connection trees, with a stack of their own instead of recursion.
#include <figk/BaseConnectionNode.h>

#include <utility>

namespace figk {

BaseVisitCheck::BaseVisitCheck() = default;
BaseVisitCheck::BaseVisitCheck(BaseVisitCheck const& other) : du::RefCounted(other) {}
BaseVisitCheck::~BaseVisitCheck() = default;

bool BaseVisitCheck::Visit(ConstSmartPtr<BaseConnectionNode> const&) {
    return true;
}

using ConstIterator = BaseConnectionNode::ConstIterator;

ConstIterator::ConstIterator() = default;

ConstIterator::ConstIterator(SmartPtr<BaseConnectionNode> const& start)
    : start_(start), check_(start->GetVisitChecker()) {
    CountWalk(1);
    stack_.push_back(start);
    Settle();
}

ConstIterator::ConstIterator(ConstIterator const& other)
    : start_(other.start_), check_(other.check_), stack_(other.stack_) {
    CountWalk(1);
}

ConstIterator::ConstIterator(ConstIterator&& other) noexcept
    : start_(std::move(other.start_)),
      check_(std::move(other.check_)),
      stack_(std::move(other.stack_)) {
    other.stack_.clear();
}

ConstIterator& ConstIterator::operator=(ConstIterator const& other) {
    return *this = ConstIterator(other);
}

ConstIterator& ConstIterator::operator=(ConstIterator&& other) noexcept {
    std::swap(start_, other.start_);
    std::swap(check_, other.check_);
    std::swap(stack_, other.stack_);
    return *this;
}

ConstIterator::~ConstIterator() {
    CountWalk(-1);
}

SmartPtr<BaseConnectionNode> const& ConstIterator::operator*() const {
    static SmartPtr<BaseConnectionNode> const none;
    return stack_.empty() ? none : stack_.back();
}

ConstIterator& ConstIterator::operator++() {
    if (stack_.empty()) return *this;
    SmartPtr<BaseConnectionNode> const node = std::move(stack_.back());
    stack_.pop_back();
    if (node->right_) stack_.push_back(node->right_);
    if (node->left_) stack_.push_back(node->left_);
    Settle();
    return *this;
}

bool ConstIterator::operator==(ConstIterator const& other) const {
    return **this == *other;
}

/// Drops what the check refuses until the walk stands on a node or has ended.
void ConstIterator::Settle() {
    while (!stack_.empty() && check_ && !check_->Visit(stack_.back()))
        stack_.pop_back();
    if (!stack_.empty()) return;
    CountWalk(-1);
    start_.Reset();
}

void ConstIterator::CountWalk([[maybe_unused]] int change) const {
#ifndef NDEBUG
    if (start_) start_->runningWalks_ += static_cast<std::uint16_t>(change);
#endif
}

}  // namespace figk
