#pragma once

#include <ostream>

#include "VYRUnicodeString.h"

// Lets GoogleTest print library values in failure messages.
inline void PrintTo(const VYRUnicodeString& i_text, std::ostream* o_stream) {
  *o_stream << '"' << i_text.GetStdString() << '"';
}
