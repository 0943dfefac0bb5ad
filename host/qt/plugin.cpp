// The library's two exported functions, see display_plugin.h.
#include <host/display_plugin.h>
#include <host/qt/qt_display.h>

#include <QApplication>
#include <QFontMetrics>
#include <QIcon>
#include <QLocale>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

struct Plugin {
    std::unique_ptr<QApplication> application;
    std::unique_ptr<kvqt::QtDisplay> display;
};
Plugin plugin;

bool IsSet(const char* name) {
    const char* value = std::getenv(name);
    return value && *value;
}

// Qt mirrors windows only where it has translations of its own; a desktop in a right-to-left
// language is reason enough, whatever is installed.
void FollowDesktopDirection() {
    const QString language = QLocale::system().uiLanguages().value(0);
    if (QLocale(language).textDirection() == Qt::RightToLeft) {
        QApplication::setLayoutDirection(Qt::RightToLeft);
    }
}

// Qt ends the process with a core dump when it cannot reach the desktop; a person gets one clear
// line instead.
void ReportAndEnd(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type != QtFatalMsg) return;
    const QString reason = text.section(u'\n', 0, 0);
    std::fprintf(stderr, "kvprefs: the window cannot be opened: %s\n", qPrintable(reason));
    std::fflush(nullptr);
    std::_Exit(1);
}

// Everything else works, so a person who knows the pages can go on.
void WarnWithoutFonts() {
    if (QFontMetrics(QApplication::font()).inFont(u'A')) return;
    std::fputs("kvprefs: warning: no fonts are installed; texts show as boxes\n", stderr);
}

// Qt leaves through exit() when its connection to the desktop breaks, in the middle of an event. No
// window can be taken down in an orderly way then; what was applied before is stored already.
void EndWithTheDesktop() {
    if (!plugin.display) return;
    std::fputs("kvprefs: the desktop is gone; what was not applied is not stored\n", stderr);
    std::fflush(nullptr);
    std::_Exit(1);
}

}  // namespace

#define KV_EXPORT __attribute__((visibility("default")))

extern "C" KV_EXPORT kv::Display* KvCreateQtDisplay(int* argc, char** argv, const char** error) {
    if (plugin.display) {
        if (error) *error = "the display exists already";
        return nullptr;
    }
    if (!IsSet("DISPLAY") && !IsSet("WAYLAND_DISPLAY") && !IsSet("QT_QPA_PLATFORM")) {
        if (error) *error = "there is no desktop: neither DISPLAY nor WAYLAND_DISPLAY is set";
        return nullptr;
    }
    const QtMessageHandler previous = qInstallMessageHandler(ReportAndEnd);
    plugin.application = std::make_unique<QApplication>(*argc, argv);
    // The application has taken the desktop's locale, whose numbers may have a comma.
    std::setlocale(LC_NUMERIC, "C");
    qInstallMessageHandler(previous);
    QApplication::setQuitOnLastWindowClosed(false);
    // By these a desktop finds the name and the icon of an installed program.
    QApplication::setDesktopFileName(QStringLiteral("kvprefs"));
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("kvprefs")));
    FollowDesktopDirection();
    WarnWithoutFonts();
    plugin.display = std::make_unique<kvqt::QtDisplay>();
    // After the construction of everything that exit() would destroy, so it comes first.
    static const int watching = std::atexit(EndWithTheDesktop);
    static_cast<void>(watching);
    return plugin.display.get();
}

extern "C" KV_EXPORT void KvDestroyQtDisplay(kv::Display* display) {
    if (!display || display != plugin.display.get()) return;
    plugin.display.reset();
    // Widgets whose deletion was put off go before the application does.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    plugin.application.reset();
}
