#pragma once
#include <GL/gl.h>
#include "model/Plane.h"
#include "editor/Main.h"  // bad: neighbours
#include "preview/PictureCopies.h"
