// Lines, shapes and pictures of a design.
#pragma once

#include <figk/BaseGraphic.h>

namespace figk {

class GenericGraphic : public BaseGraphic {
public:
    ~GenericGraphic() override;

    void Accept(AbstractVisitor& visitor) override;
    TypeDefinitions::KernelItemType GetKernelItemType() const override;
};

}  // namespace figk
