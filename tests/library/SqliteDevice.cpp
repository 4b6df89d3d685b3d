#include "tests/library/SqliteDevice.h"

using namespace Qt::StringLiterals;

QString SqliteDevice::LibraryFile() const {
    return m_folder + u"/Library.itdb"_s;
}

QString SqliteDevice::LocationsFile() const {
    return m_folder + u"/Locations.itdb"_s;
}

void SqliteDevice::Load() {
    Boxes.Shown.clear();
    Music.LoadSQLiteLibrary(u"E:"_s);
}
