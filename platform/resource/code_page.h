// Compiled resources hold UTF-16 texts; the interface is 8-bit, in the Western code page.
#pragma once

#include <windef.h>

namespace kv {

// The character of a UTF-16 unit, '?' for one that the code page lacks.
char CodePageCharacter(WORD unit);

}  // namespace kv
