#pragma once

/// Processor time that the calling thread has used so far, in seconds. Other threads, such as those
/// of a preview that plays, do not count, nor does waiting for a device.
double ThreadProcessorSeconds();
