#pragma once
#include "preview/Bitmap.h"
#include "preview/Rendering.h"  // bad: neighbours
#include "editor/Main.h"  // bad: neighbours
