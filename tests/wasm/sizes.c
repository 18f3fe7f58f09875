/* How large the types of the public header are in the module: a count of bytes each. */
#include "jt.h"

__attribute__((export_name("size_of_pointer"))) int size_of_pointer(void) { return (int)sizeof(void *); }
__attribute__((export_name("size_of_long"))) int size_of_long(void) { return (int)sizeof(long); }
__attribute__((export_name("size_of_type"))) int size_of_type(void) { return (int)sizeof(jt_type); }
