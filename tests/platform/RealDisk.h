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

    /// The path of something in the folder, as the program writes it.
    QString Native(const QString& name) const;

    DriveService& Drives();
    FileSystem& Files();

private:
    struct Services;

    QTemporaryDir m_folder;
    std::unique_ptr<Services> m_services;
};
