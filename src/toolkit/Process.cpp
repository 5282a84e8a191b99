#include "toolkit/Process.h"

#include <malloc.h>

namespace toolkit {

// By default the allocator raises its threshold with the first large block that is freed, and then keeps blocks of up
// to 32 MB in its heap, between others that stay in use: the heap grows with every large reply. With fixed thresholds
// such blocks are returned to the system at once.
void SetUpProcess() {
  constexpr int largeBlock = 4 << 20;
  mallopt(M_MMAP_THRESHOLD, largeBlock);
  mallopt(M_TRIM_THRESHOLD, 2 * largeBlock);
}

}  // namespace toolkit
