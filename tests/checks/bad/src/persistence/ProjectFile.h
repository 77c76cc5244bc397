#pragma once
#include "preview/PictureCopies.h"
#include "preview/Rendering.h"  // bad: neighbours
#include "editor/Main.h"  // bad: neighbours
