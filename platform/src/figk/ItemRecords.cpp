// The records that are no nodes: what a visitor sees of each, and in which order.
#include <du/Utf8.h>
#include <figk/AbstractVisitor.h>
#include <figk/BlockInstance.h>
#include <figk/CableInstance.h>
#include <figk/ConnectionNode.h>
#include <figk/ConnectorInstance.h>
#include <figk/Design.h>
#include <figk/Format.h>
#include <figk/GenericGraphic.h>
#include <figk/Highway.h>
#include <figk/Miscellaneous.h>
#include <figk/Net.h>
#include <figk/NetSegment.h>
#include <figk/Port.h>
#include <figk/PortNode.h>
#include <figk/Sheet.h>
#include <figk/SubHighway.h>
#include <figk/SubNet.h>
#include <figk/TableInstance.h>
#include <figk/TextGraphic.h>
#include <figk/TitleBlock.h>
#include <zv2d/Instance.h>
#include <zv2d/Text.h>

namespace figk {

using Types = TypeDefinitions;

namespace {

template <typename Record>
void AcceptOne(SmartPtr<Record> const& record, AbstractVisitor& visitor) {
    if (record) record->Accept(visitor);
}

template <typename Record>
void AcceptAll(std::vector<SmartPtr<Record>> const& records, AbstractVisitor& visitor) {
    for (SmartPtr<Record> const& record : records)
        AcceptOne(record, visitor);
}

/// Shows a record that is a group and carries labels.
template <typename Record>
void AcceptPictured(Record& record, AbstractVisitor& visitor) {
    if (!visitor.Visit(SmartPtr<Record>(&record))) return;
    record.AcceptGroup(visitor);
    record.AcceptLabels(visitor);
}

/// Keeps the first text that it reads.
class FirstText : public zv2d::EntityVisitor {
public:
    using zv2d::EntityVisitor::Visit;
    void Visit(zv2d::Text const& text) override {
        if (!found) found = &text;
    }

    zv2d::Text const* found = nullptr;
};

}  // namespace

TextLabelContainer::TextLabelContainer() = default;
TextLabelContainer::TextLabelContainer(TextLabelContainer const& other) : du::RefCounted(other) {}
TextLabelContainer::~TextLabelContainer() = default;

void TextLabelContainer::AcceptLabels(AbstractVisitor& visitor) {
    SmartPtr<Group> const labels = GetTextLabelContainerGroup();
    if (!labels || !visitor.VisitTextLabelContainer(SmartPtr<TextLabelContainer>(this))) return;
    labels->AcceptGroup(visitor);
}

BaseGraphic::~BaseGraphic() = default;

GenericGraphic::~GenericGraphic() = default;
void GenericGraphic::Accept(AbstractVisitor& visitor) {
    visitor.Visit(SmartPtr<GenericGraphic>(this));
}
Types::KernelItemType GenericGraphic::GetKernelItemType() const {
    return Types::ITEM_GENERIC_GRAPHIC;
}

TextGraphic::~TextGraphic() = default;
void TextGraphic::Accept(AbstractVisitor& visitor) {
    visitor.Visit(SmartPtr<TextGraphic>(this));
}
Types::KernelItemType TextGraphic::GetKernelItemType() const {
    return Types::ITEM_TEXT_GRAPHIC;
}

Symbol TextGraphic::GetTextFromInstance(SmartPtr<zv2d::Instance> const& instance) {
    if (!instance || !instance->GetDefinition()) return Symbol();
    FirstText reader;
    for (ConstSmartPtr<zv2d::Entity> const& entity : *instance->GetDefinition()) {
        entity->Accept(reader);
    }
    return reader.found ? Symbol(du::WideStrToUtf8(reader.found->GetText())) : Symbol();
}

Design::~Design() = default;
void Design::Accept(AbstractVisitor& visitor) {
    if (visitor.Visit(SmartPtr<Design>(this))) AcceptAll(GetSheets(), visitor);
}
Types::KernelItemType Design::GetKernelItemType() const {
    return Types::ITEM_DESIGN;
}

Sheet::~Sheet() = default;
void Sheet::Accept(AbstractVisitor& visitor) {
    if (!visitor.Visit(SmartPtr<Sheet>(this))) return;
    AcceptOne(GetFormat(), visitor);
    AcceptOne(GetTitleBlock(), visitor);
    AcceptLabels(visitor);
    AcceptAll(GetBlockInstances(), visitor);
    AcceptAll(GetCableInstances(), visitor);
    AcceptAll(GetTableInstances(), visitor);
    AcceptAll(GetMiscellaneous(), visitor);
    AcceptAll(GetSubHighways(), visitor);
    AcceptAll(GetSubNets(), visitor);
}
Types::KernelItemType Sheet::GetKernelItemType() const {
    return Types::ITEM_SHEET;
}

Net::~Net() = default;
void Net::Accept(AbstractVisitor& visitor) {
    if (visitor.Visit(SmartPtr<Net>(this))) AcceptAll(GetSubNets(), visitor);
}
Types::KernelItemType Net::GetKernelItemType() const {
    return Types::ITEM_NET;
}

SubNet::~SubNet() = default;
void SubNet::Accept(AbstractVisitor& visitor) {
    if (visitor.Visit(SmartPtr<SubNet>(this))) AcceptOne(GetHead(), visitor);
}
Types::KernelItemType SubNet::GetKernelItemType() const {
    return Types::ITEM_SUB_NET;
}

Highway::~Highway() = default;
void Highway::Accept(AbstractVisitor& visitor) {
    if (visitor.Visit(SmartPtr<Highway>(this))) AcceptAll(GetSubHighways(), visitor);
}
Types::KernelItemType Highway::GetKernelItemType() const {
    return Types::ITEM_HIGHWAY;
}

SubHighway::~SubHighway() = default;
void SubHighway::Accept(AbstractVisitor& visitor) {
    if (visitor.Visit(SmartPtr<SubHighway>(this))) AcceptOne(GetHead(), visitor);
}
Types::KernelItemType SubHighway::GetKernelItemType() const {
    return Types::ITEM_SUB_HIGHWAY;
}

Port::~Port() = default;
void Port::Accept(AbstractVisitor& visitor) {
    visitor.Visit(SmartPtr<Port>(this));
}
Types::KernelItemType Port::GetKernelItemType() const {
    return Types::ITEM_PORT;
}

ConnectorInstance::~ConnectorInstance() = default;
void ConnectorInstance::Accept(AbstractVisitor& visitor) {
    AcceptPictured(*this, visitor);
}
Types::KernelItemType ConnectorInstance::GetKernelItemType() const {
    return Types::ITEM_CONNECTOR_INSTANCE;
}

BaseBlockInstance::~BaseBlockInstance() = default;
void BaseBlockInstance::AcceptContent(AbstractVisitor& visitor) {
    AcceptGroup(visitor);
    AcceptLabels(visitor);
    AcceptAll(GetConnectorInstances(), visitor);
}

BlockInstance::~BlockInstance() = default;
void BlockInstance::Accept(AbstractVisitor& visitor) {
    if (visitor.Visit(SmartPtr<BlockInstance>(this))) AcceptContent(visitor);
}
Types::KernelItemType BlockInstance::GetKernelItemType() const {
    return Types::ITEM_BLOCK_INSTANCE;
}

CableInstance::~CableInstance() = default;
void CableInstance::Accept(AbstractVisitor& visitor) {
    if (visitor.Visit(SmartPtr<CableInstance>(this))) AcceptContent(visitor);
}
Types::KernelItemType CableInstance::GetKernelItemType() const {
    return Types::ITEM_CABLE_INSTANCE;
}

TableInstance::~TableInstance() = default;
void TableInstance::Accept(AbstractVisitor& visitor) {
    if (visitor.Visit(SmartPtr<TableInstance>(this))) AcceptContent(visitor);
}
Types::KernelItemType TableInstance::GetKernelItemType() const {
    return Types::ITEM_TABLE_INSTANCE;
}

Miscellaneous::~Miscellaneous() = default;
void Miscellaneous::Accept(AbstractVisitor& visitor) {
    AcceptPictured(*this, visitor);
}
Types::KernelItemType Miscellaneous::GetKernelItemType() const {
    return Types::ITEM_MISCELLANEOUS;
}

Format::~Format() = default;
void Format::Accept(AbstractVisitor& visitor) {
    AcceptPictured(*this, visitor);
}
Types::KernelItemType Format::GetKernelItemType() const {
    return Types::ITEM_FORMAT;
}

TitleBlockTextSection::~TitleBlockTextSection() = default;

TitleBlock::~TitleBlock() = default;
void TitleBlock::Accept(AbstractVisitor& visitor) {
    AcceptPictured(*this, visitor);
}
Types::KernelItemType TitleBlock::GetKernelItemType() const {
    return Types::ITEM_TITLE_BLOCK;
}

}  // namespace figk
