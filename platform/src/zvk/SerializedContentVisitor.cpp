#include <zvk/SerializedContentVisitor.h>

namespace zvk {

bool SerializedContentVisitor::StartElement(du::Symbol const&) {
    return true;
}
void SerializedContentVisitor::EndElement(du::Symbol const&) {}
void SerializedContentVisitor::Visit(du::Symbol const&, du::Symbol const&) {}
void SerializedContentVisitor::Visit(du::Symbol const&, bool) {}
void SerializedContentVisitor::Visit(du::Symbol const&, int) {}
void SerializedContentVisitor::Visit(du::Symbol const&, double) {}
void SerializedContentVisitor::Visit(du::Symbol const&, dg::DPoint3D const&) {}

}  // namespace zvk
