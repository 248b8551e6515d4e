// Fills groups of graphics.
#pragma once

#include <string>

#include <figk/Group.h>

#include "BuildContext.h"

namespace figkernel {

class GroupBuilder {
public:
    GroupBuilder(BuildContext& buildContext, IdMaker& idMaker,
                 du::SmartPtr<SheetLink> const& sheetLink)
        : context(buildContext), ids(idMaker), link(sheetLink) {}

    /// Appends what `source` holds to `group`. Shapes and texts with an id get that of their owner
    /// in front. Doesn't recurse.
    void Fill(figk::Group& group, GroupSource const& source, std::string const& ownerId);

    /// A group of labels with the content of `source`; null for an empty one.
    du::SmartPtr<figk::Group> MakeLabels(GroupSource const& source, std::string const& ownerId);

private:
    void FillFlat(figk::Group& group, GroupSource const& source, std::string const& ownerId);
    du::Symbol IdOf(std::string const& id, std::string const& ownerId);

    BuildContext& context;
    IdMaker& ids;
    du::SmartPtr<SheetLink> link;
};

}  // namespace figkernel
