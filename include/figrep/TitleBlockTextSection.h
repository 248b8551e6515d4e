// One text of a title block, with tokens that the host fills in.
#pragma once

#include <dg/Color.h>
#include <du/RefCounted.h>
#include <figk/TitleBlock.h>
#include <figrep/Fwd.h>

#include <vector>

namespace figrep {

/// A run of text segments, some of which hold tokens. A section loaded from saved content has no
/// kernel section until `Verify` finds it by number.
///
/// Ownership: the title block holds its sections; a section knows it without holding it.
/// Locking: the kernel's lock, for reading by the getters of the look, for writing by all else.
class TitleBlockTextSection : public virtual du::RefCounted {
public:
    using TextSegment = figk::TitleBlockTextSection::TextSegment_s;

    /// Copies number and text of the kernel's section.
    explicit TitleBlockTextSection(SmartPtr<figk::TitleBlockTextSection> const& kernelSection);
    /// For loaders: `id` is the section's number in the kernel's title block.
    TitleBlockTextSection(unsigned id, std::vector<TextSegment> const& text);
    TitleBlockTextSection(TitleBlockTextSection const& other);
    ~TitleBlockTextSection() override;

    unsigned GetId() const { return id_; }
    SmartPtr<figk::TitleBlockTextSection> GetKernelTitleBlockTextSection() const;

    // The look, as the kernel's section has it. Without one: left, plain, black, 0.
    figk::TitleBlockTextSection::Alignment GetAlignment() const;
    bool GetBold() const;
    bool GetItalic() const;
    bool GetUnderline() const;
    bool GetStrikeOut() const;
    Color GetFontColor() const;
    double GetFontSize() const;
    double GetSpacing() const;

    /// Appends the segments to `out`, tokens resolved. The host's interpreter is asked once until
    /// the tokens are marked out of date again; in the authoring application, outside of a batch
    /// publication, tokens stay raw.
    void GetText(std::vector<TextSegment>& out);
    void SetText(std::vector<TextSegment> const& text, bool tokensOutOfDate);
    void SetTextTokensOutOfDate();
    /// Null when the section leaves its title block.
    void SetTitleBlock(TitleBlock* titleBlock);
    /// The same as setting null, unless the section has gone to another title block meanwhile.
    void LeaveTitleBlock(TitleBlock const* titleBlock);
    /// Ties the section to the kernel's section of its number. False when there is none.
    bool Verify(SmartPtr<figk::TitleBlock> const& kernelTitleBlock);

    /// Set once by the host at start, unguarded; null leaves all tokens raw.
    static void SetTokenInterpreter(SmartPtr<TokenInterpreter> const& interpreter);

private:
    template <typename Value>
    Value Look(Value (figk::TitleBlockTextSection::*get)() const, Value const& otherwise) const;
    void InterpretText();

    static SmartPtr<TokenInterpreter> s_tokenInterpreter;

    TitleBlock* titleBlock_ = nullptr;  // cleared by the title block
    SmartPtr<figk::TitleBlockTextSection> kernelSection_;
    unsigned id_;
    std::vector<TextSegment> text_;
    bool textTokensOutOfDate_ = true;
};

}  // namespace figrep
