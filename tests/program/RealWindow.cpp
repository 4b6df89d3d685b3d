#include "tests/program/RealWindow.h"

#include "tests/support/ITunesDBWriter.h"
#include "tests/window/QtInput.h"

#include <QTabBar>
#include <QTest>

#include <gtest/gtest.h>

RealWindow::RealWindow() {
    shell.Documents = QStringLiteral("D:\\Documents");
    files.AddDrive(QStringLiteral("D:"));
    files.AddFolder(QStringLiteral("D:\\Music"));
}

void RealWindow::Start(const std::vector<SampleTrack>& tracks) {
    files.AddDrive(QStringLiteral("E:"));
    files.AddFile(QStringLiteral("E:\\iPod_Control\\iTunes\\iTunesDB"), WriteITunesDB(tracks));
    for (const SampleTrack& track : tracks) {
        QString location = track.Location;
        location.replace(QLatin1Char('/'), QLatin1Char('\\'));
        files.AddLargeFile(QStringLiteral("E:\\iPod_Control\\Music\\") + location, track.FileSize,
                           static_cast<qint64>(qHash(track.Location)));
    }
    drives.Mounted = {{QLatin1Char('E'), QStringLiteral("MY IPOD")}};
    program.Form_Load();
    controls.txtDestination.SetText(QStringLiteral("D:\\Music"));
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&Top()));
    QCoreApplication::processEvents();
}

void RealWindow::ClickRow(const char* list, int row) {
    auto& view = Widget<QListView>(list);
    view.scrollTo(view.model()->index(row, 0));
    QtInput::Click(view, QtInput::TextOf(view, row));
}

void RealWindow::TickRow(const char* list, int row) {
    auto& view = Widget<QListView>(list);
    view.scrollTo(view.model()->index(row, 0));
    QtInput::Click(view, QtInput::CheckBoxOf(view, row));
}

void RealWindow::ClickOn(const char* control) {
    QWidget& widget = Widget(control);
    QtInput::Click(widget, widget.rect().center());
}

void RealWindow::ClickTab(int index) {
    auto& tabs = Widget<QTabBar>("tbsFilter");
    QtInput::Click(tabs, tabs.tabRect(index).center());
}

void RealWindow::Type(const char* text) {
    QtInput::Type(Top(), QString::fromLatin1(text));
}

void RealWindow::Key(Qt::Key key) {
    QtInput::Key(Top(), key);
}

void RealWindow::Drag(const char* control, int dx) {
    QWidget& widget = Widget(control);
    const QPoint start = widget.rect().center();
    QtInput::Press(widget, start);
    // In two moves, as a hand does it; positions are those of the handle where it stands now.
    QtInput::MoveTo(Top(), widget.mapTo(&Top(), start) + QPoint(dx / 2, 0));
    const QPoint now = widget.mapTo(&Top(), start);
    QtInput::MoveTo(Top(), now + QPoint(dx - dx / 2, 0));
    QtInput::Release(widget, start);
}

QStringList RealWindow::Rows(const ListControl& list) const {
    QStringList rows;
    for (int row = 0; row < list.ListCount(); ++row) {
        rows.append(list.List(row));
    }
    return rows;
}
