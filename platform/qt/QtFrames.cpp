#include "platform/qt/QtFrames.h"

#include <utility>

namespace QtFrames {

namespace {

std::function<void(const std::exception&)> currentTeller;

} // namespace

void SetTeller(std::function<void(const std::exception&)> teller) {
    currentTeller = std::move(teller);
}

void Internal::Tell(const std::exception& failure) {
    if (!currentTeller) {
        throw; // the failure that is being handled
    }
    currentTeller(failure);
}

} // namespace QtFrames
