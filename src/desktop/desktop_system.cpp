#include "desktop/desktop_system.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCursor>
#include <QLibraryInfo>
#include <QLocale>
#include <QMenu>
#include <QStandardPaths>
#include <QTimer>
#include <algorithm>

#include "desktop/key_input.h"
#include "desktop/menu_view.h"
#include "desktop/text.h"
#include "desktop/view.h"

namespace kvt {

namespace {

// A caller that is back so soon does nothing but wait.
constexpr qint64 idleNanoseconds = 200'000;
constexpr int longestSleep = 20;  // milliseconds
constexpr int longestTurn = 30;   // milliseconds

// Serves the next event, for which it waits some milliseconds at the most.
void SleepFor(int milliseconds) {
    QTimer wake;
    wake.setTimerType(Qt::PreciseTimer);
    wake.setSingleShot(true);
    wake.start(milliseconds);
    QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents |
                                                        QEventLoop::WaitForMoreEvents);
}

}  // namespace

bool DesktopSystem::DoEvents() {
    if (ended_) return false;
    auto* dispatcher = QAbstractEventDispatcher::instance();
    const bool waits = sinceEvents_.isValid() && sinceEvents_.nsecsElapsed() < idleNanoseconds;
    const bool happened = dispatcher->processEvents(QEventLoop::AllEvents);
    if (!happened && waits && !ended_) SleepFor(longestSleep);
    sinceEvents_.start();
    return !ended_;
}

bool DesktopSystem::ServeEvents(long long turn) {
    if (turn == 1) sinceTurn_.start();
    if (!ended_ && sinceTurn_.elapsed() >= longestTurn) {
        QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents);
        sinceTurn_.start();
    }
    return !ended_;
}

bool DesktopSystem::WaitUntil(const std::function<double()>& left) {
    if (ended_) return false;
    QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents);
    for (double more = left(); more > 0 && !ended_; more = left())
        SleepFor(std::clamp(static_cast<int>(more), 1, longestSleep));
    return !ended_;
}

std::string DesktopSystem::LocalDataFolder() {
    return PathText(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
}

std::string DesktopSystem::DocumentsFolder() {
    return PathText(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
}

void DesktopSystem::PressKey(int pressed) {
    keys_.push_back({pressed, std::max<std::size_t>(running_.size(), 1)});
    if (running_.empty()) SendKeysSoon();
}

void DesktopSystem::SendKeysSoon() {
    QMetaObject::invokeMethod(
        &later_, [this] { SendKeys(); }, Qt::QueuedConnection);
}

void DesktopSystem::SendKeys() {
    while (!ended_ && !keys_.empty() && keys_.front().Depth > running_.size()) {
        const int pressed = keys_.front().Key;
        keys_.pop_front();
        Control* const focused = focus_.Focused();
        View* const view = focused ? View::Of(*focused) : nullptr;
        QWidget* const target = view ? view->KeyTarget() : QApplication::activeWindow();
        if (!target) continue;
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event = EventOf(pressed, type);
            QCoreApplication::sendEvent(target, &event);
        }
    }
}

void DesktopSystem::Later(std::function<void()> call) {
    deferred_.Add(std::move(call), running_.size(), Running());
    if (running_.empty()) RunDeferredSoon();
}

void DesktopSystem::RunDeferredSoon() {
    QMetaObject::invokeMethod(
        &later_, [this] { RunDeferred(); }, Qt::QueuedConnection);
}

void DesktopSystem::RunDeferred() {
    while (!ended_) {
        const std::optional<DeferredCalls::Deferred> one = deferred_.TakeDue(running_.size());
        if (!one) return;
        running_.push_back(one->Asker);
        try {
            one->Call();
        } catch (...) {
            TellFailure("Later");
        }
        running_.pop_back();
        TellHandled();
    }
}

void DesktopSystem::Beep() { QApplication::beep(); }

// The toolkit's own texts lie with the toolkit, or beside the program where that brings them along.
void DesktopSystem::UseLanguage(std::string_view code) {
    translator_.reset();
    const QString language = ToQt(code);
    const QLocale locale = language.isEmpty() ? QLocale::system() : QLocale(language);
    QLocale::setDefault(locale);
    if (language.isEmpty() || locale.language() == QLocale::English) return;
    auto translator = std::make_unique<QTranslator>();
    for (const QString& folder : {QLibraryInfo::path(QLibraryInfo::TranslationsPath),
                                  QCoreApplication::applicationDirPath() + QStringLiteral("/translations")}) {
        if (!translator->load(locale, QStringLiteral("qtbase"), QStringLiteral("_"), folder)) continue;
        QCoreApplication::installTranslator(translator.get());
        translator_ = std::move(translator);
        return;
    }
}

void DesktopSystem::ShowPopupMenu(Menu& menu) {
    if (auto* view = dynamic_cast<MenuView*>(menu.View)) view->PopUp(QCursor::pos());
}

void DesktopSystem::EndProgram() {
    ended_ = true;
    for (QWidget* window : QApplication::topLevelWidgets()) window->hide();
    QCoreApplication::quit();
}

}  // namespace kvt
