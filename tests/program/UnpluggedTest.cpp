// The real window on real files: the iPod's folder goes away in the middle of a job, and comes
// back.

#include "app/Form1Window.h"
#include "platform/linux/LinuxDrives.h"
#include "platform/linux/LinuxFileSystem.h"
#include "platform/qt/QtWindowManager.h"
#include "tests/app/ProgramFixture.h"
#include "tests/support/ITunesDBWriter.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

QString Q(const char* text) {
    return QString::fromUtf8(text);
}

class Unplugged : public testing::Test {
protected:
    Unplugged() {
        QDir(m_folder.path()).mkpath(Q("Music"));
        Write(Q("ipod/iPod_Control/iTunes/iTunesDB"), WriteITunesDB(SmallLibrary()));
        for (const SampleTrack& track : SmallLibrary()) {
            QByteArray bytes(static_cast<qsizetype>(track.FileSize), '\0');
            for (qsizetype i = 0; i < bytes.size(); ++i) {
                bytes[i] = static_cast<char>(i * 31 + track.FileSize / 7);
            }
            Write(Q("ipod/iPod_Control/Music/") + track.Location, bytes);
        }
        qputenv("SONGLIFT_DRIVES", QFile::encodeName(Native(Q("ipod"))));
        m_messages.WhileShown = [this](const ShownMessage& message) {
            m_messages.Answers.clear();
            if (message.Buttons == MessageButtons::AbortRetryIgnore) {
                m_messages.Answers = {MessageAnswer::Ignore};
            }
        };
    }
    ~Unplugged() override { qunsetenv("SONGLIFT_DRIVES"); }

    void Start() {
        m_program.Form_Load();
        m_controls.txtDestination.SetText(Native(Q("Music")));
        ASSERT_EQ(m_controls.lstArtists.ListCount(), 3);
        m_controls.lstArtists.SetSelected(1, true);
        m_controls.lstArtists.SetListIndex(2);
        m_controls.lstArtists.SetSelected(2, true);
        ASSERT_TRUE(m_controls.lstArtists.Selected(0));
    }

    void Copy() {
        m_messages.Shown.clear();
        m_controls.cmdCopy.Click();
    }

    void Unplug() { ASSERT_TRUE(QFile::rename(Native(Q("ipod")), Native(Q("away")))); }
    void PlugInAgain() { ASSERT_TRUE(QFile::rename(Native(Q("away")), Native(Q("ipod")))); }

    /// The number of copies, each of them whole.
    int Copies() {
        const std::pair<const char*, const char*> expected[] = {
            {"Blue River/Deep/01 Source.mp3", "F00/AAAA.mp3"},
            {"Blue River/Deep/02 Delta.mp3", "F00/AAAB.mp3"},
            {"Blue River/Wide/01 Estuary.mp3", "F00/AAAC.mp3"},
            {"The Lamps/Evening/01 Night Bus.mp3", "F01/AAAE.mp3"},
            {"The Lamps/Evening/02 Dusk.mp3", "F01/AAAD.mp3"},
            {"The Lamps/Evening/Film.m4v", "F01/AAAF.m4v"},
        };
        int copies = 0;
        for (const auto& [target, source] : expected) {
            if (QFile::exists(Native(Q("Music/") + Q(target)))) {
                ++copies;
                EXPECT_TRUE(Read(Q("Music/") + Q(target)) ==
                            Read(Q("ipod/iPod_Control/Music/") + Q(source)))
                    << target;
            }
        }
        return copies;
    }

    QString Native(const QString& name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
    LinuxDrives m_drives;
    LinuxFileSystem m_files{m_drives};
    FakeSettingsStore m_store;
    FakeShell m_shell;
    FakeMessages m_messages;
    FakeEventLoop m_events;
    QtWindowManager m_windowManager;
    Form1Window m_window{m_windowManager};
    Form1Controls& m_controls = m_window.Controls();
    FakeWindow m_frmPreview;
    FakeMediaPlayerControl m_player;
    PreviewControls m_preview{m_frmPreview, m_player};
    InlineWorker m_worker;
    Services m_services{m_files,    m_drives, m_store,  m_shell, m_windowManager,
                        m_messages, m_events, m_worker, m_worker};
    Form1 m_program{m_services, m_controls, m_preview, [](OverwritePrompt& prompt) {
                        prompt.OverwriteAnswer = OverwritePrompt::Skip;
                        prompt.OverwriteAll = true;
                    }};

private:
    void Write(const QString& name, const QByteArray& bytes) {
        QDir().mkpath(QFileInfo(Native(name)).path());
        QFile file(Native(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    QByteArray Read(const QString& name) {
        QFile file(Native(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        return file.readAll();
    }
};

} // namespace

TEST_F(Unplugged, AtAnyFileTheJobGoesOnWithoutItAndTheNextJobFetchesTheRest) {
    Start();
    for (int file = 1; file <= 6; ++file) {
        SCOPED_TRACE(file);
        ASSERT_TRUE(QDir(Native(Q("Music"))).removeRecursively());
        ASSERT_TRUE(QDir().mkpath(Native(Q("Music"))));
        const int unplugAt = m_events.Yields + file;
        m_events.OnYield = [this, unplugAt](int yield) {
            if (yield == unplugAt) {
                Unplug();
            }
        };
        Copy();
        m_events.OnYield = {};
        // Every file from there on is asked about once, then the job is over.
        EXPECT_EQ(m_messages.Shown.size(), static_cast<size_t>(7 - file + 1));
        EXPECT_EQ(m_messages.Texts().last(), Q("Copy completed!"));
        EXPECT_TRUE(m_controls.lstArtists.Enabled());
        EXPECT_EQ(m_controls.cmdCopy.Caption(), Q("&Copy to destination"));
        PlugInAgain();
        EXPECT_EQ(Copies(), file - 1);
        Copy();
        EXPECT_EQ(m_messages.Texts(), QStringList({Q("Copy completed!")}));
        EXPECT_EQ(Copies(), 6);
    }
}

TEST_F(Unplugged, WhileTheCompletionIsToldNothingIsLost) {
    Start();
    m_messages.WhileShown = [this](const ShownMessage&) { Unplug(); };
    Copy();
    EXPECT_EQ(m_messages.Texts(), QStringList({Q("Copy completed!")}));
    m_messages.WhileShown = {};
    m_controls.Combo1.DropDown();
    EXPECT_EQ(m_controls.lstArtists.ListCount(), 0);
    EXPECT_EQ(m_controls.lblMessage.Caption(), Q("No compatible iPod detected."));
    EXPECT_TRUE(m_controls.timScan.Enabled());
    PlugInAgain();
    m_controls.timScan.Timer();
    EXPECT_EQ(m_controls.lstArtists.ListCount(), 3);
    EXPECT_EQ(Copies(), 6);
}
