#pragma once

#include <map>

#include <GL/gl.h>

namespace velna {

class Imaging;
struct Project;
struct SolidPicture;
struct Solids;

namespace Textures {

/// Converts the pictures of wings, fin and shown fuselages that are not converted yet; one that
/// failed is tried again at the next call. Each file is decoded once, however many objects carry
/// it, and they share what comes of it. To be called before a display list is begun, since
/// conversions show a form and a failure opens a message box.
void convertPictures(const Project& project, Solids& solids, Imaging* imaging);

}  // namespace Textures

/// The pictures that one display list hands to OpenGL. One that several objects share is handed
/// over once.
class ListTextures {
public:
    /// Begins a new list: OpenGL forgets the pictures of the one before.
    void beginList();
    /// Lays `picture` on what follows; without a converted one does nothing. `wrap` is how it goes
    /// on beyond its edges.
    void textureMap(const SolidPicture& picture, GLint wrap);

private:
    void bind(const SolidPicture& picture);

    std::map<const void*, GLuint> names_;  ///< by the pixels
};

}  // namespace velna
