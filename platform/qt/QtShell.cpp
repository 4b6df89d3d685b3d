#include "platform/qt/QtShell.h"

#include "platform/ThreadWorker.h"
#include "platform/qt/BusyPointer.h"
#include "platform/qt/ControlWidget.h"

#include <QDir>
#include <QFileDialog>
#include <QStandardPaths>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// Whether there is such a folder; false on a disk that does not answer at once.
bool IsFolder(const QString& path) {
    const auto exists = std::make_shared<bool>(false);
    const auto ask = [path, exists] { *exists = QDir(path).exists(); };
    return ThreadWorker::DoSoon(ask) && *exists;
}

} // namespace

QString QtShell::BrowseForFolder(WindowHandle owner, const QString& prompt,
                                 const QString& startFolder) {
    const BusyPointer::Lifted lifted;
    QFileDialog dialog(ControlWidget::WidgetOf(owner), prompt);
    dialog.setObjectName(u"BrowseForFolder"_s);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setSupportedSchemes({u"file"_s});
    // An empty path would be the program's working directory.
    const bool starts = !startFolder.isEmpty() && IsFolder(startFolder);
    dialog.setDirectory(starts ? startFolder : QDir::homePath());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedUrls().isEmpty()) {
        return {};
    }
    return QDir::toNativeSeparators(dialog.selectedUrls().constFirst().toLocalFile());
}

QString QtShell::DocumentsFolder() {
    return QDir::toNativeSeparators(
        QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
}
