#include "platform/qt/QtSettingsStore.h"

#include <QStandardPaths>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

#ifdef Q_OS_WIN
constexpr QSettings::Format Format = QSettings::NativeFormat;

QString Place() {
    return u"HKEY_CURRENT_USER\\Software\\Songlift"_s;
}
#else
constexpr QSettings::Format Format = QSettings::IniFormat;

QString Place() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           u"/Songlift/Songlift.conf"_s;
}
#endif

} // namespace

QtSettingsStore::QtSettingsStore() : m_settings(Place(), Format) {
    m_settings.beginGroup(u"Settings"_s);
}

QString QtSettingsStore::Read(const QString& key, const QString& defaultValue) {
    if (!m_settings.contains(key)) {
        return defaultValue;
    }
    const QVariant value = m_settings.value(key);
    // The text holds commas, and somebody wrote it into the file without quotes.
    if (value.typeId() == QMetaType::QStringList) {
        return value.toStringList().join(u", "_s);
    }
    return value.toString();
}

void QtSettingsStore::Write(const QString& key, const QString& value) {
    m_settings.setValue(key, value);
}

bool QtSettingsStore::Flush() {
    m_settings.sync();
    return m_settings.status() != QSettings::AccessError;
}
