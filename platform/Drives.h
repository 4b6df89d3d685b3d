#pragma once

#include <QString>

#include <vector>

/// A mounted drive.
struct Drive {
    QChar Letter;
    /// The letter and a colon, for example `E:`.
    QString Path;
};

/// The mounted drives. A drive may fail to answer (it is just being unplugged): then the question
/// throws RuntimeError.
class DriveService {
public:
    virtual ~DriveService() = default;

    /// The drives in the order in which the system lists them.
    virtual std::vector<Drive> Drives() = 0;
    virtual bool IsRemovable(const Drive& drive) = 0;
    virtual QString VolumeName(const Drive& drive) = 0;
};
