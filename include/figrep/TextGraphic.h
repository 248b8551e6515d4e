// A text in a figure: a kernel text, a ready instance, or a label that draws itself along a wire.
#pragma once

#include <figrep/BaseGraphic.h>

namespace figrep {

/// A text item. A label made from a string alone draws itself along the segment that it labels.
class TextGraphic : public BaseGraphic {
public:
    /// Each makes a text that stands in `group`; a null group leaves it free.
    static SmartPtr<TextGraphic> Create(SmartPtr<zvk::ReadWriteLock> const& lock,
                                        SmartPtr<zv2d::Instance> const& instance,
                                        SmartPtr<figk::Group> const& group);
    static SmartPtr<TextGraphic> Create(SmartPtr<zvk::ReadWriteLock> const& lock,
                                        SmartPtr<figk::TextGraphic> const& kernelText,
                                        SmartPtr<figk::Group> const& group);
    static SmartPtr<TextGraphic> Create(SmartPtr<zvk::ReadWriteLock> const& lock,
                                        Symbol const& text, SmartPtr<figk::Group> const& group);
    ~TextGraphic() override;

    FigureItemType GetType() const override { return ITEM_TEXT_GRAPHIC; }
    /// The own text, else the kernel's; may be empty.
    Symbol GetText() const;
    SmartPtr<figk::TextGraphic> GetKernelTextGraphic() const;
    /// The colour named by the first lower-case colour word of the text; false without one.
    bool GetColorFromText(Color& out) const;
    void Accept(AbstractFigureVisitor& visitor) override;

    bool GetColorFromSettings(Color& out) const override;
    void UpdateRenderInfo() override;

protected:
    /// Only a label on a segment makes a picture; it reads along the wire.
    void GenerateZv2dGraphics() const override;

private:
    TextGraphic(SmartPtr<zvk::ReadWriteLock> const& lock,
                SmartPtr<figk::TextGraphic> const& kernelText);
    TextGraphic(SmartPtr<zvk::ReadWriteLock> const& lock, Symbol const& text);

    void Initialise(SmartPtr<figk::Group> const& group);
    void DeriveId() override;
    SmartPtr<TextLabelContainer> GetLabelOwner() const;

    Symbol text_;  // empty where the kernel's text applies
};

}  // namespace figrep
