#include <figrep/TitleBlockTextSection.h>

#include <figk/SchematicKernel.h>
#include <figrep/Figure.h>
#include <figrep/TitleBlock.h>
#include <figrep/TokenInterpreter.h>
#include <zvk/Depiction.h>
#include <zvk/ReadWriteLock.h>
#include <zvkapp/OrbitApp.h>

namespace figrep {

namespace {

/// The publish mode in which the authoring application fills tokens in.
constexpr int PUBLISH_WITH_TOKENS = 4;

bool KeepsTokensRaw() {
    if (!zvk::depiction::IsRunningDepict()) return false;
    auto const app = zvkapp::depiction::OrbitApp::GetOrbitApp();
    return app && app->GetPublishBatchMode() != PUBLISH_WITH_TOKENS;
}

bool MayHoldToken(TitleBlockTextSection::TextSegment const& segment) {
    return !segment.token.empty() && (segment.type == 1 || segment.type == 3);
}

/// A section has no lock of its own; all items share the kernel's.
SmartPtr<zvk::ReadWriteLock> const& Lock() {
    return figk::SchematicKernel::GetKernelLock();
}

}  // namespace

SmartPtr<TokenInterpreter> TitleBlockTextSection::s_tokenInterpreter;

TitleBlockTextSection::TitleBlockTextSection(
    SmartPtr<figk::TitleBlockTextSection> const& kernelSection)
    : kernelSection_(kernelSection), id_(kernelSection ? kernelSection->GetId() : 0) {
    if (kernelSection_) kernelSection_->GetText(text_);
}

TitleBlockTextSection::TitleBlockTextSection(unsigned id, std::vector<TextSegment> const& text)
    : id_(id), text_(text) {}

TitleBlockTextSection::TitleBlockTextSection(TitleBlockTextSection const& other)
    : du::RefCounted(other),
      kernelSection_(other.kernelSection_),
      id_(other.id_),
      text_(other.text_),
      textTokensOutOfDate_(other.textTokensOutOfDate_) {}

TitleBlockTextSection::~TitleBlockTextSection() = default;

// The look. `kernelSection_` can come later, by `Verify`, so it is read under the lock.

SmartPtr<figk::TitleBlockTextSection> TitleBlockTextSection::GetKernelTitleBlockTextSection()
    const {
    zvk::ReadGuard guard(Lock());
    return kernelSection_;
}

template <typename Value>
Value TitleBlockTextSection::Look(Value (figk::TitleBlockTextSection::*get)() const,
                                  Value const& otherwise) const {
    zvk::ReadGuard guard(Lock());
    return kernelSection_ ? ((*kernelSection_).*get)() : otherwise;
}

figk::TitleBlockTextSection::Alignment TitleBlockTextSection::GetAlignment() const {
    return Look(&figk::TitleBlockTextSection::GetAlignment,
                figk::TitleBlockTextSection::ALIGN_LEFT);
}

bool TitleBlockTextSection::GetBold() const {
    return Look(&figk::TitleBlockTextSection::GetBold, false);
}

bool TitleBlockTextSection::GetItalic() const {
    return Look(&figk::TitleBlockTextSection::GetItalic, false);
}

bool TitleBlockTextSection::GetUnderline() const {
    return Look(&figk::TitleBlockTextSection::GetUnderline, false);
}

bool TitleBlockTextSection::GetStrikeOut() const {
    return Look(&figk::TitleBlockTextSection::GetStrikeOut, false);
}

Color TitleBlockTextSection::GetFontColor() const {
    return Look(&figk::TitleBlockTextSection::GetFontColor, Color::BLACK);
}

double TitleBlockTextSection::GetFontSize() const {
    return Look(&figk::TitleBlockTextSection::GetFontSize, 0.0);
}

double TitleBlockTextSection::GetSpacing() const {
    return Look(&figk::TitleBlockTextSection::GetSpacing, 0.0);
}

// The text.

void TitleBlockTextSection::GetText(std::vector<TextSegment>& out) {
    zvk::WriteGuard guard(Lock());
    if (titleBlock_ && textTokensOutOfDate_) {
        textTokensOutOfDate_ = false;
        InterpretText();
    }
    out.insert(out.end(), text_.begin(), text_.end());
}

void TitleBlockTextSection::InterpretText() {
    if (KeepsTokensRaw()) return;
    SmartPtr<Figure> const figure = titleBlock_->GetFigure();
    if (!s_tokenInterpreter || !figure) return;
    for (TextSegment& segment : text_) {
        if (!MayHoldToken(segment)) continue;
        std::string result;
        if (s_tokenInterpreter->Interpret(figure, segment.token, result)) segment.text = result;
    }
}

void TitleBlockTextSection::SetText(std::vector<TextSegment> const& text, bool tokensOutOfDate) {
    zvk::WriteGuard guard(Lock());
    text_ = text;
    textTokensOutOfDate_ = tokensOutOfDate;
}

void TitleBlockTextSection::SetTextTokensOutOfDate() {
    zvk::WriteGuard guard(Lock());
    textTokensOutOfDate_ = true;
}

void TitleBlockTextSection::SetTitleBlock(TitleBlock* titleBlock) {
    zvk::WriteGuard guard(Lock());
    titleBlock_ = titleBlock;
}

void TitleBlockTextSection::LeaveTitleBlock(TitleBlock const* titleBlock) {
    zvk::WriteGuard guard(Lock());
    if (titleBlock_ == titleBlock) titleBlock_ = nullptr;
}

bool TitleBlockTextSection::Verify(SmartPtr<figk::TitleBlock> const& kernelTitleBlock) {
    zvk::WriteGuard guard(Lock());
    if (kernelSection_) return true;
    if (kernelTitleBlock) kernelSection_ = kernelTitleBlock->GetTextSection(id_);
    return static_cast<bool>(kernelSection_);
}

void TitleBlockTextSection::SetTokenInterpreter(SmartPtr<TokenInterpreter> const& interpreter) {
    s_tokenInterpreter = interpreter;
}

}  // namespace figrep
