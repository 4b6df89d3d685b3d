#pragma once

#include <QString>

/// The per-user settings of one application section: texts by key.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    /// Where the user finds it.
    virtual QString Name() const = 0;

    virtual QString Read(const QString& key, const QString& defaultValue) = 0;
    /// Sets a value, for good once Flush has kept it.
    virtual void Write(const QString& key, const QString& value) = 0;
    /// Keeps all that was written. False when it cannot; then the store is as it was.
    virtual bool Flush() = 0;
};
