// Shapes and texts of the embedded kernel.
#pragma once

#include <figk/GenericGraphic.h>
#include <figk/TextGraphic.h>
#include <figk/Zv2dGraphics.h>

#include "RecordBase.h"

namespace figkernel {

/// What a shape and a text have in common: a picture, and the sheet on which it stands.
template <class Base>
class GraphicRecordT : public Record<Base> {
public:
    figk::SmartPtr<figk::Zv2dGraphics> GetZv2dGraphics() const override { return graphics; }
    figk::SmartPtr<figk::Design> GetDesign() const override { return link->GetDesign(); }

protected:
    GraphicRecordT(du::SmartPtr<SheetLink> const& sheet,
                   du::SmartPtr<figk::Zv2dGraphics> const& picture)
        : link(sheet), graphics(picture) {}

private:
    du::SmartPtr<SheetLink> link;
    du::SmartPtr<figk::Zv2dGraphics> graphics;
};

class ShapeRecord : public GraphicRecordT<figk::GenericGraphic> {
public:
    ShapeRecord(du::SmartPtr<SheetLink> const& sheet,
                du::SmartPtr<figk::Zv2dGraphics> const& picture, du::Symbol const& text)
        : GraphicRecordT(sheet, picture), name(text) {}

    std::string const& GetName() const override { return name.GetString(); }

private:
    du::Symbol name;
};

class TextRecord : public GraphicRecordT<figk::TextGraphic> {
public:
    TextRecord(du::SmartPtr<SheetLink> const& sheet,
               du::SmartPtr<figk::Zv2dGraphics> const& picture, du::Symbol const& content)
        : GraphicRecordT(sheet, picture), text(content) {}

    figk::Symbol GetText() const override { return text; }

private:
    du::Symbol text;
};

}  // namespace figkernel
