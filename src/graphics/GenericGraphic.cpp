#include <figrep/GenericGraphic.h>

#include <attrs/FillAttr.h>
#include <figk/GenericGraphic.h>
#include <figk/Zv2dGraphics.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Format.h>
#include <figrep/GraphicGroup.h>
#include <figrep/Segment.h>
#include <figrep/SubNet.h>
#include <figrep/TextGraphic.h>
#include <zvk/ReadWriteLock.h>

#include <deque>

namespace figrep {

namespace {

/// The first text met breadth first from `top` down.
SmartPtr<TextGraphic> FindFirstText(SmartPtr<GraphicGroup> const& top) {
    std::deque<SmartPtr<GraphicGroup>> groups{top};
    while (!groups.empty()) {
        SmartPtr<GraphicGroup> const group = groups.front();
        groups.pop_front();
        for (SmartPtr<GraphicGroupMember> const& member : *group) {
            if (auto text = du::DynamicCast<TextGraphic>(member)) return text;
            if (auto const nested = du::DynamicCast<GraphicGroup>(member)) groups.push_back(nested);
        }
    }
    return nullptr;
}

}  // namespace

GenericGraphic::GenericGraphic(SmartPtr<zvk::ReadWriteLock> const& lock,
                               SmartPtr<figk::GenericGraphic> const& kernelGraphic)
    : BaseGraphic(lock, SmartPtr<figk::AbstractItem>(kernelGraphic)) {}

GenericGraphic::GenericGraphic(SmartPtr<zvk::ReadWriteLock> const& lock)
    : BaseGraphic(lock, std::string()) {}

GenericGraphic::~GenericGraphic() = default;

SmartPtr<GenericGraphic> GenericGraphic::Create(SmartPtr<zvk::ReadWriteLock> const& lock,
                                                SmartPtr<figk::GenericGraphic> const& kernelGraphic,
                                                SmartPtr<figk::Group> const& group) {
    SmartPtr<GenericGraphic> graphic(new GenericGraphic(lock, kernelGraphic));
    graphic->Initialise(group);
    return graphic;
}

SmartPtr<GenericGraphic> GenericGraphic::CreateWith(SmartPtr<zvk::ReadWriteLock> const& lock,
                                                    SmartPtr<figk::Zv2dGraphics> const& graphics,
                                                    SmartPtr<figk::Group> const& group) {
    SmartPtr<GenericGraphic> graphic(new GenericGraphic(lock));
    graphic->SetOwnGraphics(graphics);
    graphic->Initialise(group);
    return graphic;
}

SmartPtr<GenericGraphic> GenericGraphic::Create(SmartPtr<zvk::ReadWriteLock> const& lock,
                                                SmartPtr<zv2d::Instance> const& instance,
                                                SmartPtr<figk::Group> const& group) {
    SmartPtr<figk::Zv2dGraphics> const graphics(new figk::Zv2dGraphics(lock, instance));
    return CreateWith(lock, graphics, group);
}

SmartPtr<GenericGraphic> GenericGraphic::Create(
    SmartPtr<zvk::ReadWriteLock> const& lock,
    std::vector<SmartPtr<zv2d::Instance>> const& instances, DBox2D const& extents,
    SmartPtr<figk::Group> const& group) {
    SmartPtr<figk::Zv2dGraphics> const graphics(new figk::Zv2dGraphics(lock, instances));
    SmartPtr<GenericGraphic> graphic = CreateWith(lock, graphics, group);
    graphic->SetCachedExtents(extents);
    return graphic;
}

SmartPtr<GenericGraphic> GenericGraphic::Create(SmartPtr<zvk::ReadWriteLock> const& lock,
                                                DBox2D const& box,
                                                SmartPtr<figk::Group> const& group) {
    return Create(lock, figk::Zv2dGraphics::CreateBoxInstance(box), group);
}

void GenericGraphic::Initialise(SmartPtr<figk::Group> const& group) {
    BaseGraphic::Initialise(group);
    DeriveId();
}

void GenericGraphic::DeriveId() {
    if (SmartPtr<figk::AbstractItem> const item = GetKernelItem()) SetId(item->GetId());
}

SmartPtr<figk::GenericGraphic> GenericGraphic::GetKernelGenericGraphic() const {
    return GetKernelItemAs<figk::GenericGraphic>();
}

std::string const& GenericGraphic::GetName() const {
    zvk::ReadGuard guard(GetLock());
    SmartPtr<GraphicGroup> const owner = GetOwner();
    if (owner && SmartPtr<figk::Group>(owner) != GetHeadGroup()) {
        if (SmartPtr<TextGraphic> const text = FindFirstText(owner)) {
            std::string const& name = text->GetName();
            return name.empty() ? text->GetText().GetString() : name;
        }
    }
    return BaseGraphic::GetName();
}

void GenericGraphic::Accept(AbstractFigureVisitor& visitor) {
    visitor.Visit(SmartPtr<GenericGraphic>(this));
}

bool GenericGraphic::IsFormatGraphic() const {
    return static_cast<bool>(du::DynamicCast<Format>(GetOwner()));
}

bool GenericGraphic::FineOverlapCheck(DPoint2D const& point) const {
    return FineOverlapCheck(DBox2D(point, point));
}

bool GenericGraphic::FineOverlapCheck(DBox2D const& box) const {
    if (!IsFormatGraphic()) return true;
    SmartPtr<figk::Zv2dGraphics> const graphics = GetZv2dGraphics();
    return !graphics || graphics->FineOverlapCheck(box);
}

bool GenericGraphic::FineContentCheck(DBox2D const& box) const {
    if (!IsFormatGraphic()) return true;
    SmartPtr<figk::Zv2dGraphics> const graphics = GetZv2dGraphics();
    return !graphics || graphics->FineContentCheck(box);
}

bool GenericGraphic::GetColorFromSettings(Color& out) const {
    Color line;
    figk::Setting::Level level{};
    unsigned depth = 0;
    if (!GetColorSetting(Setting::LINE_COLOR, line, level, depth)) {
        return GetColorSetting(Setting::COLOR, out);
    }
    bool const isDefault = level <= figk::Setting::LEVEL_BASE;
    if (!isDefault || line != Color::BLACK) {
        out = line;
        return true;
    }
    // Black by default means that nobody chose a colour for lines.
    Color color = Color::BLACK;
    if (GetColorSetting(Setting::COLOR, color)) out = color;
    return true;
}

void GenericGraphic::UpdateRenderInfo() {
    zvk::ReadGuard guard(GetLock());
    RenderInfo& info = GetRenderInfoForUpdate();
    ConstSmartPtr<zv2d::LineAttributes> line;
    GetZv2dLineAttributesSetting(figk::Setting::KEY_LINE_ATTRIBUTES, line);
    info.SetLineAttributes(line);
    ConstSmartPtr<attrs::FillAttr> fill;
    if (GetZv2dFillAttributesSetting(figk::Setting::KEY_FILL_ATTRIBUTES, fill)) {
        info.SetFillAttributes(fill);
    }
    info.SetFillBackground(GetFillBackground());
    UpdateTexture();
}

void GenericGraphic::UpdateTexture() {
    SmartPtr<figk::Group> const head = GetHeadGroup();
    if (!du::DynamicCast<Segment>(head) && !du::DynamicCast<SubNet>(head)) return;
    ConstSmartPtr<zv2d::Texture> texture;
    figk::Setting::Level textureLevel{};
    unsigned textureDepth = 0;
    bool applies =
        GetZv2dTextureSetting(figk::Setting::KEY_TEXTURE, texture, textureLevel, textureDepth);
    figk::LineStyleAttr style;
    figk::Setting::Level styleLevel{};
    unsigned styleDepth = 0;
    if (applies && GetLineStyleSetting(Setting::LINE_STYLE, style, styleLevel, styleDepth)) {
        applies =
            styleLevel < textureLevel || (styleLevel == textureLevel && textureDepth <= styleDepth);
    }
    GetRenderInfoForUpdate().SetTexture(applies ? texture : nullptr);
}

void GenericGraphic::GenerateZv2dGraphics() const {}

}  // namespace figrep
