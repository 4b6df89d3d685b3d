#pragma once

#include <QByteArray>

/// Deletes the folder `name` in the open folder `parent` with all it holds. Links are removed,
/// never followed. Mount points and folders with the sticky bit (the system's shared temporary
/// folders) are left alone with what they hold, and so are the folders above them; that is no
/// error. What cannot be deleted does not keep the rest from it; the first failure is thrown at the
/// end as RuntimeError. Nesting of any depth takes two open folders only.
void DeleteTree(int parent, const QByteArray& name);
