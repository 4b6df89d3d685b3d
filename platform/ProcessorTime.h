#pragma once

/// Processor time that the calling thread has used so far, in seconds. Neither other threads, such
/// as those of a playing preview, nor waiting for a device count.
double ThreadProcessorSeconds();
