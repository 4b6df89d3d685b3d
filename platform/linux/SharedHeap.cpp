#include "platform/linux/SharedHeap.h"

#include <malloc.h>

void ShareOneHeap() {
    mallopt(M_ARENA_MAX, 1);
}
