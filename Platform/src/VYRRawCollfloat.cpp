#include "VYRRawCollfloat.h"

// Out of line so that the class information is emitted once, by the library.
VYRRawCollfloat::~VYRRawCollfloat() = default;
