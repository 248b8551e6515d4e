// The root of everything that a figure shows or that a user can pick.
#pragma once

#include <figk/TypeDefinitions.h>
#include <figrep/AttributeList.h>
#include <figrep/Fwd.h>
#include <figrep/SettingList.h>
#include <figrep/TreeInterface.h>
#include <zvk/Object.h>

#include <memory>
#include <string>

namespace figrep {

/// A figure item: usually the shadow of one kernel record, which it never changes; an item made by
/// the figure alone has no record and takes its name from a string.
///
/// Units: figure units (millimetres), y upward, angles in radians counter-clockwise.
/// Ownership: the figure holds its items; the way back holds nothing and is cleared when the figure
/// goes, so an item may outlive its figure. Locking: all items share the kernel's lock;
/// queries take it for reading, changes for writing, and an item without a lock runs unlocked.
class AbstractFigureItem : public zvk::Object,
                           public zvk::MemoryPoolAllocated,
                           public TreeInterface,
                           public AttributeList,
                           public SettingList {
public:
    static zvk::ClassType const CLASS_TYPE;

    /// The kinds of items; the numbers are fixed.
    enum FigureItemType : int {
        ITEM_UNKNOWN = 0,
        ITEM_BLOCK_INSTANCE = 1,
        ITEM_CABLE_INSTANCE = 2,
        ITEM_CONNECTOR_INSTANCE = 3,
        ITEM_FORMAT = 4,
        ITEM_GENERIC_GRAPHIC = 5,
        ITEM_HIGHWAY_SEGMENT = 6,
        ITEM_MISCELLANEOUS = 7,
        ITEM_NET_SEGMENT = 8,
        ITEM_PICK_GRAPHIC_PROXY = 9,
        ITEM_PORT = 10,
        ITEM_PORT_NODE = 11,
        ITEM_SUB_HIGHWAY = 12,
        ITEM_SUB_NET = 13,
        ITEM_TABLE_INSTANCE = 14,
        ITEM_TEXT_GRAPHIC = 15,
        ITEM_TITLE_BLOCK = 16,
        ITEM_UNROUTED_CONNECTION = 17
    };

    using SettingList::Empty;

    zvk::ClassType const& GetClassType() const override;

    virtual FigureItemType GetType() const = 0;

    /// Shows the item as selected, or no longer so, with all that it holds.
    virtual void SetHighlight(bool on) = 0;
    /// Shows the item as the one that a click would select, or no longer so.
    virtual void SetPreselectHighlight(bool on) = 0;
    /// Shows or hides the item with all that it holds. Settings are not touched.
    virtual void SetVisibility(bool on) = 0;

    /// The local name when there is one, otherwise the kernel record's; empty without either.
    virtual std::string const& GetName() const;

    virtual void MoveItem(double dx, double dy);
    virtual void RotateItem(DPoint2D const& about, double radians);
    virtual void ScaleItem(DPoint2D const& about, double factor);
    /// Mirrors x (`mirrorY` false) or y (`mirrorY` true) about a point.
    virtual void MirrorItem(DPoint2D const& about, bool mirrorY);

    /// Hands the item to the visitor and, where its `Visit` answers true, all that it holds.
    virtual void Accept(AbstractFigureVisitor& visitor) = 0;

    /// The figure that holds the item; null when none has received it or when it has gone.
    virtual SmartPtr<Figure> GetFigure() const;

    /// The box of the item's picture, `DBox2D::EMPTY` without one; kept once computed.
    DBox2D GetExtents() override;

    /// The identifier by which deltas name the item: the same after every reload where the kernel
    /// can supply one, otherwise a path below the item's parent. Takes no lock.
    Symbol const& GetId() const { return id_; }

    /// The kernel record that the item stands for; null for an item of the figure's own.
    SmartPtr<figk::AbstractItem> GetKernelItem() const;

    /// The lock shared with all items and the kernel; null for an item made without one.
    SmartPtr<zvk::ReadWriteLock> const& GetLock() const;

    /// The kernel's number for this kind of item; 0 for kinds that the kernel doesn't know.
    figk::TypeDefinitions::KernelItemType GetKernelType() const;
    static figk::TypeDefinitions::KernelItemType GetKernelType(FigureItemType type);

    /// The name of the item's kind, for programs; see `GetUITypeName` for people.
    std::string GetTypeName() const;

    /// The localised name of the item's kind, as the kernel gives it.
    Symbol GetUITypeName() const;
    static Symbol GetUITypeName(FigureItemType const& type);

    /// Whether `ITEM_VISIBILITY` leaves the item visible; true without such a setting.
    bool IsVisible() const;

protected:
    /// An item for a kernel record, whose settings the item falls back on. Null makes an item
    /// without record or name.
    AbstractFigureItem(SmartPtr<zvk::ReadWriteLock> const& lock,
                       SmartPtr<figk::AbstractItem> const& item);
    /// An item of the figure's own.
    AbstractFigureItem(SmartPtr<zvk::ReadWriteLock> const& lock, std::string const& name);
    AbstractFigureItem(AbstractFigureItem const&) = delete;
    AbstractFigureItem& operator=(AbstractFigureItem const&) = delete;
    ~AbstractFigureItem() override;

    /// The picture that the kernel gives for the record; null without record or picture.
    virtual SmartPtr<figk::Zv2dGraphics> GetZv2dGraphics() const;

    /// Gives the item its identifier. Every concrete class calls it last in its constructor, when
    /// the fields that its scheme needs are set.
    virtual void DeriveId() = 0;

    void SetId(Symbol const& id) { id_ = id; }
    void SetName(std::string const& name);
    /// The name given at construction, whatever the kernel says; no lock.
    std::string const& GetLocalName() const { return name_ ? *name_ : Symbol::EMPTY.GetString(); }

    /// The record as the concrete class knows it; null when it is another kind or absent.
    template <typename Record>
    SmartPtr<Record> GetKernelItemAs() const {
        return du::DynamicCast<Record>(GetKernelItem());
    }

    /// Sets the way back to the figure; the item holds no reference. A null figure clears it.
    void SetFigure(SmartPtr<Figure> const& figure);

    /// The cached box; `DBox2D::EMPTY` means not computed. Guarded by the item's lock.
    DBox2D const& GetCachedExtents() const { return itemExtents_; }
    void SetCachedExtents(DBox2D const& extents) { itemExtents_ = extents; }
    void ResetCachedExtents() { itemExtents_ = DBox2D::EMPTY; }

private:
    friend class Figure;

    Symbol id_;
    SmartPtr<figk::AbstractItem> kernelItem_;
    SmartPtr<FigureLink> figureLink_;
    SmartPtr<zvk::ReadWriteLock> itemLock_;
    DBox2D itemExtents_ = DBox2D::EMPTY;
    std::unique_ptr<std::string> name_;  // most items are called what their record is
};

}  // namespace figrep
