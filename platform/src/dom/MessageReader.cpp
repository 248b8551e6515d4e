#include <dom/MessageReader.h>

#include <utility>

namespace dom {

MessageReader::MessageReader(std::vector<Value> values) : values_(std::move(values)) {}

MessageReader::~MessageReader() = default;

uint8_t MessageReader::GetUInt8Value() {
    if (AtEnd()) return 0;
    auto const* value = std::get_if<uint8_t>(&values_[next_]);
    if (!value) return 0;
    ++next_;
    return *value;
}

du::RefCounted* MessageReader::GetRawPtr() {
    if (AtEnd()) return nullptr;
    auto* value = std::get_if<du::SmartPtr<du::RefCounted>>(&values_[next_]);
    if (!value) return nullptr;
    ++next_;
    return value->Detach();
}

}  // namespace dom
