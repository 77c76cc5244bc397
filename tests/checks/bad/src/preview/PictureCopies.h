#pragma once
#include <GL/gl.h>  // bad: the core links this file
