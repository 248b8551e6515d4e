#include <figrep/TextGraphic.h>

#include <attrs/TextAttr.h>
#include <dg/Angle.h>
#include <du/Utf8.h>
#include <figk/TextGraphic.h>
#include <figk/Zv2dGraphics.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/GraphicGroup.h>
#include <figrep/Segment.h>
#include <figrep/TextLabelContainer.h>
#include <figrep/TextLabelContainerGroup.h>
#include <zv2d/Text.h>
#include <zvk/ReadWriteLock.h>

#include <cmath>
#include <numbers>
#include <string_view>

namespace figrep {

namespace {

constexpr float LABEL_HEIGHT = 2.54F;  // figure units
/// From the wire to the label's baseline: a third of the height.
constexpr double LABEL_OFFSET = static_cast<double>(LABEL_HEIGHT) / 3.0;
constexpr double ABOUT_HORIZONTAL = 0.1;  // radians

struct ColorWord {
    std::string_view word;
    std::string_view shortWord;
    Color color;
};

constexpr ColorWord COLOR_WORDS[] = {
    {"red", "rd", Color::RED},       {"green", "gn", Color::GREEN},     {"blue", "bl", Color::BLUE},
    {"yellow", "yw", Color::YELLOW}, {"magenta", "mt", Color::MAGENTA}, {"cyan", "cn", Color::CYAN},
};

/// Takes the first word off `text`; empty when only spaces are left.
std::string_view GetNextToken(std::string_view& text) {
    std::size_t const start = text.find_first_not_of(' ');
    if (start == std::string_view::npos) {
        text = {};
        return {};
    }
    std::size_t const end = std::min(text.find(' ', start), text.size());
    std::string_view const token = text.substr(start, end - start);
    text.remove_prefix(end);
    return token;
}

bool FindColor(std::string_view word, Color& out) {
    for (ColorWord const& known : COLOR_WORDS) {
        if (word == known.word || word == known.shortWord) {
            out = known.color;
            return true;
        }
    }
    return false;
}

/// Where a label stands along a wire: below one that is about level, beside any other, turned
/// with it.
DMat33 PlaceAlong(DPoint2D const& start, DPoint2D const& end) {
    DPoint2D const mid((start.x + end.x) * 0.5, (start.y + end.y) * 0.5);
    double angle = dg::Angle(end - start);
    if (angle > std::numbers::pi) angle -= std::numbers::pi;
    bool const level = std::fabs(angle) <= ABOUT_HORIZONTAL ||
                       std::fabs(angle - std::numbers::pi) <= ABOUT_HORIZONTAL;
    DMat33 matrix;
    if (level) {
        matrix.SetTranslation(DPoint2D(mid.x, mid.y - LABEL_OFFSET));
        return matrix;
    }
    matrix = DMat33::RotationZ(angle);
    matrix.SetTranslation(DPoint2D(mid.x + LABEL_OFFSET, mid.y));
    return matrix;
}

SmartPtr<zv2d::Definition> MakeLabel(std::string const& text) {
    static Symbol const font("Arial");
    std::wstring const wide = du::Utf8ToWideStr(text);
    auto const attributes =
        zv2d::Attributes::Get(zv2d::Attributes(attrs::TextAttr(font, LABEL_HEIGHT)));
    SmartPtr<zv2d::Text> const entity(
        new zv2d::Text(DPoint2D(), wide, true, zv2d::Text::BOTTOM_CENTRE, false, attributes));
    float const width = static_cast<float>(wide.size()) * LABEL_HEIGHT;
    double const half = static_cast<double>(width) * 0.5;
    entity->SetBox(DBox2D(-half, 0.0, half, LABEL_HEIGHT));
    SmartPtr<zv2d::Definition> definition(new zv2d::Definition);
    definition->Add(entity);
    return definition;
}

}  // namespace

TextGraphic::TextGraphic(SmartPtr<zvk::ReadWriteLock> const& lock,
                         SmartPtr<figk::TextGraphic> const& kernelText)
    : BaseGraphic(lock, SmartPtr<figk::AbstractItem>(kernelText)) {}

TextGraphic::TextGraphic(SmartPtr<zvk::ReadWriteLock> const& lock, Symbol const& text)
    : BaseGraphic(lock, std::string()), text_(text) {}

TextGraphic::~TextGraphic() = default;

SmartPtr<TextGraphic> TextGraphic::Create(SmartPtr<zvk::ReadWriteLock> const& lock,
                                          SmartPtr<zv2d::Instance> const& instance,
                                          SmartPtr<figk::Group> const& group) {
    Symbol const text = instance ? figk::TextGraphic::GetTextFromInstance(instance) : Symbol::EMPTY;
    SmartPtr<TextGraphic> graphic(new TextGraphic(lock, text));
    graphic->SetOwnGraphics(new figk::Zv2dGraphics(lock, instance));
    graphic->Initialise(group);
    return graphic;
}

SmartPtr<TextGraphic> TextGraphic::Create(SmartPtr<zvk::ReadWriteLock> const& lock,
                                          SmartPtr<figk::TextGraphic> const& kernelText,
                                          SmartPtr<figk::Group> const& group) {
    SmartPtr<TextGraphic> graphic(new TextGraphic(lock, kernelText));
    graphic->Initialise(group);
    return graphic;
}

SmartPtr<TextGraphic> TextGraphic::Create(SmartPtr<zvk::ReadWriteLock> const& lock,
                                          Symbol const& text, SmartPtr<figk::Group> const& group) {
    SmartPtr<TextGraphic> graphic(new TextGraphic(lock, text));
    graphic->Initialise(group);
    return graphic;
}

void TextGraphic::Initialise(SmartPtr<figk::Group> const& group) {
    BaseGraphic::Initialise(group);
    SmartPtr<TextLabelContainer> const owner = GetLabelOwner();
    if (owner && owner->GetTextOwnerId().IsEmpty() && GetName().empty()) {
        SetName(GetText().GetString());
    }
    DeriveId();
}

void TextGraphic::DeriveId() {
    if (SmartPtr<figk::AbstractItem> const item = GetKernelItem()) SetId(item->GetId());
}

SmartPtr<TextLabelContainer> TextGraphic::GetLabelOwner() const {
    auto const group = du::DynamicCast<TextLabelContainerGroup>(GetOwner());
    return group ? group->GetTextLabelContainer() : nullptr;
}

SmartPtr<figk::TextGraphic> TextGraphic::GetKernelTextGraphic() const {
    return GetKernelItemAs<figk::TextGraphic>();
}

Symbol TextGraphic::GetText() const {
    zvk::ReadGuard guard(GetLock());
    if (!text_.IsEmpty()) return text_;
    SmartPtr<figk::TextGraphic> const kernelText = GetKernelTextGraphic();
    return kernelText ? kernelText->GetText() : text_;
}

bool TextGraphic::GetColorFromText(Color& out) const {
    Symbol const symbol = GetText();
    std::string_view text = symbol.GetString();
    for (std::string_view word = GetNextToken(text); !word.empty(); word = GetNextToken(text)) {
        if (FindColor(word, out)) return true;
    }
    return false;
}

void TextGraphic::Accept(AbstractFigureVisitor& visitor) {
    visitor.Visit(SmartPtr<TextGraphic>(this));
}

bool TextGraphic::GetColorFromSettings(Color& out) const {
    if (GetColorSetting(Setting::TEXT_COLOR, out)) return true;
    figk::Setting::Level level{};
    unsigned depth = 0;
    bool const found = GetColorSetting(Setting::COLOR, out, level, depth);
    Color line;
    figk::Setting::Level lineLevel{};
    if (GetColorSetting(Setting::LINE_COLOR, line, lineLevel, depth) &&
        (!found || lineLevel > level)) {
        out = line;
        return true;
    }
    return found;
}

void TextGraphic::UpdateRenderInfo() {
    zvk::ReadGuard guard(GetLock());
    GetRenderInfoForUpdate().SetFillBackground(GetFillBackground());
}

void TextGraphic::GenerateZv2dGraphics() const {
    auto const segment = du::DynamicCast<Segment>(GetLabelOwner());
    if (!segment) return;
    DPoint2D start;
    DPoint2D end;
    segment->GetEnds(start, end);
    SmartPtr<zv2d::Instance> const instance(
        new zv2d::Instance(MakeLabel(GetText().GetString()), PlaceAlong(start, end)));
    SetOwnGraphics(new figk::Zv2dGraphics(GetLock(), instance));
}

}  // namespace figrep
