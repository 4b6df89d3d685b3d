// Makes the pictures of the documentation: the program's real windows, drawn offscreen, with the
// sample iPod attached, in a light and a dark palette.
//   make-screenshots <sample iPod> <folder for the pictures>

#include "app/Application.h"
#include "app/Form1.h"
#include "app/Form1Window.h"
#include "app/PreviewWindow.h"
#include "platform/linux/LinuxDrives.h"
#include "platform/linux/LinuxFileSystem.h"
#include "platform/qt/BoxPalette.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtShell.h"
#include "platform/qt/QtWindowManager.h"
#include "tests/fakes/FakeServices.h"

#include <QDir>
#include <QPalette>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

QPalette DarkPalette() {
    QPalette palette(QColor(45, 47, 51));
    palette.setColor(QPalette::Base, QColor(30, 31, 34));
    palette.setColor(QPalette::Highlight, QColor(52, 111, 186));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, QColor(125, 127, 130));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, QColor(125, 127, 130));
    }
    return palette;
}

class Photographer {
public:
    Photographer(const QString& folder, const QString& suffix)
        : m_folder(folder), m_suffix(suffix) {}

    void Take(QWidget& window, const char* name) {
        QCoreApplication::processEvents();
        const QString file = m_folder.filePath(QString::fromLatin1(name) + m_suffix);
        if (!window.grab().save(file)) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
        }
    }

private:
    QDir m_folder;
    QString m_suffix;
};

/// One program with the sample attached, photographed in each of its states.
class Session {
public:
    explicit Session(Photographer photographer) : m_photographer(photographer) {
        m_shell.Documents = m_target.path();
        m_form.Form_Load();
        m_window.Window().SetSize(980 * 15, 660 * 15);
        m_window.Controls().txtDestination.SetText(u"/home/ana/Music"_s);
    }

    void NoDevice() { m_photographer.Take(*m_window.Window().Widget(), "no-ipod"); }

    void Library() {
        Controls().lstSongs.SetListIndex(0);
        Controls().lstArtists.SetListIndex(2);
        Controls().lstAlbums.SetSelected(1, true);
        Controls().lstAlbums.SetListIndex(1);
        m_photographer.Take(*m_window.Window().Widget(), "window");
    }

    /// On a screen of 640 by 480 pixels.
    void Small() {
        m_window.Window().SetSize(620 * 15, 440 * 15);
        m_photographer.Take(*m_window.Window().Widget(), "small");
        m_window.Window().SetSize(980 * 15, 660 * 15);
    }

    void Search() {
        Controls().txtSearch.SetText(u"the"_s);
        Controls().txtSearch.Select(3, 0); // as after typing
        m_photographer.Take(*m_window.Window().Widget(), "search");
        Controls().txtSearch.SetText(QString());
    }

    void Copying() {
        Controls().txtDestination.SetText(m_target.path());
        Controls().lstArtists.SetListIndex(0);
        Controls().lstArtists.SetSelected(0, true);
        bool taken = false;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            if (!taken && Controls().prgCopy.Value() > 0.4F * Controls().prgCopy.Max()) {
                taken = true;
                Controls().txtDestination.SetText(u"/home/ana/Music"_s);
                m_photographer.Take(*m_window.Window().Widget(), "copying");
            }
        });
        timer.start(0);
        Raise(Controls().cmdCopy.Click);
    }

    void Preview(const QString& film) {
        m_preview.Controls().QTControl.SetSource(film);
        Window& window = m_preview.Controls().frmPreview;
        window.SetSize(m_preview.Controls().QTControl.Width(),
                       m_preview.Controls().QTControl.Height());
        window.Show();
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < 1200) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        }
        m_photographer.Take(*m_preview.Widget(), "preview");
        m_preview.Controls().QTControl.SetSource(QString());
    }

    /// The first file of that extension on the sample.
    QString FilmOnSample(const QString& sample) {
        const QDir music(sample + u"/iPod_Control/Music"_s);
        for (const QString& folder : music.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            const QStringList films =
                QDir(music.filePath(folder)).entryList({u"*.m4v"_s, u"*.mp4"_s});
            if (!films.isEmpty()) {
                return music.filePath(folder + u'/' + films.first());
            }
        }
        return {};
    }

private:
    Form1Controls& Controls() { return m_window.Controls(); }

    Photographer m_photographer;
    QTemporaryDir m_target;
    LinuxDrives m_drives;
    LinuxFileSystem m_files{m_drives};
    FakeSettingsStore m_store;
    FakeShell m_shell;
    QtWindowManager m_windowManager;
    QtEventLoop m_events;
    FakeMessages m_messages;
    Form1Window m_window{m_windowManager};
    PreviewWindow m_preview{m_window.Window().Widget(), m_files};
    InlineWorker m_worker;
    Services m_services{m_files,    m_drives, m_store,  m_shell, m_windowManager,
                        m_messages, m_events, m_worker, m_worker};
    Form1 m_form{m_services, m_window.Controls(), m_preview.Controls(), [](OverwritePrompt&) {}};
};

void Photograph(const QString& sample, const QString& folder, const QString& suffix) {
    qunsetenv("SONGLIFT_DRIVES");
    Session(Photographer(folder, suffix)).NoDevice();
    qputenv("SONGLIFT_DRIVES", sample.toUtf8());
    Session session{Photographer(folder, suffix)};
    session.Library();
    session.Small();
    session.Search();
    session.Copying();
    session.Preview(session.FilmOnSample(sample));
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Application application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        std::fprintf(stderr, "make-screenshots <sample iPod> <folder for the pictures>\n");
        return 2;
    }
    Photograph(arguments[1], arguments[2], u".png"_s);
    QApplication::setPalette(WithReadableSelection(DarkPalette()));
    Photograph(arguments[1], arguments[2], u"-dark.png"_s);
    return 0;
}
