// veldor: the desktop program.
#include "ui/application.h"

#include <QApplication>
#include <QIcon>
#include <QSocketNotifier>
#include <QStringList>

#include <sys/socket.h>
#include <unistd.h>
#include <csignal>
#include <cstdio>
#include <cstring>

namespace {

int signalPipe[2] = {-1, -1};

void OnSignal(int) {
    const char byte = 1;
    [[maybe_unused]] const auto written = ::write(signalPipe[1], &byte, 1);
}

constexpr const char* kHelp =
    "Usage: veldor [/CONFIG=NAME]\n"
    "Controls a Yaesu rig over its serial CAT link.\n\n"
    "  /CONFIG=NAME  run with the configuration NAME (upper-cased): its own settings file,\n"
    "                ~/.config/VELDOR/VELDOR_NAME.ini, and memory grid\n"
    "  -h, --help    print this help and exit\n"
    "  --version     print the version and exit\n\n"
    "Without /CONFIG= the settings are in ~/.config/VELDOR/VELDOR.ini\n"
    "($XDG_CONFIG_HOME moves ~/.config). See veldor(1).\n";

// --help and --version are answered on the terminal before any window exists, so that they
// work with no display. Returns false when the program is to start.
bool AnsweredOnTerminal(int argc, char* argv[]) {
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--help") == 0 || std::strcmp(argv[i], "-h") == 0) {
            std::fputs(kHelp, stdout);
            return true;
        }
        if (std::strcmp(argv[i], "--version") == 0) {
            std::printf("veldor %d.%d.%d\n", VELDOR_VERSION_MAJOR, VELDOR_VERSION_MINOR,
                        VELDOR_VERSION_REVISION);
            return true;
        }
    }
    return false;
}

}  // namespace

int main(int argc, char* argv[]) {
    if (AnsweredOnTerminal(argc, argv)) return 0;
    QApplication qapp(argc, argv);
    QApplication::setApplicationName("VELDOR");
    // The installed desktop entry and icon, so that the desktop shows the program as its own.
    QApplication::setDesktopFileName("veldor");
    QApplication::setWindowIcon(QIcon::fromTheme("veldor"));
    veldor::Application app;

    // SIGTERM and SIGINT close the program as its window does, so that a logout never leaves
    // the rig under CAT control.
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, signalPipe) == 0) {
        auto* notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, &qapp);
        QObject::connect(notifier, &QSocketNotifier::activated, [&app] {
            char byte;
            [[maybe_unused]] const auto got = ::read(signalPipe[0], &byte, 1);
            app.closeForSignal();
        });
        std::signal(SIGTERM, OnSignal);
        std::signal(SIGINT, OnSignal);
    }

    // The one command-line option, "/CONFIG=name".
    QStringList arguments = QApplication::arguments();
    arguments.removeFirst();
    if (!app.start(arguments.join(' '))) return 0;
    return QApplication::exec();
}
