#pragma once

#include <QString>

/// The per-user settings of one application section: texts by key.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    virtual QString Read(const QString& key, const QString& defaultValue) = 0;
    virtual void Write(const QString& key, const QString& value) = 0;
};
