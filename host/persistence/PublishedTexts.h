// Which texts of a saved title block still count on another revision of its design.
#pragma once

#include <vector>

#include <figrep/Fwd.h>
#include <figrep/TitleBlockTextSection.h>
#include <zvk/SerializedContentElement.h>

namespace fighost {

/// Whether saved texts of a title block hold anything that isn't the design's own plain text: a
/// token, or a text that was put in later. Without any of these they say nothing that the design
/// doesn't say itself. Texts that can't be read count as published.
bool HoldsPublishedTexts(zvk::SerializedContentElement const& publication);

/// Remembers the texts that the design has in its title block while saved ones are written over
/// them, so that a title or a date of the last revision isn't shown on this one.
class DesignTexts {
public:
    /// `figure` may be without a title block.
    explicit DesignTexts(figrep::SmartPtr<figrep::Figure> const& figure);

    /// Puts the design's own plain texts back, and has tokens that can be told here told anew. A
    /// section in which something was put in later keeps the tokens' texts with it.
    void PutBack() const;

private:
    using Segment = figrep::TitleBlockTextSection::TextSegment;

    struct Section {
        figrep::SmartPtr<figrep::TitleBlockTextSection> section;
        std::vector<Segment> text;
    };
    std::vector<Section> sections_;
};

}  // namespace fighost
