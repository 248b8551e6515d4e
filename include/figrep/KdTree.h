// A tree of boxes that answers which elements touch a box.
#pragma once

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include <figrep/TreeInterface.h>

namespace figrep {

/// A balanced tree over elements with boxes. `T` is a smart pointer to something that derives from
/// `TreeInterface`; null elements are not taken.
///
/// It is built by the first query after an `Add`, level by level on another side of the box: cost
/// n log n per level of log n. A query enters only what touches the box, within a tolerance.
/// Holds its elements; has no lock of its own.
template <class T>
class KdTree {
public:
    KdTree() = default;
    KdTree(KdTree const&) = delete;
    KdTree& operator=(KdTree const&) = delete;
    virtual ~KdTree() = default;

    void Add(T const& item);
    /// Appends the elements that touch `queryBox`, from left to right in the tree.
    void Query(DBox2D const& queryBox, std::vector<T>& out);
    /// By how much a box may miss and still be entered; for the root, before the first query.
    void SetTolerance(double tolerance) { tolerance_ = tolerance; }

private:
    KdTree(std::vector<T>&& items, unsigned int parentAxis, double tolerance);

    void EnsureBuilt();
    void Build();
    void Clear(std::vector<T>& collector, bool keepOwn);

    std::vector<T> items_;
    std::unique_ptr<KdTree> left_;
    std::unique_ptr<KdTree> right_;
    bool built_ = false;
    unsigned int axis_ = 0;
    DBox2D box_ = DBox2D::EMPTY;
    double tolerance_ = 0.0;
};

template <class T>
KdTree<T>::KdTree(std::vector<T>&& items, unsigned int parentAxis, double tolerance)
    : items_(std::move(items)), axis_(parentAxis < 3 ? parentAxis + 1 : 0), tolerance_(tolerance) {
    EnsureBuilt();
}

template <class T>
void KdTree<T>::Add(T const& item) {
    if (!item) return;
    if (built_ && items_.empty()) Clear(items_, true);
    items_.push_back(item);
    built_ = false;
}

template <class T>
void KdTree<T>::Query(DBox2D const& queryBox, std::vector<T>& out) {
    for (KdTree* node = this; node; node = node->right_.get()) {
        node->EnsureBuilt();
        if (!node->box_.Intersects(queryBox, node->tolerance_)) return;
        if (node->left_) {
            node->left_->Query(queryBox, out);
            continue;
        }
        T const& item = node->items_.front();
        TreeInterface const& element = *item;
        if (element.FineOverlapCheck(queryBox)) out.push_back(item);
    }
}

template <class T>
void KdTree<T>::EnsureBuilt() {
    if (built_ || items_.empty()) return;
    Build();
    built_ = true;
}

template <class T>
void KdTree<T>::Build() {
    if (items_.size() < 2) {
        box_ = items_.front()->GetExtents();
        return;
    }
    std::stable_sort(items_.begin(), items_.end(), TreeEntryComparator(static_cast<int>(axis_)));
    auto const middle = items_.begin() + static_cast<std::ptrdiff_t>(items_.size() / 2);
    std::vector<T> upper(std::make_move_iterator(middle), std::make_move_iterator(items_.end()));
    items_.erase(middle, items_.end());
    left_.reset(new KdTree(std::exchange(items_, {}), axis_, tolerance_));
    right_.reset(new KdTree(std::move(upper), axis_, tolerance_));
    box_ = left_->box_;
    box_.Enclose(right_->box_);
}

template <class T>
void KdTree<T>::Clear(std::vector<T>& collector, bool keepOwn) {
    if (left_ && right_) {
        left_->Clear(items_, false);
        right_->Clear(items_, false);
        left_.reset();
        right_.reset();
    }
    if (!keepOwn) {
        collector.insert(collector.end(), items_.begin(), items_.end());
        items_.clear();
    }
    built_ = false;
    box_ = DBox2D::EMPTY;
}

}  // namespace figrep
