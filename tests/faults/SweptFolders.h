#pragma once

#include "tests/faults/RealJob.h"
#include "tests/faults/SystemCalls.h"

#include <QTemporaryDir>

/// Whether the destination's disk knows files without a name, as the disks of computers do, or not,
/// as the drives that people carry away.
enum class Disk { WithNamelessFiles, WithoutNamelessFiles };

/// Small files of all the ways to copy (in one block, in several, in the kernel, in chunks), of
/// which some replace an earlier one, and what a killed job has left.
class SweptFolders : public JobFolders {
public:
    SweptFolders();

private:
    explicit SweptFolders(std::unique_ptr<QTemporaryDir> work);

    std::unique_ptr<QTemporaryDir> m_work;
};

/// The place that a call speaks of, as far as it can be told.
QString PlaceOf(const SystemCall& call);

/// 0, or what a disk of that kind answers to a call that it does not know.
int RefusalOf(const SystemCall& call, Disk disk);

/// How many calls to the system the job makes when nothing fails.
int CallsOfJob(Disk disk);
