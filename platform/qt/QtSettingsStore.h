#pragma once

#include "platform/SettingsStore.h"

#include <QSettings>

/// The section "Settings" of the application "Songlift": in the user's part of the registry where
/// there is one, otherwise in the file Songlift/Songlift.conf in the user's configuration folder.
class QtSettingsStore : public SettingsStore {
public:
    QtSettingsStore();

    /// The path of the file or the registry key.
    QString Name() const override { return m_settings.fileName(); }

    QString Read(const QString& key, const QString& defaultValue) override;
    void Write(const QString& key, const QString& value) override;
    bool Flush() override;

private:
    QSettings m_settings;
};
