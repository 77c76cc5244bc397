#pragma once
#include "common/Point.h"
#include "model/Plane.h"
#include "preview/PictureCopies.h"  // bad: neighbours
#include "persistence/ProjectFile.h"  // bad: neighbours
#include "editor/Missing.h"  // bad: no such file
