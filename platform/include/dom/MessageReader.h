// What an observer reads a message with.
#pragma once

#include <du/SmartPtr.h>

#include <cstddef>
#include <cstdint>
#include <variant>
#include <vector>

namespace dom {

/// The values of one message, read in the order in which they were pushed.
///
/// Reading past the end, or a value of another kind than the next one, answers 0 or null and stays
/// where it is. References that nobody read go back with the reader.
class MessageReader {
public:
    using Value = std::variant<uint8_t, du::SmartPtr<du::RefCounted>>;

    explicit MessageReader(std::vector<Value> values);
    ~MessageReader();

    uint8_t GetUInt8Value();

    /// The caller takes over the reference that was pushed.
    du::RefCounted* GetRawPtr();

    /// The same, held. Null, with the reference given back, for an object of another class.
    template <class T>
    du::SmartPtr<T> GetSmartPtr() {
        return du::DynamicCast<T>(du::Adopt(GetRawPtr()));
    }

    bool AtEnd() const { return next_ == values_.size(); }

private:
    std::vector<Value> values_;
    size_t next_ = 0;
};

}  // namespace dom
