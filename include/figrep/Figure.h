// The document: one live drawing, assembled from kernel sheets by deltas.
#pragma once

#include <figk/TypeDefinitions.h>
#include <figrep/AttributeList.h>
#include <figrep/FigureDeltaReceiverInterface.h>
#include <figrep/SettingList.h>
#include <figrep/TextLabelContainer.h>
#include <zvk/Observable.h>

#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace figrep {

/// One drawing: its items in typed registries, the deltas that made it what it is, the engines
/// for the crossings and arrows of its wires, and the settings that all items fall back on.
///
/// Content enters by deltas: `GenerateDeltas` records them, `ApplyDeltas` applies them and marks
/// the figure loaded; then `UpdateContent` makes the pictures that a view reads from the items.
/// Nothing follows later changes of the kernel by itself.
///
/// Units: figure units (millimetres), y upward, angles in radians counter-clockwise.
/// Ownership: the figure holds its items and nothing that it holds holds the figure; it takes its
/// wires apart when its last reference goes. Locking: one lock, the kernel's, is shared by all
/// figures, items and records; queries take it for reading, changes and walks for writing, unless
/// an operation says otherwise. Null arguments and unknown ids change nothing.
class Figure : public zvk::Observable,
               public FigureDeltaReceiverInterface,
               public AttributeList,
               public SettingList,
               public TextLabelContainer {
public:
    static zvk::ClassType const CLASS_TYPE;

    /// What an event's number adds to `GetBaseEventId()`.
    static constexpr unsigned char APPEARANCE_CHANGED_EVENT = 0;
    static constexpr unsigned char ITEM_CHANGED_EVENT = 1;
    static constexpr unsigned char ITEMS_CHANGED_EVENT = 2;
    static constexpr unsigned char ITEM_HIGHLIGHTED_EVENT = 3;
    static constexpr unsigned char ITEMS_VISIBILITY_EVENT = 4;

    using Items = std::vector<SmartPtr<AbstractFigureItem>>;
    using Deltas = std::vector<SmartPtr<figk::AbstractDelta>>;

    // What a saved figure is made of.
    static constexpr figk::ContentVersion s_write_content_version = figk::CONTENT_VERSION_1;
    static Symbol const s_figure_content;  // for hosts; written nowhere here
    static Symbol const s_figure_content_version;
    static Symbol const s_figure_show_grid;
    static Symbol const s_figure_design;
    static Symbol const s_figure_component;
    static Symbol const s_design_name;
    static Symbol const s_design_id_prefix;

    /// For hosts that number their figures; the library neither fills nor reads it.
    static std::map<unsigned int, Figure*> s_figureIdMap;

    using SettingList::Empty;

    /// A figure without content, with the default line attributes.
    Figure();

    zvk::ClassType const& GetClassType() const override;
    SmartPtr<zvk::ReadWriteLock> const& GetLock() const override;

    // Content. Vectors are copies, in the order of arrival.

    std::vector<SmartPtr<BlockInstance>> GetBlockInstances() const;
    std::vector<SmartPtr<CableInstance>> GetCableInstances() const;
    std::vector<SmartPtr<Miscellaneous>> GetMiscellaneous() const;
    std::vector<SmartPtr<Port>> GetPorts() const;
    std::vector<SmartPtr<SubHighway>> GetSubHighways() const;
    std::vector<SmartPtr<SubNet>> GetSubNets() const;
    std::vector<SmartPtr<TableInstance>> GetTableInstances() const;
    std::vector<SmartPtr<figk::Sheet>> GetSheets() const;
    std::vector<SmartPtr<figk::Design>> GetDesigns() const;
    /// Null for a figure without a format.
    SmartPtr<Format> GetFormat() const;
    /// The first block with this id, or null. Cost: linear in the blocks.
    SmartPtr<BlockInstance> GetBlockInstanceByID(Symbol const& id) const;

    /// Takes a new item in: points it at this figure and appends it to its registry. Constant
    /// time. Null is ignored.
    void Receive(SmartPtr<BlockInstance> const& block) override;
    void Receive(SmartPtr<CableInstance> const& cable) override;
    void Receive(SmartPtr<Miscellaneous> const& miscellaneous) override;
    void Receive(SmartPtr<Port> const& port) override;
    void Receive(SmartPtr<SubHighway> const& subHighway) override;
    void Receive(SmartPtr<SubNet> const& subNet) override;
    void Receive(SmartPtr<TableInstance> const& table) override;
    void Receive(SmartPtr<figk::Design> const& design) override;
    /// Replaces the format and has the extents computed anew.
    void Receive(SmartPtr<Format> const& format) override;
    /// Hands the title block to the format; a figure without a format doesn't take it.
    void Receive(SmartPtr<TitleBlock> const& titleBlock) override;
    void AddSheet(SmartPtr<figk::Sheet> const& sheet);

    /// Takes out a block, the format, a sub-highway or a sub-net; items of other kinds stay.
    /// Cost: linear in the registry.
    void RemoveItem(SmartPtr<AbstractFigureItem> const& item) override;

    /// The item that deltas mean by `id`, or null: blocks, cables, tables, miscellaneous items,
    /// connectors, sub-nets, sub-highways, port nodes, format, title block, graphics and texts.
    /// Where several share an id, the first of a walk. Cost: constant once a first search has
    /// walked the figure; what arrives later is walked by itself.
    SmartPtr<AbstractFigureItem> Find(Symbol const& id);

    /// Walks the format, the figure's own labels, blocks, cables, ports, sub-highways, sub-nets,
    /// tables and miscellaneous items. Holds the write lock from the format on.
    void Accept(AbstractFigureVisitor& visitor);

    /// Empties the figure for a fresh run of deltas. Sheets, failures and the marks of being
    /// loaded and changed stay; the figure's own settings go, the defaults included.
    void ClearContent();

    // Kernel records and their items.

    bool IsSbomItemInFigure(SmartPtr<figk::AbstractItem> const& record) const;
    /// Whether the first item made from the record is visible; true without an item.
    bool IsSbomItemVisible(SmartPtr<figk::AbstractItem> const& record) const;
    /// Replaces `out` by the items made from the record, in the order of their arrival.
    void KernelToRepItems(SmartPtr<figk::AbstractItem> const& record, Items& out) const;
    /// Adds what a user means who picked the graphics: the item that each one's topmost group
    /// is, or the graphic itself. Nothing is added twice.
    void GetHigherLevelContent(std::vector<SmartPtr<BaseGraphic>> const& graphics,
                               Items& out) const;

    // Deltas.

    /// Runs the generator outside any lock and records what it made; nothing is applied.
    void GenerateDeltas(figk::AbstractDeltaGenerator& generator);
    void ApplyDeltas(bool refresh) override;
    void AddAndApplyDelta(SmartPtr<figk::AbstractDelta> const& delta, bool refresh,
                          bool notify) override;
    void AddAndApplyDeltas(Deltas const& deltas, bool refresh) override;
    Deltas GetDeltas() const override;
    bool HasDeltaFailures() const;
    /// Appends the deltas that failed since the last call to `out` and forgets them.
    void TakeDeltaFailures(Deltas& out);
    /// Takes the last occurrence off the list and resets the delta; one that isn't on the list
    /// keeps its status. What the delta did to the content stays.
    void RemoveDelta(SmartPtr<figk::AbstractDelta> const& delta);
    void RemoveDeltas(Deltas const& deltas);
    /// Drops the last two deltas without a lock and without a reset; the arguments only say which
    /// the caller expects. Fewer than two stay.
    void RemoveEndDeltas(SmartPtr<figk::AbstractDelta> const& a,
                         SmartPtr<figk::AbstractDelta> const& b);
    void ProcessNewContent() override;

    // Saving.

    /// Writes what the figure was made from into `element`: version, grid, designs, then one
    /// "component" for each recorded delta in order, and a last one with the texts of the title
    /// block as they stand. Nothing is written of the items themselves. Null does nothing.
    void CaptureContent(zvk::SerializedContentElement* element);

    // Items' place and looks. Observers are told.

    void MoveItem(SmartPtr<AbstractFigureItem> const& item, double dx, double dy) override;
    void RotateItem(SmartPtr<AbstractFigureItem> const& item, DPoint2D const& about,
                    double radians) override;
    void ScaleItem(SmartPtr<AbstractFigureItem> const& item, DPoint2D const& about,
                   double factor) override;
    void MirrorItem(SmartPtr<AbstractFigureItem> const& item, DPoint2D const& about,
                    bool mirrorY) override;
    void SetItemHighlight(SmartPtr<AbstractFigureItem> const& item, bool on);
    void SetItemPreselectHighlight(SmartPtr<AbstractFigureItem> const& item, bool on);
    void SetItemVisibility(SmartPtr<AbstractFigureItem> const& item, bool on);

    // Visibility as a user sets it: recorded, saved, and undone through the operation's steps. A
    // null operation leaves the change without undo. Observers hear of each step.

    void HideItems(Items const& items, SmartPtr<zvk::Operation> const& operation);
    void UnHideItems(Items const& items, SmartPtr<zvk::Operation> const& operation);
    /// Hides everything but `items`, what belongs to cables among them and what is grouped with
    /// one of them on the figure; then shows those of `items` that are hidden. One or two steps.
    void IsolateItems(Items const& items, SmartPtr<zvk::Operation> const& operation);
    /// Shows what `GetHiddenContentVisitor` finds.
    void UnhideAll(SmartPtr<zvk::Operation> const& operation);
    /// `UnHideItems` or `HideItems`.
    void ShowHideNodes(Items const& items, bool show, SmartPtr<zvk::Operation> const& operation);

    // Settings. `notify` tells observers that the looks changed.

    void AddSetting(ConstSmartPtr<Setting> const& setting, bool notify) override;
    bool ClearSettingList(figk::Setting::Level level, bool notify) override;
    void RemoveSetting(Setting::RepKey key, figk::Setting::Level level, bool notify);
    void AddItemSetting(SmartPtr<AbstractFigureItem> const& item,
                        ConstSmartPtr<Setting> const& setting, bool notify);
    bool ClearItemSettingList(SmartPtr<AbstractFigureItem> const& item, figk::Setting::Level level,
                              bool notify);
    void RemoveItemSetting(SmartPtr<AbstractFigureItem> const& item, Setting::RepKey key,
                           figk::Setting::Level level, bool notify);
    bool GetFormatGridOn() const;
    void SetFormatGridOn(bool on);

    // Pictures.

    /// Brings the pictures of all wires up to date; nothing before the figure is loaded, and
    /// nothing that shows while regeneration is suspended. Cost: that of what changed.
    void UpdateContent();
    bool GetGraphicRegenerationSuspended() const;
    void SetGraphicRegenerationSuspended(bool suspended);
    virtual bool ItemHasCrossingPoints(SmartPtr<AbstractFigureItem> const& item);
    /// Notes that the course of a sub-net or sub-highway changed, so that its crossings and arrows
    /// are looked at again. Sub-nets and sub-highways call it; constant time.
    void NoteWireChanged(AbstractFigureItem& wire);
    /// Asks for new pictures of all wires that cross the sub-net, sub-highway or segment, since a
    /// setting there can decide how a crossing looks. Cost: the crossings.
    void MarkCrossingPartners(AbstractFigureItem const& wire);
    /// The box of what the figure shows, computed when unknown by a walk of all content.
    DBox2D GetExtents();
    /// `DBox2D::EMPTY` has the box computed anew when next asked for.
    void SetExtents(DBox2D const& extents);
    void SetTitleBlockGraphicsGenerator(SmartPtr<TitleBlockGraphicsGenerator> const& generator);
    void SetProfileRequiresGraphicalRegeneration(bool required);
    /// Tells observers when the new profile needs new pictures; the mark stays.
    void ProfileApplied();
    /// The box by which a user drags the content, null for none. The figure holds it, so that undo
    /// and redo of a drag fit it again. No lock; the view's thread only.
    SmartPtr<zvmk::FigureContentShadow> GetFigureShadow() const;
    void SetFigureShadow(SmartPtr<zvmk::FigureContentShadow> const& shadow);
    /// A box drawn into the figure's own label group, for debugging.
    SmartPtr<BaseGraphic> AddDebugGraphic(DBox2D const& box);

    // Wires.

    /// Makes `subNet` the one whose highway nodes are tied into the highways; null leaves none.
    /// Nothing happens while another switch is under way.
    void PrePivot(SmartPtr<SubNet> const& subNet);
    unsigned int GetNextSubNetId();
    unsigned int GetNextSubHighwayId();

    // Marks.

    bool GetLoaded() const;
    void SetLoaded();
    /// Whether a user changed the figure since it was loaded or the mark was reset.
    bool HasChanged() const;
    void ResetHasChanged();

    // Observers and events.

    static unsigned char GetBaseEventId();
    bool RegisterObserver(SmartPtr<FigureObserver> const& observer);
    bool UnregisterObserver(SmartPtr<FigureObserver> const& observer);
    void PostChangedEvent();
    void PostAppearanceChangedEvent();
    void PostVisibilityEvent(Items const& items, bool visible);
    /// Tells observers that the content changed.
    void Refresh();

    /// What knows this figure without holding it keeps this; cleared when the figure goes.
    SmartPtr<FigureLink> const& GetLink() const { return link_; }

    /// "000", "001" and so on, one count for all figures of the process.
    static std::string GenerateNextGraphicName();

    /// Empty: labels that stand on the figure belong to no item.
    Symbol GetTextOwnerId() const override;

protected:
    ~Figure() override;
    void ZeroReferenceCountHook() override;
    void PostObservableEvent(dom::ObservableEvent const& event, bool flag) override;
    ConstSmartPtr<figk::Setting> GetInheritedSetting(Setting::RepKey key, unsigned int& depth,
                                                     bool inheritableOnly) const override;
    void SettingsChanged() override;

private:
    void SetDefaultLineAttributes();
    void AddItemToSbomKernelFigureMap(SmartPtr<AbstractFigureItem> const& item);
    void RemoveItemFromSbomKernelFigureMap(SmartPtr<AbstractFigureItem> const& item);
    bool IsStillOurs(AbstractFigureItem const& wire) const;
    void DestroyConnectivity();
    void ClearCableInstances();
    void TearDown();
    template <typename Item>
    void Register(std::vector<SmartPtr<Item>>& registry, SmartPtr<Item> const& item);
    void RemoveBlockInstance(SmartPtr<AbstractFigureItem> const& item);
    void RemoveFormat(SmartPtr<AbstractFigureItem> const& item);
    void RemoveSubHighway(SmartPtr<AbstractFigureItem> const& item);
    void RemoveSubNet(SmartPtr<AbstractFigureItem> const& item);
    Items ItemsBeside(Items const& items);
    void UpdateArrows();
    void DrawWires();
    void NoteFailure(SmartPtr<figk::AbstractDelta> const& delta);
    void CaptureTitleBlock(zvk::SerializedContentElement& element);
    void PostItemsChanged(Items const& items);
    void PostEvent(unsigned char constant);
    void MarkChanged(bool notify);

    // All guarded by the kernel's lock.
    Deltas deltas_;
    Deltas deltaFailures_;
    std::vector<SmartPtr<BlockInstance>> blockInstances_;
    std::vector<SmartPtr<CableInstance>> cableInstances_;
    SmartPtr<Format> format_;
    std::vector<SmartPtr<SubHighway>> subHighways_;
    std::vector<SmartPtr<Miscellaneous>> miscellaneous_;
    std::vector<SmartPtr<Port>> ports_;
    std::vector<SmartPtr<SubNet>> subNets_;
    std::vector<SmartPtr<TableInstance>> tableInstances_;
    std::vector<SmartPtr<figk::Design>> designs_;
    std::vector<SmartPtr<figk::Sheet>> sheets_;
    SmartPtr<CrossingPointsVisitor> crossingPoints_;
    SmartPtr<ArrowPatternGenerator> arrowPatterns_;
    bool pivotInProgress_ = false;
    SmartPtr<SubNet> activeSubNet_;
    unsigned int nextSubNetId_ = 0;
    unsigned int nextSubHighwayId_ = 0;
    bool graphicRegenerationSuspended_ = false;
    DBox2D figureExtents_ = DBox2D::EMPTY;
    SmartPtr<zvmk::FigureContentShadow> figureShadow_;  // not guarded
    std::unordered_map<SmartPtr<figk::AbstractItem>, Items> sbomKernelFigureMap_;
    bool profileRequiresGraphicalRegeneration_ = false;
    bool loaded_ = false;
    SmartPtr<FindFigureItemVisitor> findVisitor_;
    bool hasChanged_ = false;
    SmartPtr<TitleBlockGraphicsGenerator> titleBlockGraphicsGenerator_;
    SmartPtr<FigureLink> link_;
    // Taken out of the registries, yet to be taken apart with the rest.
    std::vector<SmartPtr<SubNet>> removedSubNets_;
    std::vector<SmartPtr<SubHighway>> removedSubHighways_;
    bool tornDown_ = false;
};

}  // namespace figrep
