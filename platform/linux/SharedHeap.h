#pragma once

/// Lets all threads take their memory from one heap; called before there is a second thread. The C
/// library gives each thread a heap of its own, in which all that the thread has released stays: a
/// library that one thread reads and another one keeps would take twice the memory.
void ShareOneHeap();
