#include <figrep/TitleBlockGraphicsGenerator.h>

namespace figrep {

TitleBlockGraphicsGenerator::~TitleBlockGraphicsGenerator() = default;

}  // namespace figrep
