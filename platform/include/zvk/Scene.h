// What a view shows.
#pragma once

#include <du/SmartPtr.h>

namespace zvk {

/// A host's scene. The library hands it on and asks nothing of it.
class Scene : public virtual du::RefCounted {};

}  // namespace zvk
