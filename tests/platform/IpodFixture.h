#pragma once

#include "tests/platform/RealDisk.h"

#include <gtest/gtest.h>

/// An iPod in a drive, beside a home folder.
class IpodFixture : public testing::Test {
protected:
    IpodFixture();
    void SetUp() override;

    /// The native paths of what is there; names are separated by "/".
    QString Ipod(const QString& name) const;
    QString Home(const QString& name) const;

    int CreationError(const QString& path);
    int DeleteError(const QString& path);
    /// Whether every change in `folder`, by which the iPod's notes are reached, is refused, and
    /// none made.
    void ExpectReadOnly(const QString& folder);

    RealDisk m_disk;
    FileSystem& m_files = m_disk.Files();
    /// "F:"
    QString m_drive;
};
