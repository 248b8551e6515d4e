// Reads stored content.
#pragma once

#include <dg/Point.h>
#include <du/Symbol.h>

namespace zvk {

/// Is handed elements and properties in the order of storing. Each operation does nothing by
/// default; elements are entered.
class SerializedContentVisitor {
public:
    virtual ~SerializedContentVisitor() = default;

    /// False passes over the element's properties, its children and its end.
    virtual bool StartElement(du::Symbol const& name);
    virtual void EndElement(du::Symbol const& name);

    virtual void Visit(du::Symbol const& key, du::Symbol const& value);
    virtual void Visit(du::Symbol const& key, bool value);
    virtual void Visit(du::Symbol const& key, int value);
    virtual void Visit(du::Symbol const& key, double value);
    virtual void Visit(du::Symbol const& key, dg::DPoint3D const& value);
};

}  // namespace zvk
