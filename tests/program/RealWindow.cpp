#include "tests/program/RealWindow.h"

#include "tests/support/ITunesDBWriter.h"

#include <QTabBar>

using namespace Qt::StringLiterals;

RealWindow::RealWindow(Worker* background)
    : services{files,         drives,   store,  shell,
               windowManager, messages, events, background != nullptr ? *background : worker,
               worker} {
    shell.Documents = u"D:\\Documents"_s;
    files.AddDrive(u"D:"_s);
    files.AddFolder(u"D:\\Music"_s);
}

void RealWindow::PlugIn(const std::vector<SampleTrack>& tracks) {
    files.AddDrive(u"E:"_s);
    files.AddFile(u"E:\\iPod_Control\\iTunes\\iTunesDB"_s, WriteITunesDB(tracks));
    for (const SampleTrack& track : tracks) {
        QString location = track.Location;
        location.replace(u'/', u'\\');
        files.AddLargeFile(u"E:\\iPod_Control\\Music\\"_s + location, track.FileSize,
                           static_cast<qint64>(qHash(track.Location)));
    }
    drives.Mounted = {{u'E', u"MY IPOD"_s}};
}

void RealWindow::Unplug() {
    files.RemoveDrive(u"E:"_s);
    drives.Mounted.clear();
}

void RealWindow::Start(const std::vector<SampleTrack>& tracks) {
    PlugIn(tracks);
    StartWithout();
    controls.txtDestination.SetText(u"D:\\Music"_s);
}

void RealWindow::StartWithout() {
    program.Form_Load();
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

void RealWindow::Resize(int width, int height) {
    Top().resize(width, height);
    QtInput::Settle();
}

QStringList RealWindow::Copy() {
    messages.Shown.clear();
    ClickOn("cmdCopy");
    return messages.Texts();
}

QStringList RealWindow::Copied() const {
    return files.FilesBelow(u"D:\\Music"_s);
}

QStringList RealWindow::Rows(const ListControl& list) const {
    QStringList rows;
    for (int row = 0; row < list.ListCount(); ++row) {
        rows.append(list.List(row));
    }
    return rows;
}
