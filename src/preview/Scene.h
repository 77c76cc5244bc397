#pragma once

#include <map>
#include <vector>

#include <GL/gl.h>

#include "model/SolidPicture.h"
#include "preview/FuselageScene.h"
#include "preview/TailScene.h"
#include "preview/Textures.h"
#include "preview/WingScene.h"

namespace velna {

struct Project;
struct Solids;

/// Display list 1: the whole aircraft. It calls a list for each object, and only those of objects
/// that have changed are made anew. It keeps what its parts need from one rebuild to the next, so
/// that a rebuild allocates nothing.
class Scene {
public:
    /// Brings the lists up to date with solids that stand and pictures that are converted.
    void build(const Project& project, Solids& solids);
    /// Draws what list 1 holds.
    static void call();
    /// The lists are gone with the context that held them.
    void forget();

private:
    /// The list of one object.
    struct ObjectList {
        GLuint name = 0;
        std::vector<Texels> pictures;  ///< that it lays on the object
        bool wanted = false;           ///< the object is still there
        bool upToDate = false;
    };

    template <class Visit>
    void forEachObject(const Project& project, Solids& solids, Visit visit);
    template <class Solid>
    void lookAt(Solid& solid);
    void dropUnwanted();
    void renewPictures();
    void makeWholeList(const std::vector<GLuint>& objects) const;

    std::map<const void*, ObjectList> lists_;  // by the object's solid
    std::vector<GLuint> order_;                // the lists that list 1 calls
    bool picturesChanged_ = false;             // since they were handed to OpenGL
    ListTextures textures_;
    WingArrays wing_;
    FinArrays fin_;
    FuselageArrays fuselage_;
};

}  // namespace velna
