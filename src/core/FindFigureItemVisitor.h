// The cache behind `Figure::Find`.
#pragma once

#include <du/RefCounted.h>
#include <figrep/AbstractFigureVisitor.h>

#include <unordered_map>
#include <vector>

namespace figrep {

/// Finds items by id. The first search walks the figure and notes the first item of each id; items
/// that the figure receives afterwards are walked one by one at the next search, and of those that
/// leave it only what they held is forgotten, so that many searches among many changes stay cheap.
///
/// Guarded by the figure's lock for writing. Empty ids are neither noted nor found.
class FindFigureItemVisitor : virtual public du::RefCounted, public AbstractFigureVisitor {
public:
    /// The figure owns the cache; null makes one that finds nothing.
    explicit FindFigureItemVisitor(Figure* figure);
    ~FindFigureItemVisitor() override;

    /// The item with this id, or null. An id that a filled cache lacks has the figure walked anew
    /// when items arrived or left since the last walk, since what hangs on older items isn't
    /// announced, and since an item that stood behind one that left may have the same id.
    SmartPtr<AbstractFigureItem> Find(Symbol const& id);

    /// Has the next search look at what `item` holds. Constant time.
    void TakeIn(SmartPtr<AbstractFigureItem> const& item);

    /// Forgets what `item` holds, which is about to leave the figure. Cost: that of its walk.
    void TakeOut(SmartPtr<AbstractFigureItem> const& item);

    /// Forgets everything; the next search walks the figure.
    void Clear();

    using AbstractFigureVisitor::Visit;
    bool Visit(SmartPtr<TitleBlock> const& item) override;
    bool Visit(SmartPtr<TextGraphic> const& item) override;
    bool Visit(SmartPtr<TableInstance> const& item) override;
    bool Visit(SmartPtr<SubNet> const& item) override;
    bool Visit(SmartPtr<SubHighway> const& item) override;
    bool Visit(SmartPtr<PortNode> const& item) override;
    bool Visit(SmartPtr<Miscellaneous> const& item) override;
    bool Visit(SmartPtr<GenericGraphic> const& item) override;
    bool Visit(SmartPtr<Format> const& item) override;
    bool Visit(SmartPtr<ConnectorInstance> const& item) override;
    bool Visit(SmartPtr<CableInstance> const& item) override;
    bool Visit(SmartPtr<BlockInstance> const& item) override;

private:
    bool Record(SmartPtr<AbstractFigureItem> const& item);
    SmartPtr<AbstractFigureItem> Lookup(Symbol const& id) const;
    void WalkFigure();
    void WalkPending();

    Figure* figure_;
    /// Null for the id of an item that left: which one is the next, only a walk of the figure
    /// tells, so that none that arrives later takes the place.
    std::unordered_map<Symbol, SmartPtr<AbstractFigureItem>> found_;
    std::vector<SmartPtr<AbstractFigureItem>> pending_;
    bool walked_ = false;
    bool walkedSinceChanges_ = false;
    bool takingOut_ = false;
};

}  // namespace figrep
