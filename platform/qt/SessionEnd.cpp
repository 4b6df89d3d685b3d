#include "platform/qt/SessionEnd.h"

namespace SessionEnd {

namespace {

bool now = false;

} // namespace

bool IsNow() {
    return now;
}

void SetNow(bool isNow) {
    now = isNow;
}

} // namespace SessionEnd
