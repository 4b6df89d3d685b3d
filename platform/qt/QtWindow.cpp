#include "platform/qt/QtWindow.h"

#include "platform/qt/BusyPointer.h"
#include "platform/qt/ControlWidget.h"
#include "platform/qt/QtFrames.h"
#include "platform/qt/ShownText.h"
#include "platform/qt/Twips.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFontMetricsF>
#include <QScopedValueRollback>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The value that was set while its pixels are still the same; otherwise the pixels' value.
double Exact(double set, int setPixels, int pixels, double perPixel) {
    return setPixels == pixels ? set : pixels * perPixel;
}

} // namespace

QtWindow::QtWindow(QWidget* owner, const QString& name, Qt::WindowFlags flags)
    : m_widget(new TopLevel(owner, flags)) {
    m_widget->setObjectName(name);
    Listen();
}

QtWindow::~QtWindow() {
    QtWindow::SetMousePointer(MousePointer::Default);
    delete m_widget.data();
}

void QtWindow::Listen() {
    m_widget->Resized = [this] { QtFrames::HandleAlways([this] { RaiseResize(); }); };
    m_widget->StateChanged = [this] { QtFrames::HandleAlways([this] { StateChanged(); }); };
    m_widget->MayClose = [this] {
        // Only the main window waits; a window that belongs to another one closes at once.
        if (HeldInput::IsNow() && m_widget->parentWidget() == nullptr) {
            HeldInput::CloseLater(*m_widget);
            return false;
        }
        bool mayClose = true; // even if the handler fails, or the window might never close
        QtFrames::HandleAlways([&] { mayClose = MayClose(); });
        return mayClose;
    };
}

WindowHandle QtWindow::Handle() const {
    return ControlWidget::HandleOf(*m_widget);
}

void QtWindow::SetCaption(const QString& caption) {
    if (caption == m_caption) {
        return;
    }
    m_caption = caption;
    // In a window title, "[*]" stands for a document's unsaved changes.
    QString title = ShownText::OneLine(caption);
    m_widget->setWindowTitle(title.replace(u"[*]"_s, u"[*][*]"_s));
}

WindowState QtWindow::State() const {
    const Qt::WindowStates states = m_widget->windowState();
    if (states.testFlag(Qt::WindowMinimized)) {
        return WindowState::Minimized;
    }
    return states.testFlag(Qt::WindowMaximized) ? WindowState::Maximized : WindowState::Normal;
}

void QtWindow::SetState(WindowState state) {
    Qt::WindowStates states = m_widget->windowState();
    states.setFlag(Qt::WindowMinimized, state == WindowState::Minimized);
    if (state != WindowState::Minimized) {
        states.setFlag(Qt::WindowMaximized, state == WindowState::Maximized);
    }
    QtFrames::Call([&] { m_widget->setWindowState(states); });
}

void QtWindow::StateChanged() {
    if (m_sizeWaits && State() == WindowState::Normal) {
        TakeSetSize();
    }
    RaiseResize();
}

void QtWindow::RaiseResize() {
    ++m_resizes;
    if (Resize) {
        Resize();
    }
}

double QtWindow::Left() const {
    const int set = Twips::ToPixels(m_left, m_top, 0, 0).x();
    return Exact(m_left, set, m_widget->x(), Twips::PerPixelX());
}

double QtWindow::Top() const {
    const int set = Twips::ToPixels(m_left, m_top, 0, 0).y();
    return Exact(m_top, set, m_widget->y(), Twips::PerPixelY());
}

double QtWindow::Width() const {
    return Exact(m_width, SetPixels().width(), m_widget->width(), Twips::PerPixelX());
}

double QtWindow::Height() const {
    return Exact(m_height, SetPixels().height(), m_widget->height(), Twips::PerPixelY());
}

void QtWindow::MoveTo(double left, double top) {
    m_left = left;
    m_top = top;
    m_placed = true;
    m_widget->move(Twips::ToPixels(left, top, 0, 0).topLeft());
}

void QtWindow::SetSize(double width, double height) {
    if (width == Width() && height == Height()) {
        return;
    }
    m_width = width;
    m_height = height;
    m_sizeWaits = State() != WindowState::Normal;
    if (!m_sizeWaits) {
        TakeSetSize();
    }
}

void QtWindow::SetMinimumSize(double width, double height) {
    QtFrames::Call([&] { m_widget->setMinimumSize(Twips::ToPixels(0, 0, width, height).size()); });
}

void QtWindow::TakeSetSize() {
    m_sizeWaits = false;
    const int resizes = m_resizes;
    QtFrames::Call([this] {
        m_widget->resize(SetPixels());
        if (m_widget->isVisible()) {
            KeepOnScreen();
        }
    });
    // While the window is not on the screen yet, Qt would raise it only later.
    if (m_resizes == resizes) {
        RaiseResize();
    }
}

QSize QtWindow::SetPixels() const {
    return Twips::ToPixels(0, 0, m_width, m_height).size();
}

/// Before the window has been on the screen, its frame is assumed to be like its owner's.
QSize QtWindow::PixelsWithFrame() const {
    const auto frame = [](const QWidget& widget) {
        return widget.frameGeometry().size() - widget.size();
    };
    const QSize own = frame(*m_widget);
    return m_widget->size() + (own.isNull() ? frame(*m_widget->parentWidget()) : own);
}

/// Centres a window that was never placed over its owner, on the owner's screen.
void QtWindow::PlaceOverOwner() {
    m_placed = true;
    const QWidget* owner = m_widget->parentWidget();
    QRect place(QPoint(), PixelsWithFrame());
    place.moveCenter(owner->frameGeometry().center());
    m_widget->setScreen(owner->screen());
    m_widget->move(place.topLeft());
}

/// Moves a window with an owner onto its screen. One that is larger than the screen shows its
/// beginning.
void QtWindow::KeepOnScreen() {
    if (m_widget->parentWidget() == nullptr || State() != WindowState::Normal) {
        return;
    }
    const QRect screen = m_widget->screen()->availableGeometry();
    const QRect now(m_widget->pos(), PixelsWithFrame());
    QRect place = now;
    place.moveRight(std::min(place.right(), screen.right()));
    place.moveBottom(std::min(place.bottom(), screen.bottom()));
    place.moveLeft(std::max(place.left(), screen.left()));
    place.moveTop(std::max(place.top(), screen.top()));
    if (place != now) {
        m_widget->move(place.topLeft());
    }
}

void QtWindow::Show() {
    if (!m_placed && m_widget->parentWidget() != nullptr) {
        PlaceOverOwner();
    }
    if (m_widget->isVisible() && State() == WindowState::Minimized) {
        SetState(WindowState::Normal);
    }
    QtFrames::Call([this] {
        KeepOnScreen();
        m_widget->show();
        m_widget->raise();
        m_widget->activateWindow();
    });
}

void QtWindow::Hide() {
    QtFrames::Call([this] { m_widget->hide(); });
}

void QtWindow::ShowModal() {
    const BusyPointer::Lifted lifted;
    QEventLoop loop;
    m_widget->Hidden = [&loop] { loop.quit(); };
    QObject::connect(m_widget, &QObject::destroyed, &loop, &QEventLoop::quit);
    m_widget->setWindowModality(Qt::ApplicationModal);
    Show();
    loop.exec();
    if (m_widget != nullptr) {
        m_widget->Hidden = {};
        m_widget->setWindowModality(Qt::NonModal);
    }
}

void QtWindow::Unload() {
    const QScopedValueRollback unloading(m_unloading, true);
    QtFrames::Call([this] { m_widget->close(); });
}

bool QtWindow::MayClose() {
    bool cancel = false;
    if (QueryUnload) {
        QueryUnload(cancel, m_unloading ? UnloadMode::Program : UnloadMode::User);
    }
    // A window that its handler has hidden counts as closed: refusing would keep the program from
    // quitting, and the session from ending.
    return !cancel || !m_widget->isVisible();
}

void QtWindow::Refresh() {
    constexpr qint64 frameMilliseconds = 16;
    if (!m_widget->isVisible() ||
        (m_sinceRefresh.isValid() && m_sinceRefresh.elapsed() < frameMilliseconds)) {
        return;
    }
    WaitForScreen();
    ControlWidget::PaintNow(*m_widget);
    m_sinceRefresh.start();
}

/// The system decides when a window that has just been shown appears, and the event loop would
/// learn of it. Long work that begins before the loop runs waits for it here, once and not for
/// long.
void QtWindow::WaitForScreen() {
    constexpr int patienceMilliseconds = 500;
    const QWindow* window = m_widget->windowHandle();
    if (m_waitedForScreen || window->isExposed() || State() == WindowState::Minimized) {
        return;
    }
    m_waitedForScreen = true;
    QTimer patience;
    patience.setSingleShot(true);
    patience.start(patienceMilliseconds);
    while (!window->isExposed() && patience.isActive()) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                        QEventLoop::WaitForMoreEvents);
    }
}

void QtWindow::SetMousePointer(MousePointer pointer) {
    const bool hourglass = pointer == MousePointer::Hourglass;
    if (hourglass == m_hourglass) {
        return;
    }
    m_hourglass = hourglass;
    hourglass ? BusyPointer::Begin() : BusyPointer::End();
}

double QtWindow::TextWidth(const QString& text) {
    return QFontMetricsF(m_widget->font()).horizontalAdvance(text) * Twips::PerPixelX();
}
