#include "VYRRawCollPV.h"

// Out of line so that the class information is emitted once, by the library.
VYRRawCollPV::~VYRRawCollPV() = default;
