// What the layouts of title blocks have in common.
#pragma once

#include <string>
#include <vector>

#include <figrep/Fwd.h>
#include <figrep/TitleBlock.h>
#include <zv2d/Entity.h>
#include <zv2d/Instance.h>
#include <zv2d/Text.h>

namespace fighost {

/// The section's text, tokens resolved.
std::wstring TitleBlockText(figrep::TitleBlockTextSection& section);

/// Adds a picture to the block's graphics and answers it.
figrep::SmartPtr<figrep::GenericGraphic> AddTitleBlockShapes(
    figrep::SmartPtr<figrep::TitleBlock> const& block,
    std::vector<du::ConstSmartPtr<zv2d::Entity>> const& entities, dg::Color const& color);

/// A text in the look of the section, at the origin; `height` in mm.
du::ConstSmartPtr<zv2d::Entity> MakeTitleBlockText(figrep::TitleBlockTextSection const& section,
                                                   std::wstring const& text, double height,
                                                   zv2d::Text::Alignment alignment,
                                                   std::string const& font = {});

/// Adds a text to the block's graphics; the matrix brings it to its place.
void AddTitleBlockText(figrep::SmartPtr<figrep::TitleBlock> const& block,
                       figrep::TitleBlockTextSection const& section,
                       du::ConstSmartPtr<zv2d::Entity> const& text, dg::DMat33 const& matrix);

}  // namespace fighost
