#pragma once
#include "common/Point.h"
#include "editor/Main.h"  // bad: upward
#include <SDL2/SDL.h>  // bad: a toolkit in the core
#include <GL/gl.h>  // bad: only the picture draws with GL
