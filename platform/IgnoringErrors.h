#pragma once

#include <exception>

/// Runs one step and ignores its failure, so that the steps after it run too. A device may vanish
/// at any moment; the scan for devices and the steps that follow from it do what is still possible.
template <class Step>
void IgnoringErrors(const Step& step) {
    try {
        step();
    } catch (const std::exception&) {
        return;
    }
}
