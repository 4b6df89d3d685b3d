#pragma once

#include <QString>

#include <vector>

/// A mounted drive.
struct Drive {
    QChar Letter;
    /// The letter and a colon, for example `E:`.
    QString Path;
};

/// The mounted drives. Where a drive does not answer (it is just being unplugged, say), the
/// function throws RuntimeError.
class DriveService {
public:
    virtual ~DriveService() = default;

    /// The drives in the order in which the system lists them.
    virtual std::vector<Drive> Drives() = 0;
    virtual bool IsRemovable(const Drive& drive) = 0;
    virtual QString VolumeName(const Drive& drive) = 0;
};
