#include "support/freed_memory.h"

#include <cstdlib>  // defines __GLIBC__ with the GNU C library
#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace wordtally {

void ReturnFreedMemory() {
#if defined(__GLIBC__)
  malloc_trim(0);
#endif
}

}  // namespace wordtally
