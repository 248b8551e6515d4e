// Writes the settings of a figure and its items down, for developers.
#pragma once

#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Fwd.h>

#include <iosfwd>
#include <string>

namespace figrep {

/// A paragraph for each item with settings of its own or of its kernel record: a title, then the
/// settings of level 1, one to a line. Texts are written as they stand in the design.
class DebugSettingsVisitor : public AbstractFigureVisitor {
public:
    /// Writes to the standard output.
    DebugSettingsVisitor();
    /// Writes to `out`, which must outlive the visitor.
    explicit DebugSettingsVisitor(std::ostream& out);
    ~DebugSettingsVisitor() override;

    using AbstractFigureVisitor::Visit;
    bool Visit(SmartPtr<TextGraphic> const& item) override;
    bool Visit(SmartPtr<TableInstance> const& item) override;
    bool Visit(SmartPtr<SubNet> const& item) override;
    bool Visit(SmartPtr<SubHighway> const& item) override;
    bool Visit(SmartPtr<NetSegment> const& item) override;
    bool Visit(SmartPtr<Miscellaneous> const& item) override;
    bool Visit(SmartPtr<HighwaySegment> const& item) override;
    bool Visit(SmartPtr<GenericGraphic> const& item) override;
    bool Visit(SmartPtr<Format> const& item) override;
    bool Visit(SmartPtr<Figure> const& item) override;
    bool Visit(SmartPtr<ConnectorInstance> const& item) override;
    bool Visit(SmartPtr<CableInstance> const& item) override;
    bool Visit(SmartPtr<BlockInstance> const& item) override;

private:
    bool DisplaySettings(std::string const& title, SmartPtr<SettingList> const& settings);

    std::ostream& out_;
};

}  // namespace figrep
