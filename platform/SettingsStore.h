#pragma once

#include <QString>

/// The per-user settings of one application section: texts by key.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    /// Where the user can find the settings.
    virtual QString Name() const = 0;

    virtual QString Read(const QString& key, const QString& defaultValue) = 0;
    /// Sets a value, which is saved by Flush.
    virtual void Write(const QString& key, const QString& value) = 0;
    /// Saves all values that were written. False when that fails; the saved settings are then
    /// unchanged.
    virtual bool Flush() = 0;
};
