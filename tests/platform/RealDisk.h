#pragma once

#include "platform/Drives.h"
#include "platform/FileSystem.h"
#include "tests/fakes/RealFiles.h"

#include <QTemporaryDir>

#include <memory>

/// A temporary folder, and the services of the system that the tests run on.
class RealDisk {
public:
    RealDisk();
    ~RealDisk();

    /// The path of something in the folder; names are separated by "/".
    QString Native(const QString& name) const;
    /// The same by the letter of a drive.
    QString OnDrive(const QString& name) const;
    /// Puts a folder in the folder into a drive that can be taken out, or into a fixed one; returns
    /// "F:", or nothing where this system cannot do that.
    QString Attach(const QString& name, bool isRemovable = true);

    DriveService& Drives();
    FileSystem& Files();

private:
    struct Services;

    QTemporaryDir m_folder;
    std::unique_ptr<Services> m_services;
};
