#pragma once

namespace velna::Textures {

/// Converts the pictures of wings, fin and shown fuselages that are not converted yet; one that
/// failed is tried again at the next call. Each file is decoded once, however many objects carry
/// it, and they share what comes of it. To be called before a display list is begun, since
/// conversions show a form and a failure opens a message box.
void convertPictures();

/// Begins a new display list: OpenGL forgets the pictures of the one before.
void beginList();

}  // namespace velna::Textures
