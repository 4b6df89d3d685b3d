#include "tests/library/HostileLibrary.h"

using namespace Qt::StringLiterals;

void HostileSQLiteLibrary::Start() {
    Write({{u"A"_s, u"X"_s, u"first"_s, 1, 10, u"1"_s},
           {u"B"_s, u"Y"_s, u"second"_s, 2, 20, u"2"_s}});
}
