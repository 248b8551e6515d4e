// Texts of a design.
#pragma once

#include <figk/BaseGraphic.h>

namespace figk {

class TextGraphic : public BaseGraphic {
public:
    ~TextGraphic() override;

    /// The text in UTF-8, lines separated by "\n".
    virtual Symbol GetText() const = 0;

    void Accept(AbstractVisitor& visitor) override;
    TypeDefinitions::KernelItemType GetKernelItemType() const override;

    /// The first text drawn by `instance`; empty without one, and for null.
    static Symbol GetTextFromInstance(SmartPtr<zv2d::Instance> const& instance);
};

}  // namespace figk
