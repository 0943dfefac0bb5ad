// The numbers of rule values, and the bounded copies that go with reading them. Used inside
// module/rules only.
#pragma once

#include <windows.h>

#include "sheet/fixed_text.h"

namespace kvui {

// Decimal number at the start of the text: blanks, sign, digits up to the first other character; 0
// when there are none. Larger numbers wrap to 32 bits, so that 2147483648 is bit 31.
LONG NumberOf(const char* text);

}  // namespace kvui
