// Typed access to what an element holds.
#pragma once

#include <string>
#include <vector>

#include <dg/Point.h>
#include <du/Symbol.h>
#include <zvk/SerializedContentElement.h>

namespace fighost {

/// Reads one element and remembers the first thing that was missing or not as it should be; what is
/// answered then is empty or zero, so that a reader needs to look only once, at the end.
class ContentFields {
public:
    explicit ContentFields(zvk::SerializedContentElement const& element) : element_(element) {}

    bool Has(du::Symbol const& key) const { return element_.FindProperty(key) != nullptr; }
    du::Symbol Text(du::Symbol const& key);
    bool Flag(du::Symbol const& key);
    int Whole(du::Symbol const& key);
    /// A finite number.
    double Real(du::Symbol const& key);
    /// A point with finite coordinates.
    dg::DPoint2D Point(du::Symbol const& key);
    /// The values of all properties with the key.
    std::vector<du::Symbol> Texts(du::Symbol const& key);
    std::vector<dg::DPoint2D> Points(du::Symbol const& key);

    /// Calls `read` with the fields of each child of the name, and takes their first problem over.
    template <class Read>
    void Children(du::Symbol const& name, Read const& read) {
        for (auto const* child : element_.FindChildren(name)) {
            ContentFields fields(*child);
            read(fields);
            if (!fields.problem_.empty()) Complain(fields.problem_);
        }
    }

    /// Notes something else that is wrong.
    void Complain(std::string const& problem) {
        if (problem_.empty()) problem_ = problem;
    }
    /// Empty when all was well.
    std::string const& GetProblem() const { return problem_; }

private:
    using Value = zvk::SerializedContentElement::Value;

    template <class Type>
    Type As(Value const* value, du::Symbol const& key, char const* kind);
    dg::DPoint2D AsPoint(Value const* value, du::Symbol const& key);

    zvk::SerializedContentElement const& element_;
    std::string problem_;
};

}  // namespace fighost
