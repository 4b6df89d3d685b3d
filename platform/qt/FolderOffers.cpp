#include "platform/qt/FolderOffers.h"

#include "platform/ThreadWorker.h"
#include "platform/qt/QtFrames.h"

#include <QApplication>
#include <QDirIterator>
#include <QKeyEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int MostRows = 8;
/// More than anybody reads. In a folder with many thousands, the rest is not worth the wait.
constexpr int MostNames = 5000;

/// The names of the folders in `folder`, in order; empty where that is not an absolute path.
QStringList FoldersIn(const QString& folder) {
    QStringList names;
    // A path that begins with ":" would name one of the program's own resources, and looking for
    // another computer takes longer than a key press may.
    if (folder.startsWith(u':') || folder.startsWith(u"\\\\"_s) || !QDir::isAbsolutePath(folder)) {
        return names;
    }
    QDirIterator entries(folder, QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot);
    while (entries.hasNext() && names.size() < MostNames) {
        entries.next();
        names.append(entries.fileName());
    }
    names.sort(Qt::CaseInsensitive);
    return names;
}

} // namespace

FolderOffers::FolderOffers(QLineEdit* box) : QObject(box), m_box(box) {
    QObject::connect(box, &QLineEdit::textEdited, this,
                     [this] { QtFrames::Handle([this] { Offer(); }); });
}

FolderOffers::~FolderOffers() {
    delete m_list.data();
}

void FolderOffers::Offer() {
    m_typed = m_box->text();
    const QStringList names = Matching(m_typed);
    if (names.isEmpty() || !m_box->hasFocus()) {
        Hide(); // keeps the names, so that typing on does not read the folder again at each key
    } else {
        Open(names);
    }
}

/// The folders that may follow in the path. Hidden ones count only once their dot is typed, and a
/// name that is complete and the only one is not offered.
QStringList FolderOffers::Matching(const QString& text) {
    const qsizetype end = text.lastIndexOf(QDir::separator()) + 1;
    const QString folder = text.left(end);
    if (folder != m_folder) {
        List(folder);
    }
    const QString begun = text.mid(end);
    QStringList matching;
    for (const QString& name : m_names) {
        const bool isHidden = name.startsWith(u'.');
        if (name.startsWith(begun, Qt::CaseInsensitive) && (!isHidden || !begun.isEmpty())) {
            matching.append(name);
        }
    }
    return matching == QStringList(begun) ? QStringList() : matching;
}

/// Reads the names on another thread, since the disk may hang. Those that come too late for a key
/// press are taken when they come.
void FolderOffers::List(const QString& folder) {
    m_folder = folder;
    m_names.clear();
    const auto names = std::make_shared<QStringList>();
    m_awaited = names;
    const auto list = [offers = QPointer<FolderOffers>(this), folder, names] {
        *names = FoldersIn(folder);
        const auto take = [offers, names] {
            if (offers) {
                QtFrames::Handle([&] { offers->TakeLate(names); });
            }
        };
        QMetaObject::invokeMethod(qApp, take, Qt::QueuedConnection);
    };
    if (ThreadWorker::DoSoon(list)) {
        m_names = *names;
        m_awaited.reset();
    }
}

void FolderOffers::TakeLate(const std::shared_ptr<const QStringList>& names) {
    if (names != m_awaited) {
        return; // they came in time, or are of a folder that nobody asks for any more
    }
    m_names = *names;
    m_awaited.reset();
    if (m_box->text() == m_typed) {
        Offer();
    }
}

void FolderOffers::Open(const QStringList& names) {
    if (m_list == nullptr) {
        m_list = new QListWidget(m_box->window());
        m_list->setObjectName(u"FolderList"_s);
        m_list->setFocusPolicy(Qt::NoFocus);
        m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_list->setUniformItemSizes(true);
        m_list->setAccessibleName(u"Folders"_s);
        QObject::connect(m_list, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
            QtFrames::Handle([&] {
                m_box->setText(m_folder + item->text());
                Close();
            });
        });
    }
    if (!IsOpen()) {
        qApp->installEventFilter(this);
    }
    m_list->clear();
    m_list->addItems(names);
    m_list->setCurrentRow(-1);
    Place();
    m_list->show();
    m_list->raise();
}

/// Places the list above or below the box, where there is more room.
void FolderOffers::Place() {
    const QWidget* window = m_box->window();
    const QPoint corner = m_box->mapTo(window, QPoint(0, 0));
    const int below = window->height() - corner.y() - m_box->height();
    const int room = std::max(corner.y(), below);
    const int rows = std::min(m_list->count(), MostRows);
    const int height = std::min(room, rows * m_list->sizeHintForRow(0) + 2 * m_list->frameWidth());
    const int top = below > corner.y() ? corner.y() + m_box->height() : corner.y() - height;
    m_list->setGeometry(corner.x(), top, m_box->width(), height);
}

void FolderOffers::Close() {
    // By the time the user types again, the names may be out of date.
    m_folder.clear();
    m_names.clear();
    m_awaited.reset();
    Hide();
}

void FolderOffers::Hide() {
    if (IsOpen()) {
        qApp->removeEventFilter(this);
        m_list->hide();
    }
}

bool FolderOffers::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_box && event->type() == QEvent::KeyPress) {
        return TakesKey(static_cast<QKeyEvent*>(event)->key());
    }
    if (ReachesElsewhere(watched, *event)) {
        Close();
    }
    return false;
}

/// Whether the user turns away from the list, or the window under it changes its size.
bool FolderOffers::ReachesElsewhere(const QObject* watched, const QEvent& event) const {
    switch (event.type()) {
    case QEvent::FocusOut:
        return watched == m_box;
    case QEvent::Resize:
        return watched == m_box->window();
    case QEvent::MouseButtonPress: {
        const auto* widget = qobject_cast<const QWidget*>(watched);
        return widget != nullptr && widget != m_list && !m_list->isAncestorOf(widget);
    }
    default:
        return false;
    }
}

/// Handles a key in the box while the list is open. False when the box is to have the key.
bool FolderOffers::TakesKey(int key) {
    const bool isChosen = m_list->currentRow() != -1;
    switch (key) {
    case Qt::Key_Down:
        Step(1);
        return true;
    case Qt::Key_Up:
        Step(-1);
        return true;
    case Qt::Key_Escape:
        m_box->setText(m_typed);
        Close();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Close();
        return isChosen;
    default:
        return false;
    }
}

/// Moves by one row. Between the last row and the first one comes the text as it was typed.
void FolderOffers::Step(int by) {
    const int stops = m_list->count() + 1;
    const int row = (m_list->currentRow() + 1 + by + stops) % stops - 1;
    m_list->setCurrentRow(row);
    m_box->setText(row == -1 ? m_typed : m_folder + m_list->item(row)->text());
}
