#pragma once
#include <vector>
#include "model/Plane.h"  // bad: upward
#include <QString>  // bad: a toolkit in the core
