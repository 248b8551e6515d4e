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

SmartPtr<figk::TitleBlockTextSection> TitleBlockTextSection::GetKernelTitleBlockTextSection()
    const {
    return kernelSection_;
}

figk::TitleBlockTextSection::Alignment TitleBlockTextSection::GetAlignment() const {
    return kernelSection_ ? kernelSection_->GetAlignment()
                          : figk::TitleBlockTextSection::ALIGN_LEFT;
}

bool TitleBlockTextSection::GetBold() const {
    return kernelSection_ && kernelSection_->GetBold();
}

bool TitleBlockTextSection::GetItalic() const {
    return kernelSection_ && kernelSection_->GetItalic();
}

bool TitleBlockTextSection::GetUnderline() const {
    return kernelSection_ && kernelSection_->GetUnderline();
}

bool TitleBlockTextSection::GetStrikeOut() const {
    return kernelSection_ && kernelSection_->GetStrikeOut();
}

Color TitleBlockTextSection::GetFontColor() const {
    return kernelSection_ ? kernelSection_->GetFontColor() : Color::BLACK;
}

double TitleBlockTextSection::GetFontSize() const {
    return kernelSection_ ? kernelSection_->GetFontSize() : 0.0;
}

double TitleBlockTextSection::GetSpacing() const {
    return kernelSection_ ? kernelSection_->GetSpacing() : 0.0;
}

void TitleBlockTextSection::GetText(std::vector<TextSegment>& out) {
    zvk::WriteGuard guard(figk::SchematicKernel::GetKernelLock());
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
    zvk::WriteGuard guard(figk::SchematicKernel::GetKernelLock());
    text_ = text;
    textTokensOutOfDate_ = tokensOutOfDate;
}

void TitleBlockTextSection::SetTextTokensOutOfDate() {
    textTokensOutOfDate_ = true;
}

void TitleBlockTextSection::SetTitleBlock(TitleBlock* titleBlock) {
    titleBlock_ = titleBlock;
}

bool TitleBlockTextSection::Verify(SmartPtr<figk::TitleBlock> const& kernelTitleBlock) {
    if (kernelSection_) return true;
    if (kernelTitleBlock) kernelSection_ = kernelTitleBlock->GetTextSection(id_);
    return static_cast<bool>(kernelSection_);
}

void TitleBlockTextSection::SetTokenInterpreter(SmartPtr<TokenInterpreter> const& interpreter) {
    s_tokenInterpreter = interpreter;
}

}  // namespace figrep
