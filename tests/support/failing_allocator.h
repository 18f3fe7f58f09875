// An allocator under the library that can be told to fail. The executable is linked with
// --wrap=malloc,calloc,realloc,free, so every block that code of this executable asks for by these names
// comes from here; operator new does not. Plans and counts belong to the thread.
#ifndef JT_TESTS_SUPPORT_FAILING_ALLOCATOR_H
#define JT_TESTS_SUPPORT_FAILING_ALLOCATOR_H

namespace jt_test {

enum class Failing { kOnlyOne, kAllFromThereOn };

// From now on the allocation of that number fails, counted from 1; 0 fails none.
void fail_allocations(int number, Failing which);

// No allocation fails any more. How many have failed since the plan was made.
int allow_allocations();

// Blocks that were taken and not yet released.
long live_blocks();

// How many allocations have failed in all.
long failed_allocations();

}  // namespace jt_test

#endif
