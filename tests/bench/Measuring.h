#pragma once

#include <QElapsedTimer>

#include <algorithm>
#include <vector>

/// The seconds that `work` takes.
template <class Work>
double Seconds(const Work& work) {
    QElapsedTimer clock;
    clock.start();
    work();
    return static_cast<double>(clock.nsecsElapsed()) / 1e9;
}

inline double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}
