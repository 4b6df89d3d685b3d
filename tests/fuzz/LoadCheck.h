#pragma once

#include "app/ControlGroups.h"
#include "library/LoadMusic.h"
#include "tests/fakes/FakeForm1.h"
#include "tests/fakes/FakeServices.h"
#include "tests/fakes/RecordedFiles.h"
#include "tests/library/LibraryLines.h"

#include <QByteArray>
#include <QString>

#include <functional>

/// One load of a database of any bytes, in a window on fakes that shows an earlier library, and
/// what must hold afterwards, whatever the bytes.
class LoadCheck {
public:
    LoadCheck();

    FakeForm1 Window;
    FakeMessages Boxes;
    RecordedFiles Files;
    FakeEventLoop Events;
    InlineWorker Background;
    LoadMusic Music{{Files, Background, Events, Boxes}, LoadControlsOf(Window.Controls)};
    /// Runs the load that it is given; a test may measure around it.
    std::function<void(const std::function<void()>&)> Around =
        [](const std::function<void()>& load) { load(); };

    /// Loads `bytes` as the binary database. What is wrong then; empty when nothing is.
    QString LoadBinary(const QByteArray& bytes);
    /// Loads `bytes`, which are the library's file and, from the second SQLite header on, the
    /// locations' file. Both lie in a folder in memory where there is one. What is wrong then.
    QString LoadSqlite(const QByteArray& bytes);

private:
    QString WrongWithTheEnd() const;
    QString WrongWithTheBox() const;
};
