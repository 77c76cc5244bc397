#pragma once

#include "preview/FuselageScene.h"
#include "preview/TailScene.h"
#include "preview/Textures.h"
#include "preview/WingScene.h"

namespace velna {

struct Project;
struct Solids;

/// Display list 1: the whole aircraft. It keeps what its parts need from one rebuild to the next,
/// so that a rebuild allocates nothing.
class Scene {
public:
    /// Makes the list anew, of solids that stand and pictures that are converted.
    void build(const Project& project, const Solids& solids);
    /// Draws what the list holds.
    static void call();

private:
    ListTextures textures_;
    WingArrays wing_;
    FinArrays fin_;
    FuselageArrays fuselage_;
};

}  // namespace velna
