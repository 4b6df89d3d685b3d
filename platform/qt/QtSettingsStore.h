#pragma once

#include "platform/SettingsStore.h"

#include <QSettings>

/// The section "Settings" of the file Songlift/Songlift.conf, in the user's configuration folder.
class QtSettingsStore : public SettingsStore {
public:
    QtSettingsStore();

    /// The path of the file.
    QString Name() const override { return m_settings.fileName(); }

    QString Read(const QString& key, const QString& defaultValue) override;
    void Write(const QString& key, const QString& value) override;
    bool Flush() override;

private:
    QSettings m_settings;
};
